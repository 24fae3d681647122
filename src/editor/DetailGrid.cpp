// What the user does on the grid of visit groups: mark, sort, reopen a group, delete groups.

#include <algorithm>

#include "editor/FormMain.h"
#include "platform/ResumeNext.h"
#include "text/Text.h"
#include "tools/BusyGrid.h"
#include "tools/Columns.h"

namespace editor {

namespace {

constexpr int kPromoterIdCol = 1;
constexpr int kFarsiDateCol = 4;
constexpr int kNotesCol = 5;

/// Removes a data row, also the last one, which a grid does not give away singly; whatever the grid
/// refuses is ignored.
void RemoveGridRow(controls::FlexGrid& grid, int row) {
  if (row < 1 || grid.Rows() <= 1) return;
  if (grid.Rows() > 2) {
    platform::ResumeNext([&] { grid.RemoveItem(row); });
  } else {
    platform::ResumeNext([&] { grid.SetRows(1); });
  }
}

}  // namespace

void FormMain::DetailClick() {
  const tools::RedrawOff redrawOff(flxDetail);
  if (marks_.SortByHeader()) tools::NumberRows(flxDetail);
}

void FormMain::DetailDblClick() {
  const int row = flxDetail.MouseRow();
  if (row < 1 || row > flxDetail.Rows() - 1) return;
  std::int32_t promoterId = host::NumericId(flxDetail.TextMatrix(row, kPromoterIdCol));
  std::string dates(flxDetail.TextMatrix(row, kFarsiDateCol));
  std::string customerIds;
  std::string notes(flxDetail.TextMatrix(row, kNotesCol));
  bool viewMode = !cmdAddBatch.Enabled();
  std::int32_t supervisor = sltSupervisor.SelectedID();
  InsertBatchDetail(promoterId, dates, customerIds, notes, viewMode, supervisor);
}

void FormMain::DeleteSelectedClick() {
  const controls::FlexGrid& grid = flxDetail;
  const auto within = [](int value, int lowest, int count) {
    return value >= lowest && value < count;
  };
  if (!within(grid.Row(), 1, grid.Rows()) || !within(grid.Col(), 0, grid.Cols()) ||
      !within(grid.RowSel(), 1, grid.Rows()) || !within(grid.ColSel(), 1, grid.Cols())) {
    module_.ShowMessage("اشکال", "قبلا بايد از ليست بالا تعدادي را براي حذف انتخاب کرده باشيد.");
    return;
  }
  if (module_.AskQuestion("هشدار", "آيا نسبت به عمل حذف مطمئن هستيد؟") == host::kNo) return;

  const int first = std::min(grid.Row(), grid.RowSel());
  const int last = std::max(grid.Row(), grid.RowSel());
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  for (int row = first; row <= last; ++row) {
    // The row at `first` goes after every delete while `row` advances, so the later rows of a block
    // are read after they have shifted up. The suite's people know it so: rows that are read in
    // another order would take other visits away.
    const std::int32_t promoterId = host::NumericId(grid.TextMatrix(row, kPromoterIdCol));
    const std::string farsiDate(grid.TextMatrix(row, kFarsiDateCol));
    sqlCommon.Run(std::string("delete tblDistributionPromoterProgramDetail ") +
                  " where ProgramID=" + std::to_string(ProgramID()) + " and PromoterID=" +
                  std::to_string(promoterId) + " and FarsiVisitDate like '" + farsiDate + "'");
    RemoveGridRow(flxDetail, first);
  }
  LoadDetails(ProgramID());
}

}  // namespace editor
