// Where the controls of the batch form stand, twips, and how they follow the form's size. The form
// reads from right to left: promoter and regions at the right, days at the left, customers below.

#include <algorithm>

#include "batch/FormAddBatch.h"
#include "tools/Placing.h"

namespace batch {

namespace {

using controls::Twips;
using tools::kFieldHeight;
using tools::PlaceField;

constexpr Twips kWidth = 15600;
constexpr Twips kHeight = 9600;
constexpr Twips kMargin = 150;
// What a desk of 853 x 480 has room for: 1280 x 720 at one and a half times the size.
constexpr Twips kLeastWidth = 12300;
constexpr Twips kLeastHeight = 6450;
constexpr Twips kBesideGap = 120;

}  // namespace

void FormAddBatch::PlaceControls() {
  Resize(kWidth, kHeight);
  SetMinimumSize(kLeastWidth, kLeastHeight);

  const Twips right = kWidth - kMargin;
  PlaceField(lblPromoter, sltPromoter,
             {.right = right, .top = 150, .labelWidth = 900, .fieldWidth = 4500});
  const Twips next = PlaceField(lblDateFrom, datDateFrom,
                                {.right = 5550, .top = 150, .labelWidth = 660, .fieldWidth = 1740});
  PlaceField(lblDateTo, datDateTo,
             {.right = next, .top = 150, .labelWidth = 660, .fieldWidth = 1740});
  datTemp.SetVisible(false);

  const Twips gridTop = 660;
  const Twips gridHeight = 2850;
  flxRegion.Move(11250, gridTop, right - 11250, gridHeight);
  flxPath.Move(5700, gridTop, 5430, gridHeight);
  flxDate.Move(kMargin, gridTop, 5430, gridHeight);

  frameFilter.Move(kMargin, 3630, kWidth - 2 * kMargin, 1380);
  PlaceFilters();

  flxCustomer.Move(kMargin, 5130, kWidth - 2 * kMargin, 3840);
  PlaceField(lblNotes, txtNotes,
             {.right = right, .top = 9075, .labelWidth = 600, .fieldWidth = 11550});
  cmdAdd.Move(1560, 9075, 1320, kFieldHeight);
  cmdCancel.Move(kMargin, 9075, 1320, kFieldHeight);
  // No default button: Enter commits only on the one that does.
  frameFilter.SetDefaultButton(&cmdSearch);
  SetCancelButton(&cmdCancel);
  SetFirstFocus(&sltPromoter);

  tools::SetTabOrder({&sltPromoter, &flxRegion, &flxPath, &datDateFrom, &datDateTo, &flxDate,
                      &txtCodeFrom, &txtCodeTo, &txtName, &cmdSearch, &sltCustomer, &sltBranch,
                      &sltWorkActivity, &cmdNewsearch, &flxCustomer, &txtNotes, &cmdAdd,
                      &cmdCancel});
  tools::SetAccessKeys({{lblPromoter, "ب"},
                        {lblDateFrom, "ز"},
                        {lblDateTo, "ا"},
                        {lblCodeFrom, "ك"},
                        {lblCodeTo, "د"},
                        {lblName, "ن"},
                        {lblCustomer, "م"},
                        {lblBranch, "ع"},
                        {lblWorkActivity, "و"},
                        {cmdSearch, "ت"},
                        {cmdNewsearch, "ج"},
                        {lblNotes, "ش"},
                        {cmdAdd, "ث"},
                        {cmdCancel, "ف"}});
  flxRegion.SetAccessibleName("مناطق");
  flxPath.SetAccessibleName("مسيرها");
  flxDate.SetAccessibleName("روزها");
  flxCustomer.SetAccessibleName("مشتريان");
  lblCount.SetLook(controls::Label::Look::kStrong);
  PlaceBesideButtons();
  SetResizeRules();
}

/// At the left of the small buttons that a list has under it.
void FormAddBatch::PlaceBesideButtons() {
  const controls::Button& day = flxDate.cmdExcel;
  Twips right = day.Left() - kBesideGap;
  for (controls::Button& button : cmdWeekday) {
    button.Move(right - day.Width(), day.Top(), day.Width(), day.Height());
    right = button.Left();
  }
  const controls::Button& customer = flxCustomer.cmdExcel;
  lblCount.Move(0, customer.Top(), std::max(0.0, customer.Left() - kBesideGap), customer.Height());
}

void FormAddBatch::PlaceFilters() {
  const Twips right = frameFilter.Width() - 150;
  const auto placeRow = [right](Twips top, auto&&... pairs) {
    Twips edge = right;
    ((edge = PlaceField(pairs.label, pairs.field,
                        {.right = edge,
                         .top = top,
                         .labelWidth = pairs.labelWidth,
                         .fieldWidth = pairs.fieldWidth})),
     ...);
  };
  struct Pair {
    controls::Label& label;
    controls::Control& field;
    Twips labelWidth;
    Twips fieldWidth;
  };
  placeRow(330, Pair{lblCodeFrom, txtCodeFrom, 700, 1560}, Pair{lblCodeTo, txtCodeTo, 525, 1560},
           Pair{lblName, txtName, 600, 7745});
  placeRow(825, Pair{lblCustomer, sltCustomer, 700, 3915}, Pair{lblBranch, sltBranch, 600, 3180},
           Pair{lblWorkActivity, sltWorkActivity, 975, 3320});
  cmdSearch.Move(150, 330, 1500, kFieldHeight);
  cmdNewsearch.Move(150, 825, 1500, kFieldHeight);
}

void FormAddBatch::SetResizeRules() {
  // The upper grids keep their height; the customers take what is won in height, all in width.
  resizeRules_.Add(lblPromoter, {.left = 1});
  resizeRules_.Add(sltPromoter, {.left = 1});
  resizeRules_.Add(flxRegion, {.width = 0.4, .left = 0.6, .height = 0.25});
  resizeRules_.Add(flxPath, {.width = 0.4, .left = 0.2, .height = 0.25});
  resizeRules_.Add(flxDate, {.width = 0.2, .height = 0.25});
  resizeRules_.Add(lblDateFrom, {.left = 0.2});
  resizeRules_.Add(datDateFrom, {.width = 0.06, .left = 0.14});
  resizeRules_.Add(lblDateTo, {.left = 0.14});
  resizeRules_.Add(datDateTo, {.width = 0.06, .left = 0.08});
  resizeRules_.Add(frameFilter, {.width = 1, .top = 0.25});
  for (controls::Control* control : frameFilter.Controls()) {
    if (control != &cmdSearch && control != &cmdNewsearch && control != &txtName &&
        control != &sltBranch && control != &lblWorkActivity && control != &sltWorkActivity) {
      resizeRules_.Add(*control, {.left = 1});
    }
  }
  // The long fields fill the room between the others and the buttons.
  resizeRules_.Add(txtName, {.width = 1});
  resizeRules_.Add(sltBranch, {.width = 0.5, .left = 0.5});
  resizeRules_.Add(lblWorkActivity, {.left = 0.5});
  resizeRules_.Add(sltWorkActivity, {.width = 0.5});
  resizeRules_.Add(flxCustomer, {.width = 1, .height = 0.75, .top = 0.25});
  resizeRules_.Add(lblNotes, {.left = 1, .top = 1});
  resizeRules_.Add(txtNotes, {.width = 1, .top = 1});
  resizeRules_.Add(cmdAdd, {.top = 1});
  resizeRules_.Add(cmdCancel, {.top = 1});
}

void FormAddBatch::SetGridColumns() {
  // Regions, paths and days have no row numbers: the mark begins at their first column.
  for (tools::comFlex* list : {&flxRegion, &flxPath, &flxDate}) {
    list->Flex.SetFixedCols(0);
    list->Flex.SetRows(1);
    list->Flex.SetCols(list == &flxDate ? 3 : 2);
  }
  for (int col = 0; col < 3; ++col) flxDate.Flex.SetColWidth(col, 1650);
  flxRegion.Flex.SetColWidth(1, 0);
  flxPath.Flex.SetColWidth(1, 0);
  for (tools::comFlex* list : {&flxRegion, &flxPath, &flxDate}) list->Flex.SetStretchCol(0);

  // Number, code, name, address, mobile, two telephones, path, region, activity; the id is hidden.
  static constexpr Twips kWidths[kCustomerCols] = {900,  1080, 2400, 2460, 1440, 1440,
                                                   1440, 1500, 900,  1350, 0};
  flxCustomer.Flex.SetRows(1);
  flxCustomer.Flex.SetCols(kCustomerCols);
  for (int col = 0; col < kCustomerCols; ++col) flxCustomer.Flex.SetColWidth(col, kWidths[col]);
  flxCustomer.Flex.SetStretchCol(3);
  SetCustomerHeadings();
}

void FormAddBatch::SetCustomerHeadings() {
  static constexpr std::string_view kHeadings[] = {"رديف",  "کد",    "نام",  "آدرس",  "موبايل",
                                                   "تلفن1", "تلفن2", "مسير", "منطقه", "نوع فعاليت"};
  int col = 0;
  for (const std::string_view heading : kHeadings)
    flxCustomer.Flex.SetTextMatrix(0, col++, heading);
}

}  // namespace batch
