#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "controls/Selector.h"
#include "screens/DropDown.h"
#include "screens/FieldPane.h"

namespace screens {

/// The lookup selector: typing narrows a list that drops down. Enter and a click choose its row,
/// Esc takes back what was typed. Leaving an emptied field selects nothing, leaving it by Tab with
/// a narrowed list chooses the row that stands marked in it; any other text gives way to the
/// selected name.
class SelectorPane : public PaneOfKind<controls::Selector, FieldPane>, private ListRows {
 public:
  SelectorPane(controls::Selector& selector, PaneHost& host);

  void Detach() override;
  void Changed(const controls::Change& change) override;
  void Wheel(const WheelEvent& event) override;
  bool PressKey(const KeyEvent& event) override;
  void FocusChanged(bool focused) override;
  void Edited() override;
  void PopupLeft() override { Close(Leaving::kSettle); }
  Accessible Describe() const override;

 protected:
  void Toggle() override;

 private:
  enum class Leaving { kSettle, kRestore };
  int Count() const override { return static_cast<int>(rows_.size()); }
  ListRow At(int row) const override;
  void Open();
  void Close(Leaving leaving);
  void ShowRows(const std::string& typed);
  void ChooseCurrent();
  void Settle();
  void ShowSelected();
  bool PressKeyInList(const KeyEvent& event);

  std::vector<std::size_t> rows_;  // indexes into the selector's list
  DropDown drop_;
  bool edited_ = false;
};

}  // namespace screens
