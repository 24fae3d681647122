#pragma once

#include <optional>
#include <string>

#include "adapters/windows/ControlWindow.h"

namespace adapters::windows {

/// A text box, of one line or several.
class TextWindow : public WindowOf<controls::TextBox> {
 public:
  TextWindow(controls::TextBox& model, const Surroundings& surroundings, HWND parent);

 protected:
  void Refresh(const controls::Change& change) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnParentMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

 private:
  void ShowText();
  /// What goes in instead of a typed text; none where it goes in as it is.
  std::optional<std::wstring> TakenInstead(const std::wstring& text) const;
  bool Paste();
  void PaintText() const;
  const bool severalLines_;
  bool showing_ = false;  // the text comes from the model, not from the keys
};

}  // namespace adapters::windows
