#pragma once

#include "adapters/qt/ControlView.h"
#include "adapters/qt/FieldWithButton.h"
#include "controls/DateBox.h"

namespace adapters::qt {

class MonthPopup;

/// The Solar Hijri date box: a line edit that understands what a person types, and a month page
/// that drops down below it.
class DateBoxWidget : public ViewOf<FieldWithButton, controls::DateBox> {
 public:
  DateBoxWidget(controls::DateBox& model, const Surroundings& surroundings, QWidget* parent);
  void Detach() override;
  /// The month page; hidden while closed.
  MonthPopup& Popup() { return *popup_; }

 protected:
  void Refresh(const controls::Change& change) override;
  void Toggle() override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  /// Gives a typed text to the model. False when it was refused: note and red border then say so.
  bool Commit(controls::DateBox::Typing how = controls::DateBox::Typing::kLeft);
  void ShowDate();

  MonthPopup* popup_;
  bool edited_ = false;
};

}  // namespace adapters::qt
