#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "report/Markup.h"

namespace report {

/// A start tag, an end tag or a text of HTML. Comments and the document type are none.
struct HtmlToken {
  enum class Kind { kText, kStart, kEnd };
  Kind kind = Kind::kText;
  /// A text without entities; of a tag what stands between its angle brackets, of an end tag
  /// without the slash. Good until the next token is asked for.
  std::string_view text;
  int line = 0;  // of the template, where the token begins
};

struct HtmlAttribute {
  std::string name;
  std::string value;
};

/// Reads HTML that comes in pieces, cut anywhere. A text may come as several tokens. Throws
/// ReportError 321 for what is no tag, no entity, or does not end.
class HtmlTokens {
 public:
  /// `templateName`, for error texts, outlives this.
  explicit HtmlTokens(const std::string& templateName) : name_(templateName) {}

  /// Takes one more piece. False at the end of the markup.
  bool Read(Markup& markup);
  /// False when it needs one more piece.
  bool Next(HtmlToken& token);
  /// Whether all that was read has been given out, so that one could begin anew here.
  bool AtRest() const { return at_ == buffer_.size() && !inComment_; }
  void Clear();

  /// The name in front of a tag, in small letters.
  static std::string TagName(std::string_view tag);
  std::vector<HtmlAttribute> Attributes(std::string_view tag, int line);

 private:
  struct Mark {
    std::size_t at;
    int line;
  };
  int LineAt(std::size_t at);
  bool SkipComment();
  bool TakeText(HtmlToken& token);
  bool TakeTag(HtmlToken& token);
  std::string_view Decoded(std::string_view text, int line);
  void AppendEntity(std::string_view entity, int line);

  const std::string& name_;
  std::string buffer_;
  std::size_t at_ = 0;
  bool inComment_ = false;
  std::vector<Mark> marks_;  // where a piece begins, those behind lineFrom_
  int line_ = 1;             // of lineFrom_
  std::size_t lineFrom_ = 0;
  std::string decoded_;
};

}  // namespace report
