// Where the controls of the batch form stand, twips, and how they follow the form's size. The form
// reads from right to left: promoter and regions at the right, days at the left, customers below.

#include "batch/FormAddBatch.h"

namespace batch {

namespace {

using controls::Twips;

constexpr Twips kWidth = 14400;
constexpr Twips kHeight = 9600;
constexpr Twips kMargin = 150;
constexpr Twips kField = 375;

/// Places a label and its field side by side, the label at the right, its right edge at `right`.
void PlacePair(controls::Label& label, Twips labelWidth, controls::Control& field, Twips fieldWidth,
               Twips right, Twips top) {
  label.Move(right - labelWidth, top + 60, labelWidth, kField - 90);
  field.Move(right - labelWidth - 90 - fieldWidth, top, fieldWidth, kField);
}

}  // namespace

void FormAddBatch::PlaceControls() {
  Resize(kWidth, kHeight);
  SetMinimumSize(kWidth, 8400);

  const Twips right = kWidth - kMargin;
  PlacePair(lblPromoter, 900, sltPromoter, 4300, right, 150);
  PlacePair(lblDateFrom, 780, datDateFrom, 1650, 5400, 150);
  PlacePair(lblDateTo, 780, datDateTo, 1650, 2820, 150);
  datTemp.SetVisible(false);

  const Twips gridTop = 660;
  const Twips gridHeight = 2850;
  flxRegion.Move(10620, gridTop, right - 10620, gridHeight);
  flxPath.Move(5520, gridTop, 4980, gridHeight);
  flxDate.Move(kMargin, gridTop, 5250, gridHeight);

  frameFilter.Move(kMargin, 3630, kWidth - 2 * kMargin, 1320);
  PlaceFilters();

  flxCustomer.Move(kMargin, 5070, kWidth - 2 * kMargin, 3900);
  PlacePair(lblNotes, 600, txtNotes, 10300, right, 9090);
  cmdAdd.Move(1560, 9090, 1320, kField);
  cmdCancel.Move(kMargin, 9090, 1320, kField);

  SetDefaultButton(nullptr);
  SetCancelButton(&cmdCancel);

  int tab = 0;
  for (controls::Control* control : std::initializer_list<controls::Control*>{
           &sltPromoter, &flxRegion.Flex, &flxPath.Flex, &datDateFrom, &datDateTo, &flxDate.Flex,
           &txtCodeFrom, &txtCodeTo, &txtName, &cmdSearch, &sltCustomer, &sltBranch,
           &sltWorkActivity, &cmdNewsearch, &flxCustomer.Flex, &txtNotes, &cmdAdd, &cmdCancel}) {
    control->SetTabIndex(tab++);
  }
  SetResizeRules();
}

void FormAddBatch::PlaceFilters() {
  const Twips right = frameFilter.Width() - 150;
  const Twips first = 330;
  const Twips second = 810;
  PlacePair(lblCodeFrom, 700, txtCodeFrom, 1500, right, first);
  PlacePair(lblCodeTo, 600, txtCodeTo, 1500, right - 2440, first);
  PlacePair(lblName, 1080, txtName, 5000, right - 4780, first);
  PlacePair(lblCustomer, 700, sltCustomer, 3790, right, second);
  PlacePair(lblBranch, 600, sltBranch, 2000, right - 4780 + 480, second);
  PlacePair(lblWorkActivity, 1080, sltWorkActivity, 2460, right - 4780 - 2540, second);
  cmdSearch.Move(150, first, 1500, kField);
  cmdNewsearch.Move(150, second, 1500, kField);
}

void FormAddBatch::SetResizeRules() {
  // The upper grids keep their height; the customers take what is won in height, all in width.
  resizeRules_.Add(lblPromoter, {.left = 1});
  resizeRules_.Add(sltPromoter, {.left = 1});
  resizeRules_.Add(flxRegion, {.width = 0.3, .left = 0.7, .height = 0.25});
  resizeRules_.Add(flxPath, {.width = 0.4, .left = 0.3, .height = 0.25});
  resizeRules_.Add(flxDate, {.width = 0.3, .height = 0.25});
  for (controls::Control* control : std::initializer_list<controls::Control*>{
           &lblDateFrom, &datDateFrom, &lblDateTo, &datDateTo}) {
    resizeRules_.Add(*control, {.left = 0.3});
  }
  resizeRules_.Add(frameFilter, {.width = 1, .top = 0.25});
  for (controls::Control* control : frameFilter.Controls()) {
    if (control != &cmdSearch && control != &cmdNewsearch) resizeRules_.Add(*control, {.left = 1});
  }
  resizeRules_.Add(flxCustomer, {.width = 1, .height = 0.75, .top = 0.25});
  resizeRules_.Add(lblNotes, {.left = 1, .top = 1});
  resizeRules_.Add(txtNotes, {.width = 1, .top = 1});
  resizeRules_.Add(cmdAdd, {.top = 1});
  resizeRules_.Add(cmdCancel, {.top = 1});
}

void FormAddBatch::SetGridColumns() {
  // Regions, paths and days have no row numbers: the mark begins at their first column.
  for (tools::comFlex* list : {&flxRegion, &flxPath}) {
    list->Flex.SetFixedCols(0);
    list->Flex.SetRows(1);
    list->Flex.SetCols(2);
    list->Flex.SetColWidth(1, 0);
  }
  flxRegion.Flex.SetColWidth(0, 3200);
  flxPath.Flex.SetColWidth(0, 4500);

  flxDate.Flex.SetFixedCols(0);
  flxDate.Flex.SetRows(1);
  flxDate.Flex.SetCols(3);
  flxDate.Flex.SetColWidth(0, 1700);
  flxDate.Flex.SetColWidth(1, 1600);
  flxDate.Flex.SetColWidth(2, 1600);
  for (int col = 0; col < 3; ++col) {
    flxDate.Flex.SetColAlignment(col, controls::FlexGrid::Alignment::kCentreCentre);
  }

  flxCustomer.Flex.SetRows(1);
  SetCustomerColumns();
  SetCustomerHeadings();
}

void FormAddBatch::SetCustomerColumns() {
  controls::FlexGrid& grid = flxCustomer.Flex;
  static constexpr Twips kWidths[] = {700, 1100, 2300, 3300, 1300, 1300, 1300, 1500, 1300, 1500, 0};
  grid.SetCols(static_cast<int>(std::size(kWidths)));
  int col = 0;
  for (const Twips width : kWidths) grid.SetColWidth(col++, width);
}

void FormAddBatch::SetCustomerHeadings() {
  static constexpr std::string_view kHeadings[] = {"رديف",  "کد",    "نام",  "آدرس",  "موبايل",
                                                   "تلفن1", "تلفن2", "مسير", "منطقه", "نوع فعاليت"};
  int col = 0;
  for (const std::string_view heading : kHeadings)
    flxCustomer.Flex.SetTextMatrix(0, col++, heading);
}

}  // namespace batch
