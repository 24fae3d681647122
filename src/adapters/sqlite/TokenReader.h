#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/Tokens.h"

namespace adapters::sqlite {

/// A place in a statement's tokens. Keywords are given in lower case and found in any case.
class TokenReader {
 public:
  explicit TokenReader(std::string_view statement) : tokens_(Tokenize(statement)) {}

  const Token& Peek(std::size_t ahead = 0) const;
  bool AtKeyword(std::string_view keyword, std::size_t ahead = 0) const;
  bool AtSymbol(std::string_view symbol, std::size_t ahead = 0) const;
  /// A quoted name, or an unquoted one that is no reserved word of the server.
  bool AtName(std::size_t ahead = 0) const;

  Token Take();
  bool AcceptKeyword(std::string_view keyword);
  bool AcceptSymbol(std::string_view symbol);
  void ExpectKeyword(std::string_view keyword);
  void ExpectSymbol(std::string_view symbol);
  std::string ExpectName();

  /// 102 or, near a reserved word, 156; at the end it names the token before.
  [[noreturn]] void Refuse() const;

 private:
  std::vector<Token> tokens_;
  std::size_t position_ = 0;
};

}  // namespace adapters::sqlite
