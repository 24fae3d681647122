#include "controls/Selector.h"

#include <algorithm>
#include <compare>
#include <limits>

#include "controls/Controls.h"
#include "platform/RuntimeError.h"
#include "text/Fold.h"
#include "text/PersianOrder.h"
#include "text/Text.h"

namespace controls {

namespace {

std::size_t RequiredColumn(const platform::RowSet& rows, std::string_view name) {
  if (const auto column = rows.ColumnIndex(name)) return *column;
  throw platform::RuntimeError(platform::kNoSuchField,
                               "The view has no column " + std::string(name) + ".");
}

// The columns that a row shows beside its name: Code first, no ids.
std::vector<std::size_t> DetailColumns(const platform::RowSet& rows) {
  const auto name = rows.ColumnIndex("Name");
  const auto code = rows.ColumnIndex("Code");
  std::vector<std::size_t> columns;
  if (code) columns.push_back(*code);
  for (std::size_t column = 0; column < rows.ColumnCount(); ++column) {
    const std::string folded = text::FoldForLookup(rows.Columns()[column]);
    if (column != name && column != code && !folded.ends_with("id")) columns.push_back(column);
  }
  return columns;
}

std::string Detail(const platform::RowSet& rows, std::size_t row,
                   const std::vector<std::size_t>& columns) {
  std::string detail;
  for (const std::size_t column : columns) {
    const std::string_view part = text::Trim(rows.Text(row, column));
    if (part.empty()) continue;
    if (!detail.empty()) detail += " - ";
    detail += part;
  }
  return detail;
}

// The id in a cell; 0 where there is none that can be selected.
std::int32_t IdOf(std::string_view cell) {
  const double id = text::LeadingNumber(cell);
  return id >= 1 && id <= std::numeric_limits<std::int32_t>::max() ? static_cast<std::int32_t>(id)
                                                                   : 0;
}

std::vector<std::string_view> Words(std::string_view folded) {
  std::vector<std::string_view> words;
  while (!folded.empty()) {
    const std::size_t end = std::min(folded.find(' '), folded.size());
    words.push_back(folded.substr(0, end));
    folded.remove_prefix(std::min(end + 1, folded.size()));
  }
  return words;
}

}  // namespace

Selector::Selector(Container& parent, std::string name, LookupSource& source)
    : Control(parent, std::move(name)), source_(source) {}

void Selector::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void Selector::SetConnectionString(std::string connectionString) {
  if (connectionString_ == connectionString) return;
  connectionString_ = std::move(connectionString);
  ForgetTexts();
}

void Selector::SetViews(std::string major, std::string minor) {
  if (majorView_ == major && minorView_ == minor) return;
  majorView_ = std::move(major);
  minorView_ = std::move(minor);
  ForgetTexts();
}

void Selector::SetCondition(std::string condition) {
  condition_ = std::move(condition);
}

void Selector::SetStandingCondition(std::string condition) {
  standingCondition_ = std::move(condition);
}

void Selector::ForgetTexts() {
  list_.clear();
  folded_.clear();
  Notify(Aspect::kItems);
  if (!HasSelection()) return;
  displayText_.reset();
  Notify(Aspect::kText);
}

void Selector::AssignId(std::int32_t id, std::optional<std::string> displayText) {
  if (selectedId_ == id && !changeFailed_) return;
  selectedId_ = id;
  displayText_ = std::move(displayText);
  Notify(Aspect::kText);
  changeFailed_ = true;
  if (onChange) onChange();
  changeFailed_ = false;
}

void Selector::Select(std::int32_t id) {
  if (id > 0) {
    AssignId(id, std::nullopt);
  } else {
    AssignId(-1, std::string());
  }
}

const std::string& Selector::DisplayText() {
  if (displayText_) return *displayText_;
  const std::string id = std::to_string(selectedId_);
  const platform::RowSet rows =
      source_.Lookup(connectionString_, "Select ID, Name from " + minorView_ + " where ID=" + id);
  if (rows.RowCount() > 0) {
    displayText_ = rows.Text(0, RequiredColumn(rows, "Name"));
  } else {
    displayText_ = "(" + id + ")";
  }
  return *displayText_;
}

void Selector::LoadList() {
  list_.clear();
  folded_.clear();
  Notify(Aspect::kItems);
  std::string statement = "Select * from " + majorView_;
  const std::string_view condition = text::Trim(condition_);
  const std::string_view standing = text::Trim(standingCondition_);
  if (condition.empty() || standing.empty() || condition == standing) {
    const std::string_view only = condition.empty() ? standing : condition;
    if (!only.empty()) statement.append(" where ").append(only);
  } else {
    statement.append(" where ").append(condition).append(" and ").append(standing);
  }

  const platform::RowSet rows = source_.Lookup(connectionString_, statement);
  const std::size_t idColumn = RequiredColumn(rows, "ID");
  const std::size_t nameColumn = RequiredColumn(rows, "Name");
  const auto detailColumns = DetailColumns(rows);
  list_.reserve(rows.RowCount());
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const std::int32_t id = IdOf(rows.Text(row, idColumn));
    if (id == 0) continue;
    list_.push_back(
        {id, std::string(rows.Text(row, nameColumn)), Detail(rows, row, detailColumns)});
  }
  std::stable_sort(list_.begin(), list_.end(), [](const Row& a, const Row& b) {
    return std::is_lt(text::ComparePersian(a.name, b.name));
  });
  folded_.reserve(list_.size());
  for (const Row& row : list_) {
    folded_.push_back(text::FoldForLookup(row.name) + '\n' + text::FoldForLookup(row.detail));
  }
  Notify(Aspect::kItems);
}

std::vector<std::size_t> Selector::Narrow(std::string_view typed) const {
  const std::string wanted = text::FoldForLookup(typed);
  const auto words = Words(wanted);
  std::vector<std::size_t> found;
  for (std::size_t row = 0; row < folded_.size(); ++row) {
    const std::string& folded = folded_[row];
    if (std::all_of(words.begin(), words.end(), [&](std::string_view word) {
          return folded.find(word) != std::string::npos;
        })) {
      found.push_back(row);
    }
  }
  std::stable_partition(found.begin(), found.end(), [&](std::size_t row) {
    const std::string& folded = folded_[row];
    return folded.starts_with(wanted) ||
           std::string_view(folded).substr(folded.find('\n') + 1).starts_with(wanted);
  });
  return found;
}

void Selector::Choose(std::size_t row) {
  if (!Enabled()) return;
  if (row >= list_.size()) {
    throw platform::RuntimeError(platform::kSubscriptOutOfRange, "Subscript out of range");
  }
  AssignId(list_[row].id, list_[row].name);
}

void Selector::ChooseNone() {
  if (Enabled()) Clear();
}

}  // namespace controls
