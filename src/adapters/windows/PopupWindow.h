#pragma once

#include "adapters/windows/PaneView.h"

namespace adapters::windows {

/// A window beside a control's, with a pane of its own. While a drop-down is open, a press of a
/// mouse button beside it, and every move of the form below it, is told to the control's pane; such
/// a press does nothing else. Works in whatever message loop runs, also a host's own.
class PopupWindow : public PaneView, public screens::Popup {
 public:
  /// Belongs to the form around `owner`, the control's window, which outlives it.
  PopupWindow(PaneView& owner, screens::PopupKind kind, const screens::PaneMaker& make);
  ~PopupWindow() override;
  void Show(screens::Size size) override;
  void Hide() override;
  bool Visible() const override { return Handle() != nullptr && IsWindowVisible(Handle()); }

 protected:
  controls::Colour FrameColour(bool focused) const override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  static LRESULT CALLBACK WatchPresses(int code, WPARAM removed, LPARAM lParam);
  static LRESULT CALLBACK WatchMoves(int code, WPARAM wParam, LPARAM lParam);
  void BeginWatching();
  void EndWatching();

  PaneView& owner_;
  screens::PopupKind kind_;
  HWND form_;
  screens::Rect formPlace_;  // when the popup came up
  HHOOK presses_ = nullptr;
  HHOOK moves_ = nullptr;
};

/// Where a popup of a window on a form may be: in the form, or on the work area of its monitor.
screens::Rect RoomOf(screens::PopupKind kind, HWND window);

}  // namespace adapters::windows
