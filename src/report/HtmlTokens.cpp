#include "report/HtmlTokens.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "report/ReportError.h"
#include "text/Text.h"
#include "text/Utf8.h"

namespace report {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kCommentBegin = "<!--";
constexpr std::string_view kCommentEnd = "-->";
constexpr std::size_t kLongestEntity = 12;
/// A tag that does not end would otherwise be looked through again with every piece.
constexpr std::size_t kLongestTag = 20'000;

constexpr std::pair<std::string_view, std::string_view> kEntities[] = {
    {"nbsp", "\u00A0"}, {"amp", "&"},       {"lt", "<"},       {"gt", ">"},       {"quot", "\""},
    {"apos", "'"},      {"laquo", "«"},     {"raquo", "»"},    {"ndash", "–"},    {"mdash", "—"},
    {"times", "×"},     {"zwnj", "\u200C"}, {"zwj", "\u200D"}, {"rlm", "\u200F"}, {"lrm", "\u200E"},
};

/// Where the ">" of a tag stands, not within quotation marks; npos when it is not there yet.
std::size_t TagEnd(std::string_view text, std::size_t from) {
  for (;;) {
    const std::size_t at = text.find_first_of(">\"'", from);
    if (at == std::string_view::npos || text[at] == '>') return at;
    const std::size_t closing = text.find(text[at], at + 1);
    if (closing == std::string_view::npos) return closing;
    from = closing + 1;
  }
}

}  // namespace

bool HtmlTokens::Read(Markup& markup) {
  line_ = LineAt(at_);
  buffer_.erase(0, at_);
  at_ = lineFrom_ = 0;
  const std::size_t size = buffer_.size();
  int line = 0;
  if (!markup.Next(buffer_, line)) {
    if (size == 0 && !inComment_) return false;
    RefuseTemplate(name_, line_, "نشانه اي تا پايان قالب بسته نشده است.",
                   "not closed until the end: " + buffer_.substr(0, kLongestEntity));
  }
  marks_.push_back({size, line});
  return true;
}

void HtmlTokens::Clear() {
  buffer_.clear();
  marks_.clear();
  at_ = lineFrom_ = 0;
  inComment_ = false;
}

/// Asked for places in their order.
int HtmlTokens::LineAt(std::size_t at) {
  const auto begin = buffer_.begin();
  const auto passed =
      std::find_if(marks_.begin(), marks_.end(), [at](const Mark& mark) { return mark.at > at; });
  if (passed != marks_.begin()) {
    line_ = (passed - 1)->line;
    lineFrom_ = (passed - 1)->at;
    marks_.erase(marks_.begin(), passed);
  }
  line_ += static_cast<int>(std::count(begin + static_cast<std::ptrdiff_t>(lineFrom_),
                                       begin + static_cast<std::ptrdiff_t>(at), '\n'));
  lineFrom_ = at;
  return line_;
}

bool HtmlTokens::Next(HtmlToken& token) {
  while (at_ < buffer_.size()) {
    const std::string_view rest = std::string_view(buffer_).substr(at_);
    if (inComment_) {
      if (!SkipComment()) return false;
    } else if (rest.front() != '<') {
      return TakeText(token);
    } else if (rest.starts_with(kCommentBegin)) {
      at_ += kCommentBegin.size();
      inComment_ = true;
    } else if (kCommentBegin.starts_with(rest)) {
      return false;
    } else if (rest[1] == '!') {
      const std::size_t end = TagEnd(rest, 0);
      if (end == std::string_view::npos && rest.size() < kLongestTag) return false;
      if (!text::Small(rest.substr(0, 9)).starts_with("<!doctype") ||
          end == std::string_view::npos) {
        RefuseTemplate(name_, LineAt(at_), "نشانه اي كه با «<!» آغاز شده درست نيست.",
                       "neither comment nor document type");
      }
      at_ += end + 1;
    } else {
      return TakeTag(token);
    }
  }
  return false;
}

bool HtmlTokens::SkipComment() {
  const std::size_t end = buffer_.find(kCommentEnd, at_);
  inComment_ = end == std::string::npos;
  if (!inComment_) {
    at_ = end + kCommentEnd.size();
  } else {
    at_ = std::max(at_, buffer_.size() - std::min(buffer_.size(), kCommentEnd.size() - 1));
  }
  return !inComment_;
}

bool HtmlTokens::TakeText(HtmlToken& token) {
  std::size_t end = std::min(buffer_.find('<', at_), buffer_.size());
  if (end == buffer_.size()) {
    // An entity may be cut.
    const std::size_t ampersand = buffer_.rfind('&');
    if (ampersand != std::string::npos && ampersand >= at_ && end - ampersand < kLongestEntity &&
        buffer_.find(';', ampersand) == std::string::npos) {
      end = ampersand;
    }
    if (end == at_) return false;
  }
  token.kind = HtmlToken::Kind::kText;
  token.line = LineAt(at_);
  token.text = Decoded(std::string_view(buffer_).substr(at_, end - at_), token.line);
  at_ = end;
  return true;
}

