#include "report/Fill.h"

#include <algorithm>
#include <charconv>
#include <kainjow/mustache.hpp>
#include <optional>
#include <utility>
#include <vector>

#include "calendar/SolarHijriDate.h"
#include "report/Names.h"
#include "report/ReportError.h"
#include "text/Text.h"

namespace report {

namespace {

using kainjow::mustache::data;
using platform::RowSet;

constexpr std::string_view kFarsi = "Farsi";

bool IsFarsiDate(std::string_view column) {
  return column.starts_with(kFarsi);
}

std::string WeekdayField(std::string_view column) {
  return std::string(column) + "Weekday";
}

/// An empty text would count as present.
data Value(std::string_view text) {
  return text.empty() ? data(false) : data(std::string(text));
}

void SetColumn(data& item, const std::string& name, std::string_view text) {
  item.set(name, Value(text));
  if (!IsFarsiDate(name)) return;
  const auto date = calendar::SolarHijriDate::FromText(text);
  item.set(WeekdayField(name), Value(date ? date->WeekdayName() : std::string_view()));
}

void AddFields(Section& section, const std::vector<std::string>& columns) {
  section.fields.insert(section.fields.end(), {"RowNumber", "First"});
  for (const std::string& column : columns) {
    section.fields.push_back(column);
    if (IsFarsiDate(column)) section.fields.push_back(WeekdayField(column));
  }
}

/// One query's rows as the items of its sections.
class Items {
 public:
  Items(const ReportTemplate& report, const ReportQuery& query, const RowSet& rows)
      : query_(query), rows_(rows) {
    for (const ReportGroup& group : query.groups) {
      std::vector<std::size_t>& columns = groupColumns_.emplace_back();
      for (const std::string& name : group.by) {
        const auto found = std::find(rows.Columns().begin(), rows.Columns().end(), name);
        if (found == rows.Columns().end()) {
          report.Refuse(query.line, "پرسش «" + query.name + "» ستوني به نام «" + name + "» ندارد.",
                        "query " + query.name + " has no column " + name + " to group by");
        }
        columns.push_back(static_cast<std::size_t>(found - rows.Columns().begin()));
      }
    }
  }

  const std::string& OuterName() const { return NameAt(0); }

  Section Describe(std::size_t level = 0) const {
    Section section{NameAt(level), {}, {}};
    if (level == groupColumns_.size()) {
      AddFields(section, rows_.Columns());
      return section;
    }
    AddFields(section, query_.groups[level].by);
    section.fields.emplace_back("RowCount");
    section.inner.push_back(Describe(level + 1));
    return section;
  }

  data All() const { return Make(0, 0, rows_.RowCount()); }

 private:
  const std::string& NameAt(std::size_t level) const {
    return level == query_.groups.size() ? query_.name : query_.groups[level].name;
  }

  data Make(std::size_t level, std::size_t first, std::size_t end) const {
    data list(data::type::list);
    int number = 0;
    for (std::size_t row = first; row < end;) {
      ++number;
      data item(data::type::object);
      item.set("RowNumber", std::to_string(number));
      item.set("First", data(number == 1));
      if (level == groupColumns_.size()) {
        for (std::size_t column = 0; column < rows_.ColumnCount(); ++column) {
          SetColumn(item, rows_.Columns()[column], rows_.Text(row, column));
        }
        ++row;
      } else {
        const std::vector<std::size_t>& columns = groupColumns_[level];
        const std::size_t next = EndOfGroup(columns, row, end);
        for (std::size_t column : columns) {
          SetColumn(item, rows_.Columns()[column], rows_.Text(row, column));
        }
        item.set("RowCount", std::to_string(next - row));
        item.set(NameAt(level + 1), Make(level + 1, row, next));
        row = next;
      }
      list.push_back(item);
    }
    return list;
  }

  std::size_t EndOfGroup(const std::vector<std::size_t>& columns, std::size_t first,
                         std::size_t end) const {
    std::size_t row = first + 1;
    const auto same = [&](std::size_t column) {
      return rows_.Cell(row, column) == rows_.Cell(first, column);
    };
    while (row < end && std::all_of(columns.begin(), columns.end(), same)) ++row;
    return row;
  }

