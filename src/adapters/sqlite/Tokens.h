#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace adapters::sqlite {

enum class TokenKind {
  kName,        ///< a name or keyword as written
  kQuotedName,  ///< "name" or [name]: never a keyword
  kText,        ///< 'text' or N'text'
  kNumber,      ///< digits, perhaps with a decimal part; no sign
  kSymbol,      ///< punctuation or an operator of one or two characters
  kEnd,
};

/// `text` is the value: without quotes, doubled quotes single again.
struct Token {
  TokenKind kind;
  std::string text;
};

/// Takes a statement of the server's dialect apart; the last token is of kind kEnd. Throws
/// RuntimeError 105 for an unclosed quotation mark and 102 for what begins no token. Comments are
/// refused (102): no statement of the suite has any, and behind a quotation mark in a user's text
/// one would hide the rest of the statement.
std::vector<Token> Tokenize(std::string_view statement);

/// The server's 102 "Incorrect syntax near 'x'.", thrown; a long x is cut.
[[noreturn]] void ThrowIncorrectSyntax(std::string_view near);

}  // namespace adapters::sqlite