bool HtmlTokens::TakeTag(HtmlToken& token) {
  const std::size_t end = TagEnd(buffer_, at_ + 1);
  if (end == std::string::npos) {
    if (buffer_.size() - at_ < kLongestTag) return false;
    RefuseTemplate(name_, LineAt(at_), "نشانه اي بسته نشده است.",
                   "a tag is not closed: " + buffer_.substr(at_, 2 * kLongestEntity));
  }
  token.line = LineAt(at_);
  token.text = std::string_view(buffer_).substr(at_ + 1, end - at_ - 1);
  const bool closes = token.text.starts_with('/');
  if (closes) token.text.remove_prefix(1);
  token.kind = closes ? HtmlToken::Kind::kEnd : HtmlToken::Kind::kStart;
  at_ = end + 1;
  return true;
}

std::string_view HtmlTokens::Decoded(std::string_view text, int line) {
  std::size_t ampersand = text.find('&');
  if (ampersand == std::string_view::npos) return text;
  decoded_.clear();
  std::size_t from = 0;
  for (; ampersand != std::string_view::npos; ampersand = text.find('&', from)) {
    decoded_.append(text, from, ampersand - from);
    const std::size_t end = std::min(text.find(';', ampersand), text.size() - 1);
    AppendEntity(text.substr(ampersand + 1, end - ampersand), line);
    from = end + 1;
  }
  decoded_.append(text, from);
  return decoded_;
}

/// Of what stands behind "&", with its ";".
void HtmlTokens::AppendEntity(std::string_view entity, int line) {
  const bool ends = entity.ends_with(';');
  if (ends) entity.remove_suffix(1);
  for (const auto& [name, text] : kEntities) {
    if (ends && entity == name) {
      decoded_ += text;
      return;
    }
  }
  char32_t code = 0;
  if (ends && entity.starts_with('#')) {
    const bool hexadecimal = entity.size() > 1 && text::Small(entity[1]) == 'x';
    const char* const end = entity.data() + entity.size();
    std::uint32_t number = 0;
    const auto read =
        std::from_chars(entity.data() + (hexadecimal ? 2 : 1), end, number, hexadecimal ? 16 : 10);
    if (read.ec == std::errc() && read.ptr == end) code = number;
  }
  const bool isCharacter = (code >= 0x20 && code < 0xD800) ||
                           (code >= 0xE000 && code <= 0x10FFFF) || code == '\t' || code == '\n' ||
                           code == '\r';
  if (!isCharacter) {
    const std::string shown(entity.substr(0, kLongestEntity));
    RefuseTemplate(name_, line, "«&" + shown + "» شناخته نيست؛ خود «&» را «&amp;» بنويسيد.",
                   "unknown entity: &" + shown);
  }
  std::array<char, 4> bytes{};
  decoded_.append(bytes.data(), text::PutUtf8(bytes.data(), code));
}

std::string HtmlTokens::TagName(std::string_view tag) {
  return text::Small(tag.substr(0, tag.find_first_of(" \t\r\n/")));
}

std::vector<HtmlAttribute> HtmlTokens::Attributes(std::string_view tag, int line) {
  std::vector<HtmlAttribute> attributes;
  const auto skip = [&tag](std::size_t count) {
    tag.remove_prefix(std::min(count, tag.size()));
    tag.remove_prefix(std::min(tag.find_first_not_of(kBlanks), tag.size()));
  };
  skip(tag.find_first_of(" \t\r\n/"));
  while (!tag.empty() && tag != "/") {
    const std::string_view name = tag.substr(0, tag.find_first_of(" \t\r\n=\"'/"));
    skip(name.size());
    std::string_view value;
    bool fine = !name.empty();
    if (fine && tag.starts_with('=')) {
      skip(1);
      const bool quoted = tag.starts_with('"') || tag.starts_with('\'');
      const std::size_t end = quoted ? tag.find(tag.front(), 1) : tag.find_first_of(kBlanks);
      value = quoted ? tag.substr(1, end - 1) : tag.substr(0, end);
      skip(quoted ? value.size() + 2 : value.size());
      fine = quoted || !value.empty();
    }
    if (!fine) {
      RefuseTemplate(name_, line, "صفتهاي نشانه درست نوشته نشده اند.",
                     "no name=\"value\": " + std::string(tag.substr(0, 2 * kLongestEntity)));
    }
    attributes.push_back({text::Small(name), std::string(Decoded(value, line))});
  }
  return attributes;
}

}  // namespace report
