#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "report/ReportData.h"

namespace report {

/// Where the value of a field comes from. What is of an item is told by the open section (turn)
/// that the item is of, counted from the outermost.
struct Field {
  enum class Kind {
    kToday,
    kColumn,
    kColumnWeekday,
    kRowNumber,
    kFirst,
    kRowCount,
    kMonthName,
    kYear,
    kDay,  // of its month, and so on: of an item that is a day
    kWeekday,
    kFriday,
    kDate,
    kDateWeekday
  };
  Kind kind = Kind::kToday;
  std::size_t turn = 0;
  std::size_t column = 0;
};

/// A step of a template's text, in the order of reading.
struct Node {
  enum class Kind { kText, kField, kIf, kUnless, kItems, kNoItems, kEnd, kEndOfItem, kStop };
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  Kind kind;
  int line;                 // of the template
  std::string_view text{};  // of a kText, in the template
  Field field{};            // of a kField, kIf or kUnless
  std::size_t other = 0;    // of what opens: the step behind its end; of a kEndOfItem: its kItems
  // Of a kItems or kNoItems: the query and level of the items, and the turn that they lie in.
  std::size_t query = 0;
  std::size_t level = 0;
  std::size_t around = kNone;
};

/// The steps of one text of the template. Every name must be that of a field or section that stands
/// in one of the sections around it, the innermost first; throws ReportError 321 for the first that
/// is not.
std::vector<Node> Compile(const ReportData& data, const TaggedText& text);

}  // namespace report
