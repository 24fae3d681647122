#pragma once

#include <windows.h>

#include <functional>

namespace activex {

/// The control's window in its container: nothing is on it, it only tells when it is to be painted.
class PlaceWindow {
 public:
  /// `paint` is called after the window was marked as painted, and may destroy this. Throws
  /// RuntimeError when there can be no window.
  PlaceWindow(HWND parent, const RECT& place, std::function<void()> paint);
  ~PlaceWindow();
  PlaceWindow(const PlaceWindow&) = delete;
  PlaceWindow& operator=(const PlaceWindow&) = delete;

  HWND Get() const { return window_; }
  void Move(const RECT& place);
  void Show(bool visible) { ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE); }

 private:
  static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM first, LPARAM second);

  std::function<void()> paint_;
  HWND window_ = nullptr;
};

}  // namespace activex
