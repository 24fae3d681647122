#pragma once

#include <string>

#include "controls/Controls.h"
#include "screens/DropDown.h"
#include "screens/FieldPane.h"

namespace screens {

/// A choice from a list that drops down. Up, down, Home, End and the first letters of an item
/// choose while it is closed; in the open list they only move, until Enter, Tab or a click chooses
/// and Esc gives up.
class ComboPane : public PaneOfKind<controls::ComboBox, FieldPane>, private ListRows {
 public:
  ComboPane(controls::ComboBox& box, PaneHost& host);

  void Detach() override;
  void Changed(const controls::Change& change) override;
  void Wheel(const WheelEvent& event) override;
  bool PressKey(const KeyEvent& event) override;
  void FocusChanged(bool focused) override;
  void PopupLeft() override { drop_.Close(); }
  Accessible Describe() const override;

 protected:
  void Toggle() override;
  void PressInside() override { Act(-1); }
  void PaintInside(Surface& surface, const Rect& room) const override;

 private:
  int Count() const override { return Shown() == nullptr ? 0 : Shown()->ListCount(); }
  ListRow At(int row) const override { return {Shown()->List(row), {}}; }
  std::string Text() const;
  void Choose(int index);
  bool PressKeyInList(const KeyEvent& event);
  bool ChooseByLetter(const std::string& letter);

  DropDown drop_;
};

}  // namespace screens
