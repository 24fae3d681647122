#include "tools/comFlex.h"

#include <algorithm>
#include <utility>

#include "tools/CopyToExcel.h"

namespace tools {

namespace {

constexpr controls::Twips kButtonWidth = 420;
constexpr controls::Twips kButtonHeight = 330;

}  // namespace

comFlex::comFlex(controls::Container& parent, std::string name, host::modMain& module)
    : Frame(parent, std::move(name), {}, Border::kNone),
      marks_(module, Flex, {&cmdSelectAll, &cmdSelectInverse, &cmdSelectNone}) {
  // The captions are bare signs.
  cmdSelectAll.SetToolTip("انتخاب همه");
  cmdSelectNone.SetToolTip("لغو انتخاب همه");
  cmdSelectInverse.SetToolTip("معكوس كردن انتخاب");
  cmdExcel.SetToolTip("انتقال به اكسل");
  for (controls::Button* button : {&cmdSelectAll, &cmdSelectNone, &cmdSelectInverse, &cmdExcel}) {
    button->Move(0, 0, kButtonWidth, kButtonHeight);
  }
  cmdExcel.onClick = [this, &module] { CopyToExcel(module, Flex); };
  marks_.onMark = [this](int row, bool marked) {
    const std::function<void(std::int32_t)>& raise = marked ? Selected : UnSelected;
    if (raise) raise(row);
  };
}

bool comFlex::IsSelected(std::int32_t inRow) {
  Flex.SetRow(inRow);
  Flex.SetCol(Flex.FixedCols());
  return Flex.CellBackColor() == controls::palette::kMark;
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
