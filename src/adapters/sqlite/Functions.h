#pragma once

#include <sqlite3.h>

#include <string_view>

namespace adapters::sqlite {

/// Names under which translated statements call what SQLite has not.
/// The suite's own: a Solar Hijri text yyyy/mm/dd to its Gregorian day, the whole number yyyymmdd,
/// NULL to NULL; any other text is error 241. An ID list to a table with the column ID, one whole
/// number a row in the list's order; an element that is no number is error 245, one beyond int 248.
inline constexpr std::string_view kEnglishDateFunction = "getEnglishDate";
inline constexpr std::string_view kIdListFunction = "fnZomirStringToTable";
/// The id that this connection gave last, NULL before the first.
inline constexpr std::string_view kIdentityFunction = "scope_identity";
/// An aggregate: the one value of its rows, NULL without rows, error 512 for a second row.
inline constexpr std::string_view kOnlyValueFunction = "only_value";
/// pieces(value, ...): pieces of the value's text joined, NULL for NULL. A text among the arguments
/// stands as it is, two numbers are the place and the length of a piece, in characters from 1.
inline constexpr std::string_view kPiecesFunction = "pieces";
/// A whole number or a text as an int: error 245 or 248 for a text, 8115 for a number that is none.
inline constexpr std::string_view kToIntegerFunction = "to_integer";
/// The whole number yyyymmdd of a date as yyyy-mm-dd.
inline constexpr std::string_view kDateTextFunction = "date_text";
/// fit(text, length, column): the text without blanks beyond that many characters, error 8152 when
/// anything else stands there.
inline constexpr std::string_view kFitFunction = "fit";
/// Texts in the order of CompareTexts (Collation.h).
inline constexpr std::string_view kPersianCollation = "Persian";

/// Gives a handle the functions and the collation above, and the server's LIKE (Like.h) in place of
/// SQLite's. Throws RuntimeError.
void RegisterFunctions(sqlite3* database);
/// The collation alone, without which no handle can write to a file whose columns are declared with
/// it. False when SQLite refused it.
bool RegisterCollation(sqlite3* database);

/// An argument of a function as text (UTF-8), empty for NULL; lives as long as the value.
std::string_view TextOf(sqlite3_value* value);

}  // namespace adapters::sqlite
