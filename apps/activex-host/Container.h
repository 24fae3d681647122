#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "PropertyBag.h"
#include "Site.h"

namespace activexhost {

/// What the suite gives the control at login.
struct Login {
  std::int32_t user = 1;
  std::int32_t employee = -1;
  std::string connectionString;  // UTF-8
};

/// What the menu of a container asks of the program.
struct MenuCalls {
  std::function<void()> another;  // one more such window
  std::function<void()> about;    // what the program is
};

/// A window with one control on it, which a program of the suite would be. The control comes from
/// the registry where it is registered, else from the library beside the program.
class Container {
 public:
  /// Makes the window, hidden, and the control on it, with its properties from the bag. Throws
  /// RuntimeError.
  Container(const Login& login, MenuCalls calls);
  ~Container();
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;

  HWND Window() const { return window_; }
  /// Both run the control's member; an error that it raises is shown.
  void ClearShow();
  void View(std::int32_t program);
  /// An error was shown since the last call of one of the two.
  bool Failed() const { return failed_; }
  /// The user closed the window, and the control had nothing against it.
  bool Closed() const { return closed_; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void MakeWindow();
  void MakeControl();
  void OnCommand(int command);
  void OnPaint() const;
  void OnClose();
  template <typename Action>
  void ShowingErrors(Action&& action);

  MenuCalls calls_;
  HWND window_ = nullptr;
  HWND number_ = nullptr;  // the field with the program's number
  PropertyBag bag_;
  std::unique_ptr<Site> site_;
  HMODULE library_ = nullptr;
  adapters::windows::ComPtr<IOleObject> object_;
  adapters::windows::ComPtr<IConnectionPoint> changes_;
  DWORD changesCookie_ = 0;
  adapters::windows::Dispatch control_;
  bool failed_ = false;
  bool closed_ = false;
};

}  // namespace activexhost
