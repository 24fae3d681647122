#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/SolarHijriDate.h"
#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "report/ReportTemplate.h"

namespace report {

/// The rows of one query of a template. They are read when they are first asked for, some hundred
/// at a time, and stay.
class QueryRows {
 public:
  /// One of the sections that the rows repeat: the groups from the outermost, then the rows.
  struct Level {
    std::string name;
    std::vector<std::size_t> columns;  // of a group: those it is grouped by
    ReportGroup::Calendar calendar;
    int line;  // of the template, where it is declared
  };

  /// Begins `statement`, which is the query's with the selection in it. Throws ReportError; so does
  /// whatever reads.
  QueryRows(const ReportTemplate& report, const ReportQuery& query, const std::string& statement,
            platform::Connection& connection);

  const std::vector<Level>& Levels() const { return levels_; }
  const std::vector<std::string>& Columns() const { return reader_->Columns(); }
  std::optional<std::size_t> Column(std::string_view name) const;

  /// Whether there is such a row; reads on until that is known.
  bool Has(std::size_t row);
  /// Of a row that there is.
  std::string_view Text(std::size_t row, std::size_t column) const {
    return rows_.Text(row, column);
  }
  /// In the columns of `level`; an absent value equals another.
  bool AreAlike(std::size_t row, std::size_t other, const Level& level) const;
  /// In the column of a level by calendar. Throws ReportError 321 for a text that is none.
  calendar::SolarHijriDate Date(std::size_t row, const Level& level) const;
  /// The dates of a level by calendar do not rise.
  [[noreturn]] void RefuseOrder(std::size_t row, const Level& level) const;

 private:
  [[noreturn]] void RefuseAsUnread(const platform::RuntimeError& error) const;
  void AddLevels();

  const ReportTemplate& report_;
  const ReportQuery& query_;
  std::unique_ptr<platform::RowReader> reader_;
  platform::RowSet rows_;
  bool mayHaveMore_ = true;
  std::vector<Level> levels_;
};

/// All that the texts of a template are filled in from.
struct ReportData {
  ReportTemplate report;
  std::string today;  // yyyy/mm/dd
  std::unique_ptr<platform::Connection> connection;
  std::vector<QueryRows> queries;
};

}  // namespace report
