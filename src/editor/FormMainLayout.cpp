// Where the controls of the editor stand, twips, and how they follow the form's size. The form
// reads from right to left: the first button and the first field stand at the right.

#include <array>
#include <initializer_list>

#include "editor/FormMain.h"
#include "tools/Placing.h"

namespace editor {

namespace {

using controls::Twips;

constexpr Twips kWidth = 15300;
constexpr Twips kHeight = 9300;
constexpr Twips kMargin = 150;
// What a desk of 853 x 480 has room for.
constexpr Twips kLeastWidth = 12300;
constexpr Twips kLeastHeight = 6450;
constexpr Twips kButtonHeight = 420;
constexpr Twips kGap = 60;
constexpr Twips kLabel = 1350;      // of the fields at the right
constexpr Twips kLeftLabel = 1125;  // of those at the left

}  // namespace

void FormMain::PlaceControls() {
  Resize(kWidth, kHeight);
  SetMinimumSize(kLeastWidth, kLeastHeight);

  // The two long captions fit at the least width too.
  const auto longer = [this](const controls::Button* button) -> Twips {
    if (button == &cmdBackToTemp) return 525;
    return button == &cmdViewAccountDoc ? 255 : 0;
  };
  const Twips share = (kWidth - 2 * kMargin + kGap - 525 - 255) / 10;
  Twips edge = kWidth - kMargin + kGap;
  int place = 0;
  for (controls::Button* button :
       {&cmdNew, &cmdEdit, &cmdDelete, &cmdTempSave, &cmdFinalSave, &cmdPreview, &cmdViewAccountDoc,
        &cmdBackToTemp, &cmdCancel, &cmdSearch}) {
    ++place;
    edge -= share + longer(button);
    button->Move(edge, kMargin, share + longer(button) - kGap, kButtonHeight);
    // Each button takes a tenth of the form's change of width; those to the right push it along.
    resizeRules_.Add(*button, {.width = 0.1, .left = 0.1 * (10 - place)});
  }

  frameHeader.Move(kMargin, 690, kWidth - 2 * kMargin, 2280);
  PlaceHeader();
  datToday.SetVisible(false);

  flxDetail.Move(kMargin, 3090, kWidth - 2 * kMargin, kHeight - 3090 - 720);
  place = 0;
  for (controls::Button* button :
       {&cmdAddBatch, &cmdSelectAll, &cmdSelectInverse, &cmdSelectNone, &cmdDeleteSelected}) {
    const Twips width = 1560;
    ++place;
    button->Move(kWidth - kMargin + kGap - (width + kGap) * place, kHeight - 570, width,
                 kButtonHeight);
    resizeRules_.Add(*button, {.left = 1, .top = 1});
  }
  lblAdded.Move(kMargin, kHeight - 645, cmdDeleteSelected.Left() - 2 * kMargin, 570);
  resizeRules_.Add(lblAdded, {.width = 1, .top = 1});
  SetCancelButton(&cmdCancel);
  SetFirstFocus(&cmdNew);
  SetTabOrder();
  SetResizeRules();
}

void FormMain::PlaceHeader() {
  const Twips right = frameHeader.Width() - 180;
  const Twips half = frameHeader.Width() / 2 - 90;
  const Twips narrow = 2100;
  const Twips wide = half - kLabel - 270;
  const Twips leftWide = half - kLeftLabel - 270;
  const struct {
    controls::Label& label;
    controls::Control& field;
    Twips right;
    Twips top;
    Twips width;
  } fields[] = {
      {lblID, txtID, right, 360, narrow},
      {lblCode, txtCode, half, 360, narrow},
      {lblCreator, sltCreator, right, 825, wide},
      {lblCreateDate, datCreateDate, half, 825, narrow},
      {lblSupervisor, sltSupervisor, right, 1290, wide},
      {lblBranch, sltBranch, half, 1290, leftWide},
      {lblDescription, txtDescription, right, 1755, right - kLabel - 270},
  };
  for (const auto& place : fields) {
    tools::PlaceField(place.label, place.field,
                      {.right = place.right,
                       .top = place.top,
                       .labelWidth = place.right == right ? kLabel : kLeftLabel,
                       .fieldWidth = place.width});
  }
}

void FormMain::SetTabOrder() {
  tools::SetTabOrder({&sltSupervisor, &sltBranch, &txtDescription, &flxDetail, &cmdAddBatch,
                      &cmdSelectAll, &cmdSelectInverse, &cmdSelectNone, &cmdDeleteSelected, &cmdNew,
                      &cmdEdit, &cmdDelete, &cmdTempSave, &cmdFinalSave, &cmdPreview,
                      &cmdViewAccountDoc, &cmdBackToTemp, &cmdCancel, &cmdSearch});
  tools::SetAccessKeys({{cmdNew, "ج"},
                        {cmdEdit, "ص"},
                        {cmdDelete, "ح"},
                        {cmdTempSave, "م"},
                        {cmdFinalSave, "ن"},
                        {cmdPreview, "پ"},
                        {cmdViewAccountDoc, "س"},
                        {cmdBackToTemp, "ب"},
                        {cmdCancel, "ف"},
                        {cmdSearch, "ت"},
                        {lblSupervisor, "د"},
                        {lblBranch, "ع"},
                        {lblDescription, "ش"},
                        {cmdAddBatch, "و"},
                        {cmdSelectAll, "ه"},
                        {cmdSelectInverse, "ك"},
                        {cmdSelectNone, "غ"},
                        {cmdDeleteSelected, "ل"}});
  flxDetail.SetAccessibleName("ويزيت ها");
}

void FormMain::SetResizeRules() {
  resizeRules_.Add(frameHeader, {.width = 1});
  for (controls::Control* control : std::initializer_list<controls::Control*>{
           &lblID, &lblCreator, &lblSupervisor, &lblDescription, &txtID}) {
    resizeRules_.Add(*control, {.left = 1});
  }
  for (controls::Control* control :
       std::initializer_list<controls::Control*>{&sltCreator, &sltSupervisor}) {
    resizeRules_.Add(*control, {.width = 0.5, .left = 0.5});
  }
  for (controls::Control* control : std::initializer_list<controls::Control*>{
           &lblCode, &lblCreateDate, &lblBranch, &txtCode, &datCreateDate}) {
    resizeRules_.Add(*control, {.left = 0.5});
  }
  resizeRules_.Add(sltBranch, {.width = 0.5});
  resizeRules_.Add(txtDescription, {.width = 1});
  resizeRules_.Add(flxDetail, {.width = 1, .height = 1});
  resizeRules_.Start(kWidth, kHeight);
}

void FormMain::SetDetailColumns() {
  static constexpr struct {
    std::string_view caption;
    Twips width;
  } kColumns[] = {{"رديف", 800},   {"PromoterID", 0}, {"بازارياب", 3000},   {"", 0},
                  {"تاريخ", 1500}, {"شرح", 2000},     {"تعداد مشتري", 1500}};
  flxDetail.SetCols(static_cast<int>(std::size(kColumns)));
  int col = 0;
  for (const auto& column : kColumns) {
    flxDetail.SetTextMatrix(0, col, column.caption);
    flxDetail.SetColWidth(col, column.width);
    flxDetail.SetColAlignment(col, controls::FlexGrid::Alignment::kCentreCentre);
    ++col;
  }
  flxDetail.SetStretchCol(5);
}

}  // namespace editor
