#pragma once

#include <string>
#include <string_view>

namespace adapters::sqlite {

struct Translation {
  std::string sql;
  bool returnsRows = false;
  /// The table that an INSERT writes to, else empty.
  std::string insertedTable;
};

/// Turns one statement of the server's dialect into SQLite's. Known are SELECT, INSERT, UPDATE and
/// DELETE in the forms that the suite's forms use: joins, subqueries, grouping, TOP, ISNULL,
/// CONVERT, SUBSTRING, GETDATE, SCOPE_IDENTITY, ROW_NUMBER, `dbo.` names, N'' texts, quoted
/// aliases, the suite's two functions. Anything else, a second statement included, is refused with
/// a RuntimeError of the server's number and words; nothing is passed on unread.
///
/// - `+` joins texts when one operand can be seen to be text, adds when both are numbers, and is
///   otherwise decided by the values when the statement runs.
/// - A scalar subquery that finds several rows fails with 512.
/// - ORDER BY sorts texts as a Persian reader expects; comparisons follow the columns' collation.
Translation Translate(std::string_view statement);

}  // namespace adapters::sqlite
