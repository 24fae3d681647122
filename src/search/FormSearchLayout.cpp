// Where the controls of the search stand, twips, and how they follow the form's size.

#include <array>
#include <vector>

#include "search/FormSearch.h"
#include "tools/Placing.h"

namespace search {

namespace {

using controls::Twips;

// All columns stand beside each other, with a scroll bar; on a smaller desk they scroll.
constexpr Twips kWidth = 20600;
constexpr Twips kHeight = 9600;
constexpr Twips kMargin = 150;
// What a desk of 853 x 480 has room for.
constexpr Twips kLeastWidth = 12300;
constexpr Twips kLeastHeight = 6450;
// Of the three columns of fields; the widest text of each.
constexpr std::array<Twips, 3> kLabels{1350, 780, 975};

struct Column {
  std::string_view header;
  Twips width;
};
constexpr std::array<Column, 12> kColumns{{{"رديف", 800},
                                           {"شماره رايانه اي", 800},
                                           {"بازارياب", 2000},
                                           {"تاريخ ويزيت", 1200},
                                           {"كد مشتري", 2000},
                                           {"نام مشتري", 2000},
                                           {"منطقه", 2000},
                                           {"مسير", 2000},
                                           {"شرح", 2000},
                                           {"تاريخ ايجاد", 1200},
                                           {"مدير برنامه", 2000},
                                           {"شعبه", 2000}}};

}  // namespace

void FormSearch::PlaceControls() {
  Resize(kWidth, kHeight);
  SetMinimumSize(kLeastWidth, kLeastHeight);
  frameFilter.Move(kMargin, kMargin, kWidth - 2 * kMargin, 2310);
  PlaceFilters();

  flxSearch.Move(kMargin, 2610, kWidth - 2 * kMargin, kHeight - 2610 - 720);
  int place = 0;
  for (controls::Button* button :
       {&cmdSearch, &cmdNewsearch, &cmdExcel, &cmdSentToText, &cmdExit}) {
    const Twips width = 1560;
    ++place;
    button->Move(kWidth - kMargin + 60 - (width + 60) * place, kHeight - 570, width, 420);
    resizeRules_.Add(*button, {.left = 1, .top = 1});
  }
  SetDefaultButton(&cmdSearch);
  SetCancelButton(&cmdExit);
  SetFirstFocus(&txtID);
  tools::SetTabOrder({&txtID, &sltProgram, &sltCreator, &datCreateDate, &sltBranch, &sltSupervisor,
                      &datVisit, &sltPromoter, &sltCustomer, &txtDescription, &flxSearch,
                      &cmdSearch, &cmdNewsearch, &cmdExcel, &cmdSentToText, &cmdExit});
  tools::SetAccessKeys({{lblID, "ر"},
                        {lblProgram, "ن"},
                        {lblCreator, "ك"},
                        {lblCreateDate, "ا"},
                        {lblBranch, "ع"},
                        {lblSupervisor, "د"},
                        {lblVisit, "و"},
                        {lblPromoter, "ب"},
                        {lblCustomer, "م"},
                        {lblDescription, "ش"},
                        {cmdSearch, "ت"},
                        {cmdNewsearch, "ج"},
                        {cmdExcel, "ل"},
                        {cmdSentToText, "ف"},
                        {cmdExit, "خ"}});
  flxSearch.SetAccessibleName("نتيجه جستجو");
  resizeRules_.Add(flxSearch, {.width = 1, .height = 1});
  resizeRules_.Start(kWidth, kHeight);
}

void FormSearch::PlaceFilters() {
  const Twips right = frameFilter.Width() - 180;
  const Twips third = right / 3;
  const struct {
    controls::Label& label;
    controls::Control& field;
  } fields[] = {{lblID, txtID},
                {lblProgram, sltProgram},
                {lblCreator, sltCreator},
                {lblCreateDate, datCreateDate},
                {lblBranch, sltBranch},
                {lblSupervisor, sltSupervisor},
                {lblVisit, datVisit},
                {lblPromoter, sltPromoter},
                {lblCustomer, sltCustomer}};
  int place = 0;
  for (const auto& [label, field] : fields) {
    const int col = place % 3;
    const int row = place / 3;
    const Twips labelWidth = kLabels.at(static_cast<std::size_t>(col));
    tools::PlaceField(label, field,
                      {.right = right - third * col,
                       .top = 345.0 + 480 * row,
                       .labelWidth = labelWidth,
                       .fieldWidth = third - labelWidth - 270});
    // Every column of fields takes a third of the form's change of width.
    resizeRules_.Add(label, {.left = (3 - col) / 3.0});
    resizeRules_.Add(field, {.width = 1 / 3.0, .left = (2 - col) / 3.0});
    ++place;
  }
  tools::PlaceField(lblDescription, txtDescription,
                    {.right = right,
                     .top = 1785,
                     .labelWidth = kLabels[0],
                     .fieldWidth = 3 * third - kLabels[0] - 270});
  resizeRules_.Add(lblDescription, {.left = 1});
  resizeRules_.Add(txtDescription, {.width = 1});
  resizeRules_.Add(frameFilter, {.width = 1});
}

void FormSearch::SetUpGrid() {
  flxSearch.SetEmptyText("برنامه اي با اين مشخصات يافت نشد");
  flxSearch.SetCols(static_cast<int>(kColumns.size()));
  // A result without rows has its header row alone, which is fixed already.
  if (flxSearch.FixedRows() != 1) flxSearch.SetFixedRows(1);
  flxSearch.SetFixedCols(1);
  int col = 0;
  std::vector<int> sharing;
  for (const Column& column : kColumns) {
    flxSearch.SetTextMatrix(0, col, column.header);
    flxSearch.SetColWidth(col, column.width);
    flxSearch.SetColAlignment(col, controls::FlexGrid::Alignment::kCentreCentre);
    // A date needs the same room in every window.
    if (column.header.find("تاريخ") == std::string_view::npos) sharing.push_back(col);
    ++col;
  }
  spareWidth_.Start(sharing);
}

}  // namespace search