  const ReportQuery& query_;
  const RowSet& rows_;
  std::vector<std::vector<std::size_t>> groupColumns_;
};

std::string Restricted(const ReportTemplate& report, const ReportQuery& query,
                       const SelectionFormula& formula) {
  std::string statement;
  std::string_view rest = query.statement;
  for (;;) {
    const auto begin = rest.find('{');
    statement += rest.substr(0, begin);
    if (begin == std::string_view::npos) return statement;
    const auto end = rest.find('}', begin);
    const std::string_view name = end == std::string_view::npos
                                      ? rest.substr(begin + 1)
                                      : rest.substr(begin + 1, end - begin - 1);
    if (end == std::string_view::npos || name != formula.field) {
      report.Refuse(query.line,
                    "پرسش «" + query.name + "» فيلد انتخاب «" + std::string(name) +
                        "» را مي خواهد، كه شناخته نيست.",
                    "query " + query.name + " wants {" + std::string(name) +
                        "}, the selection formula gives " + formula.field);
    }
    statement += std::to_string(formula.value);
    rest.remove_prefix(end + 1);
  }
}

bool BeginsWithSelect(std::string_view statement) {
  constexpr std::string_view kSelect = "select";
  statement.remove_prefix(std::min(statement.find_first_not_of(" \t\r\n"), statement.size()));
  return statement.size() >= kSelect.size() &&
         std::equal(kSelect.begin(), kSelect.end(), statement.begin(),
                    [](char lower, char c) { return lower == (c | 0x20); });
}

/// Anything but a SELECT is refused before it runs: a report changes nothing.
RowSet Run(const ReportTemplate& report, const ReportQuery& query, const std::string& statement,
           platform::Connection& connection) {
  try {
    RowSet rows = BeginsWithSelect(statement) ? connection.Execute(statement) : RowSet();
    if (rows.ReturnsRows()) return rows;
  } catch (const platform::RuntimeError& error) {
    throw ReportError(error.Number(),
                      "پرسش «" + query.name + "» قالب گزارش «" + report.Name() + "» اجرا نشد.",
                      report.Name() + ":" + std::to_string(query.line) + ": query " + query.name +
                          ": " + error.Description());
  }
  report.Refuse(query.line, "پرسش «" + query.name + "» سطري برنمي گرداند.",
                "query " + query.name + " is no SELECT");
}

std::string Render(const TaggedText& text, const data& values, Digits digits,
                   const kainjow::mustache::mustache::escape_handler& escape) {
  kainjow::mustache::mustache renderer(text.text);
  renderer.set_custom_escape(
      [&](const std::string& value) { return escape(WithDigits(value, digits)); });
  return renderer.render(values);
}

}  // namespace

SelectionFormula ParseFormula(std::string_view formula) {
  const auto refuse = [&] {
    throw ReportError(
        platform::kInvalidProcedureCall, "شرط انتخاب گزارش درست نيست: " + std::string(formula),
        "a selection formula is \"name = whole number\", not \"" + std::string(formula) + "\"");
  };
  const auto sign = formula.find('=');
  if (sign == std::string_view::npos) refuse();
  const std::string_view name = text::Trim(formula.substr(0, sign));
  const std::string_view number = text::Trim(formula.substr(sign + 1));
  SelectionFormula result{std::string(name), 0};
  const auto [end, error] =
      std::from_chars(number.data(), number.data() + number.size(), result.value);
  if (!IsName(name) || error != std::errc() || end != number.data() + number.size()) refuse();
  return result;
}

std::string WithDigits(std::string_view text, Digits digits) {
  if (digits == Digits::kLatin) return std::string(text);
  std::string result;
  result.reserve(text.size() * 2);
  for (char c : text) {
    if (c >= '0' && c <= '9') {
      result += '\xDB';  // U+06F0 to U+06F9
      result += static_cast<char>('\xB0' + (c - '0'));
    } else {
      result += c;
    }
  }
  return result;
}

FilledReport Fill(const ReportTemplate& report, platform::Connection& connection,
                  std::string_view formula, std::chrono::sys_days today) {
  const SelectionFormula selection = ParseFormula(formula);
  std::vector<std::string> statements;
  for (const ReportQuery& query : report.Queries()) {
    statements.push_back(Restricted(report, query, selection));
  }
  const std::string todayText = calendar::SolarHijriDate::FromDays(today).Text();
  Section names{{}, {"Today"}, {}};
  data values(data::type::object);
  values.set("Today", todayText);
  for (std::size_t i = 0; i < statements.size(); ++i) {
    const ReportQuery& query = report.Queries()[i];
    const RowSet rows = Run(report, query, statements[i], connection);
    const Items items(report, query, rows);
    names.inner.push_back(items.Describe());
    values.set(items.OuterName(), items.All());
  }
  for (const TaggedText* text : {&report.Title(), &report.Header(), &report.Body()}) {
    CheckNames(report, *text, names);
  }
  const Digits digits = report.ShownDigits();
  const auto plain = [](const std::string& value) { return value; };
  const auto html = [](const std::string& value) {
    return kainjow::mustache::html_escape<std::string>(value);
  };
  return {.title = Render(report.Title(), values, digits, plain),
          .header = Render(report.Header(), values, digits, plain),
          .printDate = WithDigits(todayText, digits),
          .html = Render(report.Body(), values, digits, html),
          .orientation = report.PageOrientation(),
          .digits = digits};
}

}  // namespace report
