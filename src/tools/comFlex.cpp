#include "tools/comFlex.h"

#include <algorithm>
#include <utility>

#include "tools/BusyGrid.h"
#include "tools/CopyToExcel.h"
#include "tools/RowMark.h"

namespace tools {

namespace {

constexpr controls::Twips kButtonWidth = 420;
constexpr controls::Twips kButtonHeight = 330;

}  // namespace

comFlex::comFlex(controls::Container& parent, std::string name, host::modMain& module)
    : Frame(parent, std::move(name), {}, Border::kNone),
      module_(module),
      history_(module, Flex, [this](int row, bool marked) { Mark(row, marked); }) {
  // The captions are bare signs.
  cmdSelectAll.SetToolTip("انتخاب همه");
  cmdSelectNone.SetToolTip("لغو انتخاب همه");
  cmdSelectInverse.SetToolTip("معكوس كردن انتخاب");
  cmdExcel.SetToolTip("انتقال به اكسل");
  for (controls::Button* button : {&cmdSelectAll, &cmdSelectNone, &cmdSelectInverse, &cmdExcel}) {
    button->Move(0, 0, kButtonWidth, kButtonHeight);
  }
  cmdSelectAll.onClick = [this] { MarkRows(Marking::kAll); };
  cmdSelectNone.onClick = [this] { MarkRows(Marking::kNone); };
  cmdSelectInverse.onClick = [this] { MarkRows(Marking::kInverse); };
  cmdExcel.onClick = [this] { CopyToExcel(module_, Flex); };
  // Any mouse button with any modifier marks.
  Flex.onMouseDown = [this](int, int) { FlexMouseDown(); };
  Flex.onClick = [this] { SortByHeader(Flex, lastSort_); };
  Flex.marking = {&cmdSelectAll, &cmdSelectInverse, &cmdSelectNone};
  Flex.markSteps = &history_;
}

bool comFlex::IsSelected(std::int32_t inRow) {
  return IsRowMarked(Flex, inRow, Flex.FixedCols());
}

void comFlex::Mark(std::int32_t row, bool marked) {
  history_.Note(row, marked);
  PaintRow(Flex, row, Flex.FixedCols(), marked ? controls::palette::kMark : Flex.BackColor());
  const std::function<void(std::int32_t)>& raise = marked ? Selected : UnSelected;
  if (raise) raise(row);
}

void comFlex::ToggleRow(std::int32_t row) {
  Mark(row, !IsSelected(row));
}

void comFlex::MarkRows(Marking marking) {
  const BusyGrid busy(module_, Flex);
  const MarkGesture gesture(history_);
  for (std::int32_t row = 1; row < Flex.Rows(); ++row) {
    switch (marking) {
      case Marking::kAll:
        Mark(row, true);
        break;
      case Marking::kNone:
        Mark(row, false);
        break;
      case Marking::kInverse:
        ToggleRow(row);
        break;
    }
  }
}

void comFlex::SetMarks(const std::vector<std::int32_t>& rows, bool marked) {
  const BusyGrid busy(module_, Flex);
  const MarkGesture gesture(history_);
  for (const std::int32_t row : rows) Mark(row, marked);
}

void comFlex::FlexMouseDown() {
  const std::int32_t row = Flex.MouseRow();
  if (row < 1 || row > Flex.Rows() - 1) return;
  const RedrawOff redrawOff(Flex);
  ToggleRow(row);
}

void comFlex::Resized() {
  Flex.Move(0, 0, Width(), std::max(0.0, Height() - cmdSelectAll.Height()));
  controls::Twips right = Width();
  for (controls::Button* button : {&cmdSelectAll, &cmdSelectNone, &cmdSelectInverse, &cmdExcel}) {
    button->SetTop(Height() - button->Height());
    right -= button->Width();
    button->SetLeft(right);
  }
}

}  // namespace tools
