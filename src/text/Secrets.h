#pragma once

#include <string>
#include <string_view>

namespace text {

/// `message` with "***" wherever a password of `connectionString` stands, as it is or as a
/// connection string quotes it. What the password is depends on who reads the string, OLE DB
/// (quotes) or ODBC (braces), and how it goes on where a mark is not closed; every reading counts.
/// A password of less than four bytes may be a part of any word: it is starred out only where it
/// stands alone.
std::string WithoutPasswords(std::string_view message, std::string_view connectionString);

/// `connectionString` with "***" for its passwords, for people to read. Where readings differ the
/// longest goes, to the end of the string where a mark is not closed.
std::string ShownConnection(std::string_view connectionString);

}  // namespace text
