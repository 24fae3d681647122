#pragma once

#include <memory>
#include <unordered_map>

#include "adapters/windows/PaneWindow.h"
#include "controls/Controls.h"
#include "controls/Form.h"

namespace adapters::windows {

/// The window of a form. Like the windows in it, it survives the form once detached.
class FormWindow : public Window {
 public:
  /// Hidden at first. `owner` is the window that it stays above; may be null.
  FormWindow(controls::Form& form, const Surroundings& surroundings, HWND owner);
  ~FormWindow() override;
  /// The form and its controls are not touched from here on.
  void Detach();
  /// Null for a control of another form.
  PaneWindow* WindowOf(const controls::Control& control) const;
  /// Moves the keyboard to a control; in a form that is not the active one, once it becomes so.
  void FocusOn(const PaneWindow& window);
  /// The form comes up: the keyboard to where it wants it.
  void TakeFirstFocus();
  /// Shows the hourglass over the window, or the usual pointers again.
  void SetBusy(bool busy) { busy_ = busy; }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Refresh(const controls::Change& change);
  void FitToForm();
  /// Of all controls, frames with what stands in them.
  void MakeWindows(const controls::Container& container, HWND parent);
  void Resized();
  void ChangeResolution(int dpi, const RECT& suggested);
  void LimitSize(MINMAXINFO& limits) const;
  bool OnKey(WPARAM key);
  bool OnAccessKey(WPARAM unit);
  SIZE WindowSize(controls::Twips width, controls::Twips height) const;
  /// The control whose window has the keyboard; null for none.
  const controls::Control* Focused() const;
  /// Moves the keyboard by the form's tab order; to the form itself when nothing else takes it.
  void MoveFocus(int step);
  HWND TargetOf(const controls::Control* control) const;
  void TakeFocus();

  controls::Form* form_;
  Theme look_;  // at the resolution of the monitor that the window is on
  Surroundings surroundings_;
  std::unordered_map<const controls::Control*, std::unique_ptr<PaneWindow>> windows_;
  controls::Subscription subscription_;
  HWND lastFocus_ = nullptr;  // to come back to when the form is activated again
  bool fitting_ = true;       // the window takes the form's size; at first it has none
  ScreenReaderLink reader_;
  bool busy_ = false;
};

}  // namespace adapters::windows
