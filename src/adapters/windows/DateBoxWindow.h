#pragma once

#include <memory>

#include "adapters/windows/CellTip.h"
#include "adapters/windows/FieldFrame.h"
#include "controls/DateBox.h"

namespace adapters::windows {

class MonthPopupWindow;

/// The Solar Hijri date box: an edit that understands what a person types, and a month page that
/// drops down below it.
class DateBoxWindow : public WindowOf<controls::DateBox> {
 public:
  DateBoxWindow(controls::DateBox& model, const Surroundings& surroundings, HWND parent);
  ~DateBoxWindow() override;
  void Detach() override;
  /// The month page; null until it was first opened.
  MonthPopupWindow* Popup() const { return popup_.get(); }
  const FieldFrame& Field() const { return frame_; }

 protected:
  void Refresh(const controls::Change& change) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnParentMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

 private:
  void Toggle();
  bool PopupOpen() const;
  void ClosePopup();
  bool OnKey(WPARAM key);
  /// Gives a typed text to the model. False when it was refused: note and red border then say so.
  bool Commit(controls::DateBox::Typing how = controls::DateBox::Typing::kLeft);
  void ShowDate();
  void ShowWeekday();

  FieldFrame frame_;
  std::unique_ptr<CellTip> tip_;
  std::unique_ptr<MonthPopupWindow> popup_;
  bool edited_ = false;
};

}  // namespace adapters::windows
