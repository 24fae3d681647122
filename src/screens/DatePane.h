#pragma once

#include <memory>

#include "controls/DateBox.h"
#include "screens/FieldPane.h"
#include "screens/MonthPane.h"

namespace screens {

/// The Solar Hijri date box: a field that understands what a person types, and a month page that
/// drops down. Enter and leaving the field give the typed text to the model; one that is no date is
/// refused with a note, and on leaving the old date comes back.
class DatePane : public PaneOfKind<controls::DateBox, FieldPane> {
 public:
  DatePane(controls::DateBox& box, PaneHost& host);

  void Detach() override;
  void Changed(const controls::Change& change) override;
  void Wheel(const WheelEvent& event) override;
  bool PressKey(const KeyEvent& event) override;
  void FocusChanged(bool focused) override;
  void Edited() override;
  void PopupLeft() override { ClosePage(); }
  /// What the form says, else the weekday.
  Tip TipAt(Point place) const override;
  Accessible Describe() const override;

 protected:
  void Toggle() override;

 private:
  using Typing = controls::DateBox::Typing;
  bool PageOpen() const { return popup_ && popup_->Visible(); }
  void ClosePage();
  void MakePage();
  /// Gives a typed text to the model. False when it was refused: note and border then say so.
  bool Commit(Typing how);
  bool Step(Key key);
  void ShowDate();

  std::unique_ptr<Popup> popup_;
  MonthPane* page_ = nullptr;  // null until it was opened
  bool edited_ = false;
};

}  // namespace screens
