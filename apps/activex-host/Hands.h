#pragma once

#include <windows.h>

#include "Picture.h"
#include "apps/tour/Hands.h"

namespace activexhost {

/// Reads what the windows of this thread tell screen readers, and works by messages of mouse and
/// keyboard in the thread's queue.
class Hands : public tour::Hands {
 public:
  using tour::Hands::Hands;

  std::vector<std::unique_ptr<tour::Thing>> Windows() override;
  void Press(const screens::KeyEvent& stroke) override;
  void Picture(int windows, const std::string& path) override;
  void ResizeFront(double factor) override;
  void SaveAs(const std::string& path) override;
  std::string Clipboard() override;
  bool UsesOtherPrograms() const override { return true; }
  int Depth() const override;

 private:
  void MoveMouse(Mouse action, screens::Point place) override;

  /// Tells the window that the pointer was over, unless it still is over that one.
  void Leave(HWND window);

  HWND pointed_ = nullptr;
  Camera camera_;
};

}  // namespace activexhost
