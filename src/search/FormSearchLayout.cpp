// Where the controls of the search stand, twips, and how they follow the form's size.

#include <array>

#include "search/FormSearch.h"

namespace search {

namespace {

using controls::Twips;

// All columns stand beside each other, with a scroll bar; on a smaller desk they scroll.
constexpr Twips kWidth = 20600;
constexpr Twips kHeight = 9600;
// What a desk of 853 x 480 has room for.
constexpr Twips kLeastWidth = 12300;
constexpr Twips kLeastHeight = 6450;

constexpr Twips kThird = 20120.0 / 3;                    // of the room for fields, from the right
constexpr std::array<Twips, 3> kLabels{1350, 780, 975};  // the widest text of each third

consteval tools::Place Field(int third, int row) {
  return {kThird * (2 - third) + 180, 345.0 + 480 * row,
          kThird - kLabels.at(static_cast<std::size_t>(third)) - 270};
}

consteval tools::Growth Third(int third) {
  return {.width = 1 / 3.0, .left = (2 - third) / 3.0};
}

// A date needs the same room in every window.
constexpr tools::Column kColumns[] = {
    {"رديف", 800, {}, true},   {"شماره رايانه اي", 800, {}, true}, {"بازارياب", 2000, {}, true},
    {"تاريخ ويزيت", 1200},     {"كد مشتري", 2000, {}, true},       {"نام مشتري", 2000, {}, true},
    {"منطقه", 2000, {}, true}, {"مسير", 2000, {}, true},           {"شرح", 2000, {}, true},
    {"تاريخ ايجاد", 1200},     {"مدير برنامه", 2000, {}, true},    {"شعبه", 2000, {}, true},
};

}  // namespace

void FormSearch::PlaceControls() {
  Resize(kWidth, kHeight);
  SetMinimumSize(kLeastWidth, kLeastHeight);
  constexpr tools::Growth kCorner{.left = 1, .top = 1};
  // clang-format off
  layout_.Set({
      {frameFilter,    {  150,  150, 20300, 2310}, {1}},
      {txtID,          Field(0, 0),                Third(0),  "ر", {lblID, kLabels[0]}},
      {sltProgram,     Field(1, 0),                Third(1),  "ن", {lblProgram, kLabels[1]}},
      {sltCreator,     Field(2, 0),                Third(2),  "ك", {lblCreator, kLabels[2]}},
      {datCreateDate,  Field(0, 1),                Third(0),  "ا", {lblCreateDate, kLabels[0]}},
      {sltBranch,      Field(1, 1),                Third(1),  "ع", {lblBranch, kLabels[1]}},
      {sltSupervisor,  Field(2, 1),                Third(2),  "د", {lblSupervisor, kLabels[2]}},
      {datVisit,       Field(0, 2),                Third(0),  "و", {lblVisit, kLabels[0]}},
      {sltPromoter,    Field(1, 2),                Third(1),  "ب", {lblPromoter, kLabels[1]}},
      {sltCustomer,    Field(2, 2),                Third(2),  "م", {lblCustomer, kLabels[2]}},
      {txtDescription, {  180, 1785, 18500},       {1},       "ش", {lblDescription, kLabels[0]}},
      {flxSearch,      {  150, 2610, 20300, 6270}, {1, 0, 1}, {}, "نتيجه جستجو"},
      {cmdSearch,      {18890, 9030,  1560,  420}, kCorner,   "ت"},
      {cmdNewsearch,   {17270, 9030,  1560,  420}, kCorner,   "ج"},
      {cmdExcel,       {15650, 9030,  1560,  420}, kCorner,   "ل"},
      {cmdSentToText,  {14030, 9030,  1560,  420}, kCorner,   "ف"},
      {cmdExit,        {12410, 9030,  1560,  420}, kCorner,   "خ"},
  });
  // clang-format on
  SetDefaultButton(&cmdSearch);
  SetCancelButton(&cmdExit);
  SetFirstFocus(&txtID);
}

void FormSearch::SetUpGrid() {
  flxSearch.SetEmptyText("برنامه اي با اين مشخصات يافت نشد");
  tools::SetColumns(flxSearch, kColumns, controls::FlexGrid::Alignment::kCentreCentre);
  spareWidth_.Start(kColumns);
}

}  // namespace search
