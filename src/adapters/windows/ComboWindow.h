#pragma once

#include <string>

#include "adapters/windows/ControlWindow.h"

namespace adapters::windows {

/// A drop-down list.
class ComboWindow : public WindowOf<controls::ComboBox> {
 public:
  ComboWindow(controls::ComboBox& model, const Surroundings& surroundings, HWND parent);

 protected:
  void Refresh(const controls::Change& change) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnParentMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

 private:
  void SettleHeight();
  void ShowItems();
  void Choose();
  void Paint() const;
  void PaintItem(const DRAWITEMSTRUCT& item) const;
  std::wstring ItemText(int index) const;
  bool accepted_ = false;  // the open list was left by picking
};

}  // namespace adapters::windows
