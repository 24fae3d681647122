#pragma once

#include <string_view>

namespace demo {

/// The statements, each ended by ";", that make the tables, views and indexes of an empty office:
/// every table and view that the module reads or writes, with the columns that it names.
///
/// - A date column is declared DATE and written as the literal yyyymmdd. SQLite keeps that as the
///   whole number; a check refuses what is no day. Solar Hijri dates are text yyyy/mm/dd.
/// - Texts have the lengths that they have on the server, and the adapter's collation: a handle
///   needs RegisterCollation before it can look for a text or write one.
/// - Column names are part of the contract with the module's statements, which name columns without
///   their table: ID of a program, an organization or a path must be the only ID of its statement.
///   So the visit rows and the customer's place on a path have no ID of their own.
/// - The visit rows have no unique key: a customer who stands on two paths is planned twice a day.
std::string_view OfficeSchema();

}  // namespace demo
