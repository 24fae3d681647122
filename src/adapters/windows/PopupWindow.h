#pragma once

#include <functional>
#include <string_view>

#include "adapters/windows/ControlWindow.h"

namespace adapters::windows {

/// The property that carries the name of the control that a popup belongs to.
inline constexpr wchar_t kPopupProperty[] = L"PromoterPopup";

/// What drops down below a field. It never takes the keyboard: the field keeps it and passes on the
/// keys that are the popup's. A press of a mouse button beside it, and every move of the form below
/// it, asks the field to close it; such a press does nothing else. Works in whatever message loop
/// runs, also a host's own.
class PopupWindow : public Window {
 public:
  /// Belongs to the form around `field`.
  PopupWindow(const Surroundings& surroundings, HWND field);
  ~PopupWindow() override;
  /// Names the popup after its control, for automation.
  void Name(std::string_view control) { SetName(kPopupProperty, control); }
  bool Visible() const { return Handle() != nullptr && IsWindowVisible(Handle()) != FALSE; }
  /// Opens it below the field (above it where there is no room below), its right edge at the
  /// field's; an open one takes its new place.
  void ShowBelow(SIZE size);
  void Hide();

  /// The user turned elsewhere.
  std::function<void()> onLeft;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  const Theme& Look() const { return look_; }
  /// The work area of the screen that the field is on.
  RECT Room() const;
  int Design(int pixels) const { return look_.GetScale().Design(pixels); }

 private:
  static LRESULT CALLBACK WatchPresses(int code, WPARAM removed, LPARAM lParam);
  static LRESULT CALLBACK WatchMoves(int code, WPARAM wParam, LPARAM lParam);
  RECT PlaceFor(SIZE size) const;
  void BeginWatching();
  void EndWatching();

  const Theme& look_;
  HWND field_;
  HWND form_;
  HHOOK presses_ = nullptr;
  HHOOK moves_ = nullptr;
};

}  // namespace adapters::windows
