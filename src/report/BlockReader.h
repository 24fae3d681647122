#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "report/Block.h"
#include "report/BlockLayout.h"
#include "report/Css.h"
#include "report/HtmlTokens.h"
#include "report/Markup.h"
#include "report/Styles.h"

namespace report {

/// Makes blocks of markup, and can begin again with each of them: it knows the last place where
/// nothing was under way, and how many blocks came since. Throws what the markup throws, and
/// ReportError 321 for what a template must not say; then it must GoTo somewhere.
class BlockReader {
 public:
  struct Open {
    Styles::Id style;
    int line;
  };
  /// A place between two pieces where neither a text nor a row was under way.
  struct Rest {
    MarkupPlace place;
    std::vector<Open> open;
    std::size_t sheets = 0;
    std::uint32_t tables = 0;  // begun before
    bool inTable = false;
    std::shared_ptr<const Rest> table;  // when in one: the rest before it
    double gap = 0;
    bool breakBefore = false;
  };
  struct Place {
    Rest rest;
    std::size_t skip = 0;  // blocks from there
  };

  /// A table's head that is higher than `highestHead` is not repeated. All references outlive this.
  BlockReader(Markup& markup, const std::string& templateName, Styles& styles, BlockLayout& layout,
              double highestHead);

  /// False at the end. Swaps: what `block` held is used again.
  bool Next(Block& block);
  /// Where the block begins that came last.
  Place LastBegins() const { return {rest_, given_ - 1}; }
  /// Where the first one begins; also after a failure.
  Place Begin() const { return {begin_, 0}; }
  void GoTo(const Place& place);

 private:
  bool Step();
  void Return(const Rest& rest);
  void NoteRest();
  bool AtRest() const;
  void Finish();

  void Take(const HtmlToken& token);
  void TakeText(const HtmlToken& token);
  void OpenTag(const HtmlToken& token);
  void CheckPlace(Element element, int line) const;
  void OpenTextBlock(Styles::Id id);
  void OpenTable(Styles::Id id);
  void CloseTag(const HtmlToken& token);
  void CloseTable();
  void CloseRow();

  void AppendText(std::string_view text);
  void AddRun(Block::RunKind kind, Styles::Id style, double amount);
  void BreakLine(Styles::Id id);
  void BreakInCell(double gap);
  void EndParagraph(bool evenEmpty = false);
  void AddRule(Styles::Id id);
  void FixTable(const Block* row);
  void GiveHead();
  void Give(Block& block);

  Styles::Id Top() const { return open_.back().style; }
  Element TopElement() const { return styles_.ElementOf(Top()); }
  /// The block of text that is open innermost.
  Styles::Id TextBlock() const;
  [[noreturn]] void Refuse(int line, const std::string& words, const std::string& technical) const;

  Markup& markup_;
  const std::string& name_;
  Styles& styles_;
  BlockLayout& layout_;
  const double highestHead_;
  HtmlTokens tokens_;
  LinedText sheet_;

  std::vector<Open> open_;
  Block current_;  // the row or paragraph under way
  bool inRow_ = false;
  bool inCell_ = false;
  bool blank_ = false;  // between the text so far and what comes
  std::shared_ptr<Table> table_;
  std::shared_ptr<const Rest> tableRest_;
  std::uint32_t tables_ = 0;
  double gap_ = 0;
  bool breakBefore_ = false;

  std::vector<Block> ready_;
  std::size_t nextReady_ = 0;
  std::size_t readyCount_ = 0;
  bool ended_ = false;

  Rest begin_;
  Rest rest_;
  std::size_t given_ = 0;  // blocks since rest_
};

}  // namespace report
