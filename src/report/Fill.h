#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Connection.h"
#include "report/Markup.h"
#include "report/ReportTemplate.h"

namespace report {

/// "name = whole number", as "fmlID = 17".
struct SelectionFormula {
  std::string field;
  std::int64_t value;
};

/// Blanks around the parts do not matter. Throws ReportError 5 for anything else: the number goes
/// into statements.
SelectionFormula ParseFormula(std::string_view formula);

/// A report on its way from the database: what stands above every page, and the template's body
/// as it is filled in. Owns the template and the connection.
struct FilledReport {
  std::string name;       // of the template, for error texts
  std::string title;      // plain text
  std::string header;     // plain text
  std::string printDate;  // yyyy/mm/dd of today in the template's digits
  Orientation orientation = Orientation::kPortrait;
  Digits digits = Digits::kLatin;
  std::unique_ptr<Markup> body;
};

/// Begins the template's queries on `connection`, restricted by the formula; their rows are read
/// when a text comes to them, and stay. Fields of a row are the query's columns; an item of a group
/// has the columns that it is grouped by. Besides:
/// - `RowNumber` counts the items of one section from 1; `RowCount` of a group is how many rows it
///   holds; `First` is set in a section's first item.
/// - A column whose name begins with "Farsi" and holds a date has the day's name beside it, under
///   its name and "Weekday".
/// - A month has `MonthName` and `Year`; a day `Weekday`, its name, `Friday`, set on that day, and
///   `Day` and the column it is grouped by, which are empty outside the month around it.
/// - `Today`, everywhere, is today's Solar Hijri date.
/// An empty value counts as absent in `{{#Name}}` and `{{^Name}}`.
/// Throws ReportError, and so does the body: 5 for the formula; 321 with the line when the template
/// names what is not there, or a group by calendar finds no date or dates out of order; with the
/// database's number when a query fails.
FilledReport Fill(ReportTemplate report, std::unique_ptr<platform::Connection> connection,
                  std::string_view formula, std::chrono::sys_days today);

/// Latin digits as `digits` wants them; everything else as it is.
std::string WithDigits(std::string_view text, Digits digits);

}  // namespace report
