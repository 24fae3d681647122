// Where the controls of the batch form stand, twips, and how they follow the form's size. The form
// reads from right to left: promoter and regions at the right, days at the left, customers below.

#include <algorithm>

#include "batch/Columns.h"
#include "batch/FormAddBatch.h"

namespace batch {

namespace {

using controls::Twips;

// What a desk of 853 x 480 has room for: 1280 x 720 at one and a half times the size.
constexpr Twips kLeastWidth = 12300;
constexpr Twips kLeastHeight = 6450;
constexpr Twips kBesideGap = 120;

}  // namespace

void FormAddBatch::PlaceControls() {
  Resize(15600, 9600);
  SetMinimumSize(kLeastWidth, kLeastHeight);
  // The upper lists take a quarter of what is won in height, the customers the rest; the long
  // fields of the filters fill the room between the others and the buttons.
  // clang-format off
  layout_.Set({
      // control        left   top  width  height  grows: width, left, height, top
      {sltPromoter,     { 9960,  150,  4500},       {0, 1},             "ب", {lblPromoter, 900}},
      {flxRegion,       {11250,  660,  4200, 2850}, {0.4, 0.6, 0.25},   {}, "مناطق"},
      {flxPath,         { 5700,  660,  5430, 2850}, {0.4, 0.2, 0.25},   {}, "مسيرها"},
      {datDateFrom,     { 3060,  150,  1740},       {0.06, 0.14},       "ز", {lblDateFrom, 660}},
      {datDateTo,       {  390,  150,  1740},       {0.06, 0.08},       "ا", {lblDateTo, 660}},
      {flxDate,         {  150,  660,  5430, 2850}, {0.2, 0, 0.25},     {}, "روزها"},
      {frameFilter,     {  150, 3630, 15300, 1380}, {1, 0, 0, 0.25}},
      {txtCodeFrom,     {12800,  330,  1560},       {0, 1},             "ك", {lblCodeFrom, 700}},
      {txtCodeTo,       {10445,  330,  1560},       {0, 1},             "د", {lblCodeTo, 525}},
      {txtName,         { 1830,  330,  7745},       {1},                "ن", {lblName, 600}},
      {cmdSearch,       {  150,  330,  1500},       {},                 "ت"},
      {sltCustomer,     {10445,  825,  3915},       {0, 1},             "م", {lblCustomer, 700}},
      {sltBranch,       { 6395,  825,  3180},       {0.5, 0.5},         "ع", {lblBranch, 600}},
      {sltWorkActivity, { 1830,  825,  3320},       {0.5},              "و", {lblWorkActivity, 975}},
      {cmdNewsearch,    {  150,  825,  1500},       {},                 "ج"},
      {flxCustomer,     {  150, 5130, 15300, 3840}, {1, 0, 0.75, 0.25}, {}, "مشتريان"},
      {txtNotes,        { 3210, 9075, 11550},       {1, 0, 0, 1},       "ش", {lblNotes, 600}},
      {cmdAdd,          { 1560, 9075,  1320},       {0, 0, 0, 1},       "ث"},
      {cmdCancel,       {  150, 9075,  1320},       {0, 0, 0, 1},       "ف"},
  });
  // clang-format on
  datTemp.SetVisible(false);
  lblCount.SetLook(controls::Label::Look::kStrong);
  // No default button: Enter commits only on the one that does.
  frameFilter.SetDefaultButton(&cmdSearch);
  SetCancelButton(&cmdCancel);
  SetFirstFocus(&sltPromoter);
  PlaceBesideButtons();

  // Regions, paths and days have no row numbers: the mark begins at their first column.
  for (tools::comFlex* list : {&flxRegion, &flxPath, &flxDate}) list->getFlex().SetFixedCols(0);
  for (tools::comFlex* list : {&flxRegion, &flxPath, &flxDate, &flxCustomer}) {
    list->getFlex().SetRows(1);
  }
  tools::SetColumns(flxRegion.getFlex(), kRegionColumns);
  tools::SetColumns(flxPath.getFlex(), kPathColumns);
  tools::SetColumns(flxDate.getFlex(), kDateColumns);
  tools::SetColumns(flxCustomer.getFlex(), kCustomerColumns);
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

}  // namespace batch
