#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace adapters::odbc {

/// The two kinds of connection string set a value in quotes in ways of their own: OLE DB "..." and
/// '...', ODBC {...}; within them the closing mark is doubled.
enum class Syntax { kOleDb, kOdbc };

/// One `key=value` of a connection string.
struct Word {
  std::string key;    ///< Folded (Drivers.h)
  std::string value;  ///< without quotes or braces, doubled ones single
};

using Words = std::vector<Word>;

Words ReadWords(std::string_view text, Syntax syntax);

/// A string is OLE DB's when it names a provider however it is read: a password in quotes or
/// braces may hold anything.
Syntax SyntaxOf(std::string_view text);

/// The word of one of these keys that counts, the last in an OLE DB string, in an ODBC string the
/// first; null when there is none.
const Word* FindWord(const Words& words, std::initializer_list<std::string_view> keys,
                     Syntax syntax);

}  // namespace adapters::odbc
