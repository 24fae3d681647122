#include "adapters/sqlite/Tokens.h"

#include <algorithm>
#include <array>

#include "adapters/sqlite/Errors.h"
#include "text/Text.h"
#include "text/Utf8.h"

namespace adapters::sqlite {

namespace {

using text::IsDigit;

constexpr std::size_t kShownCharacters = 60;

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
/// Every byte of a letter outside ASCII counts: names may be Persian.
bool BeginsName(char c) {
  return text::IsLatinLetter(c) || c == '_' || c == '#' || c == '@' ||
         static_cast<unsigned char>(c) >= 0x80;
}
bool ContinuesName(char c) {
  return BeginsName(c) || IsDigit(c) || c == '$';
}

/// The beginning of a long text, not cut within a character.
std::string Shown(std::string_view text) {
  if (text.size() <= kShownCharacters) return std::string(text);
  std::size_t end = kShownCharacters;
  while (end > 0 && text::IsTail(text[end])) --end;
  return std::string(text.substr(0, end));
}

class Tokenizer {
 public:
  explicit Tokenizer(std::string_view statement) : rest_(statement) {}

  std::vector<Token> Run() {
    // SQLite would take the statement to end there.
    if (rest_.find('\0') != std::string_view::npos) ThrowIncorrectSyntax("0x00");
    std::vector<Token> tokens;
    do {
      tokens.push_back(Next());
    } while (tokens.back().kind != TokenKind::kEnd);
    return tokens;
  }

 private:
  Token Next() {
    while (!rest_.empty() && IsBlank(rest_.front())) rest_.remove_prefix(1);
    if (rest_.empty()) return {TokenKind::kEnd, {}};
    const char first = rest_.front();
    const char second = rest_.size() > 1 ? rest_[1] : '\0';
    if (first == '\'') return {TokenKind::kText, Quoted(0, '\'')};
    if ((first == 'N' || first == 'n') && second == '\'')
      return {TokenKind::kText, Quoted(1, '\'')};
    if (first == '"') return {TokenKind::kQuotedName, Quoted(0, '"')};
    if (first == '[') return {TokenKind::kQuotedName, Quoted(0, ']')};
    if (IsDigit(first)) return {TokenKind::kNumber, Number()};
    if (BeginsName(first)) return {TokenKind::kName, TakeWhile(ContinuesName)};
    return {TokenKind::kSymbol, Symbol()};
  }

  std::string Take(std::size_t count) {
    std::string taken(rest_.substr(0, count));
    rest_.remove_prefix(count);
    return taken;
  }
  std::string TakeWhile(bool (*belongs)(char)) {
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), belongs);
    return Take(static_cast<std::size_t>(end - rest_.begin()));
  }

  /// A quotation whose opening mark stands at `open`; the closing mark doubled stands for itself.
  std::string Quoted(std::size_t open, char close) {
    std::string value;
    for (std::size_t from = open + 1;;) {
      const std::size_t end = rest_.find(close, from);
      if (end == std::string_view::npos) {
        throw MakeError(kUnclosedQuotation, "Unclosed quotation mark after the character string '" +
                                                Shown(rest_.substr(open + 1)) + "'.");
      }
      value.append(rest_.substr(from, end - from));
      from = end + 1;
      if (from == rest_.size() || rest_[from] != close) {
        rest_.remove_prefix(from);
        return value;
      }
      value.push_back(close);
      ++from;
    }
  }

  std::string Number() {
    std::string number = TakeWhile(IsDigit);
    if (rest_.size() > 1 && rest_[0] == '.' && IsDigit(rest_[1])) {
      number += Take(1);
      number += TakeWhile(IsDigit);
    }
    if (!rest_.empty() && ContinuesName(rest_.front())) {
      ThrowIncorrectSyntax(number + TakeWhile(ContinuesName));
    }
    return number;
  }

  std::string Symbol() {
    constexpr std::array<std::string_view, 6> kPairs{"<>", "<=", ">=", "!=", "!<", "!>"};
    const std::string_view pair = rest_.substr(0, 2);
    if (pair == "--" || pair == "/*") ThrowIncorrectSyntax(pair);
    if (std::find(kPairs.begin(), kPairs.end(), pair) != kPairs.end()) return Take(2);
    constexpr std::string_view kSingles = "(),.=<>+-*/%;";
    if (kSingles.find(rest_.front()) == std::string_view::npos) {
      ThrowIncorrectSyntax(rest_.substr(0, 1));
    }
    return Take(1);
  }

  std::string_view rest_;
};

}  // namespace

std::vector<Token> Tokenize(std::string_view statement) {
  return Tokenizer(statement).Run();
}

void ThrowIncorrectSyntax(std::string_view near) {
  throw MakeError(kIncorrectSyntax, "Incorrect syntax near '" + Shown(near) + "'.");
}

}  // namespace adapters::sqlite
