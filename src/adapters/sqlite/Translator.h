#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/Catalog.h"

namespace adapters::sqlite {

struct ResultColumn {
  std::string name;  ///< empty for an expression without an alias, as on the server
  Type::Kind type;
};

struct Translation {
  std::string sql;
  /// Of a SELECT; of any other statement there are none.
  std::vector<ResultColumn> columns;
  /// Whether the statement inserts into a table that gives ids.
  bool givesIdentity = false;
};

/// Turns one statement of the server's dialect into SQLite's, or refuses it with a RuntimeError of
/// the server's number and words. Known are SELECT, INSERT, UPDATE and DELETE in the forms that the
/// suite's forms and its reports use (Parser.h). Names are looked up in `catalog`, every value gets
/// its type, and what the server would convert is converted here, in the statement or on the spot:
///
/// - Texts are compared, grouped and sorted by one collation (Collation.h), whatever a column says.
/// - A date may be compared with and set to a text yyyymmdd or yyyy-mm-dd.
/// - What does not fit a column, an int or a type is an error as on the server, never stored.
/// - A scalar subquery that finds several rows fails with 512.
///
/// What the server would take and SQLite could not do alike is refused with 102 and a reason.
Translation Translate(std::string_view statement, Catalog& catalog);

}  // namespace adapters::sqlite
