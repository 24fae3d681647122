#pragma once

#include <sqlite3.h>

#include <string_view>

namespace adapters::sqlite {

/// Names under which translated statements call what SQLite has not.
/// The suite's own: a Solar Hijri text yyyy/mm/dd to its Gregorian day, the whole number yyyymmdd,
/// NULL to NULL; any other text is error 241. An ID list to a table with the column ID, one whole
/// number a row in the list's order; an element that is no number is error 245.
inline constexpr std::string_view kEnglishDateFunction = "getEnglishDate";
inline constexpr std::string_view kIdListFunction = "fnZomirStringToTable";
/// The id that this connection gave last, NULL before the first.
inline constexpr std::string_view kIdentityFunction = "scope_identity";
/// `+` where only the values can tell: joins two texts, adds two numbers, 245 for one of each.
inline constexpr std::string_view kPlusFunction = "server_plus";
/// An aggregate: the one value of its rows, NULL without rows, error 512 for a second row.
inline constexpr std::string_view kOnlyValueFunction = "only_value";
/// pieces(value, ...): pieces of the value's text joined, NULL for NULL. A text among the arguments
/// stands as it is, two numbers are the place and the length of a piece, in characters from 1.
inline constexpr std::string_view kPiecesFunction = "pieces";
/// A value as a whole number, error 245 for a text that is none.
inline constexpr std::string_view kToIntegerFunction = "to_integer";
/// Texts in the order of text::ComparePersian.
inline constexpr std::string_view kPersianCollation = "Persian";

/// Gives a handle the functions and the collation above, and the server's LIKE (% _ [a-z] [^a-z],
/// Latin letters in either case) in place of SQLite's. Throws RuntimeError.
void RegisterFunctions(sqlite3* database);

}  // namespace adapters::sqlite
