#include "report/ReportData.h"

#include <algorithm>

#include "report/ReportError.h"
#include "text/Text.h"

namespace report {

namespace {

constexpr std::size_t kRowsAtOnce = 256;

bool BeginsWithSelect(std::string_view statement) {
  constexpr std::string_view kSelect = "select";
  statement.remove_prefix(std::min(statement.find_first_not_of(" \t\r\n"), statement.size()));
  return text::Small(statement.substr(0, kSelect.size())) == kSelect;
}

/// Whoever fails says it in Persian on the first line, if at all (platform::Described).
bool HasSentence(std::string_view description) {
  const auto isLatin = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  const std::string_view line = description.substr(0, description.find('\n'));
  return !std::all_of(line.begin(), line.end(), isLatin);
}

}  // namespace

QueryRows::QueryRows(const ReportTemplate& report, const ReportQuery& query,
                     const std::string& statement, platform::Connection& connection)
    : report_(report), query_(query) {
  // Anything but a SELECT is refused before it runs: a report changes nothing.
  if (BeginsWithSelect(statement)) {
    try {
      reader_ = connection.Open(statement);
    } catch (const platform::RuntimeError& error) {
      RefuseAsUnread(error);
    }
  }
  if (!reader_ || reader_->Columns().empty()) {
    report.Refuse(query.line, "پرسش «" + query.name + "» سطري برنمي گرداند.",
                  "query " + query.name + " is no SELECT");
  }
  AddLevels();
}

void QueryRows::RefuseAsUnread(const platform::RuntimeError& error) const {
  const std::string line = std::to_string(query_.line);
  std::string words =
      "پرسش «" + query_.name + "» قالب گزارش «" + report_.Name() + "» اجرا نشد. سطر " + line + ".";
  std::string technical = error.Description();
  if (HasSentence(technical)) {
    const auto end = std::min(technical.find('\n'), technical.size());
    words.back() = ':';
    words += " " + technical.substr(0, end);
    technical.erase(0, end + 1);
  }
  if (technical.empty()) technical = "error " + std::to_string(error.Number());
  throw ReportError(error.Number(), words,
                    report_.Name() + ":" + line + ": query " + query_.name + ": " + technical);
}

void QueryRows::AddLevels() {
  for (const ReportGroup& group : query_.groups) {
    Level& level = levels_.emplace_back(Level{group.name, {}, group.calendar, group.line});
    for (const std::string& name : group.by) {
      const auto column = Column(name);
      if (!column) {
        report_.Refuse(query_.line, "پرسش «" + query_.name + "» ستوني به نام «" + name + "» ندارد.",
                       "query " + query_.name + " has no column " + name + " to group by");
      }
      level.columns.push_back(*column);
    }
  }
  levels_.push_back({query_.name, {}, ReportGroup::Calendar::kNone, query_.line});
}

std::optional<std::size_t> QueryRows::Column(std::string_view name) const {
  const auto found = std::find(Columns().begin(), Columns().end(), name);
  if (found == Columns().end()) return std::nullopt;
  return static_cast<std::size_t>(found - Columns().begin());
}

bool QueryRows::Has(std::size_t row) {
  while (row >= rows_.RowCount() && mayHaveMore_) {
    try {
      mayHaveMore_ = reader_->Read(rows_, kRowsAtOnce);
    } catch (const platform::RuntimeError& error) {
      RefuseAsUnread(error);
    }
  }
  return row < rows_.RowCount();
}

bool QueryRows::AreAlike(std::size_t row, std::size_t other, const Level& level) const {
  return std::all_of(level.columns.begin(), level.columns.end(), [&](std::size_t column) {
    return rows_.Cell(row, column) == rows_.Cell(other, column);
  });
}

calendar::SolarHijriDate QueryRows::Date(std::size_t row, const Level& level) const {
  const std::size_t column = level.columns.front();
  const auto date = calendar::SolarHijriDate::FromText(Text(row, column));
  if (!date) {
    const std::string text(Text(row, column));
    report_.Refuse(level.line,
                   "گروه «" + level.name + "» تقويمي است، ولي «" + Columns()[column] + "» در سطر " +
                       std::to_string(row + 1) + " پرسش «" + query_.name + "» تاريخ نيست: «" +
                       text + "»",
                   "group " + level.name + ": row " + std::to_string(row + 1) + " of query " +
                       query_.name + ": no date in " + Columns()[column] + ": \"" + text + "\"");
  }
  return *date;
}

void QueryRows::RefuseOrder(std::size_t row, const Level& level) const {
  const std::string& column = Columns()[level.columns.front()];
  report_.Refuse(level.line,
                 "گروه «" + level.name + "» تقويمي است، ولي سطرهاي پرسش «" + query_.name +
                     "» به ترتيب «" + column + "» نيستند (سطر " + std::to_string(row + 1) + ").",
                 "group " + level.name + ": row " + std::to_string(row + 1) + " of query " +
                     query_.name + " is not in the order of " + column);
}

}  // namespace report
