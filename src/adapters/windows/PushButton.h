#pragma once

#include <functional>
#include <string>

#include "adapters/windows/Paint.h"
#include "adapters/windows/Window.h"

namespace adapters::windows {

/// The look and manners of a push button, for whatever window is a standard button of the kind
/// BS_OWNERDRAW.
class ButtonFace {
 public:
  explicit ButtonFace(const Theme& theme) : theme_(theme) {}
  /// Sees every message first. True when it is done with (`result` answers it): painting. It also
  /// follows the mouse, and turns a second quick click into a click.
  bool OnMessage(HWND window, UINT& message, WPARAM wParam);
  void SetGrounds(controls::Colour around, controls::Colour face) {
    around_ = around;
    face_ = face;
  }
  /// Whether Enter presses it from elsewhere.
  void SetDefault(bool isDefault) { isDefault_ = isDefault; }

 private:
  void Paint(HWND window) const;
  const Theme& theme_;
  controls::Colour around_ = controls::palette::kFormGround;
  controls::Colour face_ = controls::palette::kButton;
  bool hovered_ = false;
  bool isDefault_ = false;
};

/// A push button of the adapter's own windows, without a model. Keys that it does not take are
/// sent to its top-level window as kFormKeyDown.
class PushButton : public Window {
 public:
  PushButton(ErrorGuard& guard, const Theme& theme, HWND parent, const RECT& place,
             const std::wstring& caption, std::function<void()> onClick);
  ButtonFace& Face() { return face_; }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnParentMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

 private:
  ButtonFace face_;
  std::function<void()> onClick_;
};

}  // namespace adapters::windows
