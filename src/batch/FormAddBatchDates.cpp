// The days grid: one row for each day of the range, its weekdays, and how the picked days leave the
// form.

#include <vector>

#include "batch/FormAddBatch.h"
#include "batch/PickedIds.h"
#include "platform/ResumeNext.h"
#include "text/Text.h"
#include "tools/BusyGrid.h"

namespace batch {

namespace {

constexpr int kWeekdayCol = 1;

}  // namespace

void FormAddBatch::FillDateGrid() {
  if (datDateFrom.IsEmpty() || datDateTo.IsEmpty()) return;
  const tools::BusyGrid busy(module_, flxDate.getFlex());
  if (datDateFrom.Text() <= datDateTo.Text()) {
    flxDate.getFlex().SetRows(1);
    for (datTemp.SetText(datDateFrom.Text()); datTemp.Text() <= datDateTo.Text();) {
      AddDateRow();
      // The calendar's last day has no next one.
      if (platform::ResumeNext([this] { datTemp.StepDays(1); }) != 0) break;
    }
  }
}

void FormAddBatch::AddDateRow() {
  controls::FlexGrid& grid = flxDate.getFlex();
  grid.AddItem("");
  const int row = grid.Rows() - 1;
  grid.SetTextMatrix(row, 0, datTemp.Text());
  grid.SetTextMatrix(row, kWeekdayCol, datTemp.WeekdayName());
  grid.SetTextMatrix(row, 2, calendar::MonthName(datTemp.MonthNumber()));
}

void FormAddBatch::SetUpWeekdays() {
  int weekday = 0;
  for (controls::Button& button : cmdWeekday) {
    const std::string_view name = calendar::WeekdayName(weekday++);
    button.SetToolTip("همه " + std::string(name) + " ها");
    button.onClick = [this, name] { WeekdayClick(name); };
  }
  flxDate.getFlex().rowTextColour = [this](int row) {
    const bool friday = flxDate.getFlex().TextMatrix(row, kWeekdayCol) == calendar::WeekdayName(6);
    return friday ? controls::palette::kHoliday : 0;
  };
}

/// Marks all days of that name, or where all are marked unmarks them.
void FormAddBatch::WeekdayClick(std::string_view weekday) {
  std::vector<std::int32_t> days;
  std::vector<std::int32_t> unmarked;
  const tools::RedrawOff redrawOff(flxDate.getFlex());
  for (int row = 1; row < flxDate.getFlex().Rows(); ++row) {
    if (flxDate.getFlex().TextMatrix(row, kWeekdayCol) != weekday) continue;
    days.push_back(row);
    if (!flxDate.IsSelected(row)) unmarked.push_back(row);
  }
  flxDate.SetMarks(unmarked.empty() ? days : unmarked, !unmarked.empty());
}

std::string FormAddBatch::GetSelectedDates() {
  return PickedIds(flxDate, [this](int row) {
    return text::Replace(flxDate.getFlex().TextMatrix(row, 0), "/", "");
  });
}

}  // namespace batch
