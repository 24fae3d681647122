#pragma once

#include <string>

#include "adapters/windows/ControlWindow.h"
#include "adapters/windows/Paint.h"

namespace adapters::windows {

/// A sentence that stands below a field for a while: a child of the form, over its other windows.
/// The mouse goes through it.
class FieldNote : public Window {
 public:
  FieldNote(const Surroundings& surroundings, HWND field, std::wstring text);
  const std::wstring& Text() const { return text_; }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Paint() const;
  int Padding() const;
  RECT PlaceFor(const RECT& field, const RECT& room) const;

  const Theme& look_;
  std::wstring text_;
};

}  // namespace adapters::windows
