#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace adapters::server {

/// The two kinds of connection string set a value in quotes in ways of their own: OLE DB "..." and
/// '...', ODBC {...}; within them the closing mark is doubled.
enum class Syntax { kOleDb, kOdbc };

/// One `key=value` of a connection string.
struct Word {
  std::string key;    ///< Folded
  std::string value;  ///< without quotes or braces, doubled ones single
  std::size_t from;   ///< where it stands in the string, the ";" behind it included
  std::size_t end;
};

using Words = std::vector<Word>;

/// ASCII letters in lower case, without blanks: how names and words are compared.
std::string Folded(std::string_view name);

Words ReadWords(std::string_view text, Syntax syntax);

/// A string is OLE DB's when it names a provider however it is read: a password in quotes or
/// braces may hold anything.
Syntax SyntaxOf(std::string_view text);

/// The word of one of these keys that counts, the last in an OLE DB string, in an ODBC string the
/// first; null when there is none.
const Word* FindWord(const Words& words, std::initializer_list<std::string_view> keys,
                     Syntax syntax);

}  // namespace adapters::server
