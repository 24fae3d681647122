#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "adapters/windows/ErrorGuard.h"

namespace adapters::windows {

/// What a new window is made of. Places are pixels; a child's are its parent's.
struct WindowPlan {
  DWORD style = 0;
  DWORD extendedStyle = 0;
  HWND parent = nullptr;                   // or owner; HWND_MESSAGE for one that nobody sees
  const wchar_t* standardClass = nullptr;  // "EDIT", whose messages are seen before it does
};

/// A window of Windows whose messages go to this object, each under the error guard. The window
/// goes with the object; when it goes first (with its parent or owner) the object forgets it and
/// Handle() is null. The object must not end while one of its messages is under way: see
/// ErrorGuard::Depth().
class Window {
 public:
  explicit Window(ErrorGuard& guard) : guard_(guard) {}
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  HWND Handle() const { return handle_; }
  /// The object behind a handle; null for a window of somebody else.
  static Window* Of(HWND handle);
  /// The module (library or program) that this code is part of; its windows' classes are its own.
  static HINSTANCE Instance();

  void Invalidate() const {
    if (handle_ != nullptr) InvalidateRect(handle_, nullptr, FALSE);
  }

 protected:
  /// Makes the window; call it in the most derived constructor. Throws RuntimeError 7 when Windows
  /// refuses.
  void Create(const WindowPlan& plan);
  /// A message. What it does not handle goes to Default().
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);
  ErrorGuard& Guard() const { return guard_; }

 private:
  static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
  static const wchar_t* ClassName();
  void Adopt(HWND handle);
  void Forget();

  ErrorGuard& guard_;
  HWND handle_ = nullptr;
  WNDPROC standard_ = nullptr;  // of a standard control
};

/// Whether a key (VK_...) was down when the message under way was sent.
inline bool Held(int key) {
  return GetKeyState(key) < 0;
}

/// The text of any window: a caption, or what stands in an edit box.
std::wstring TextOf(HWND window);

}  // namespace adapters::windows
