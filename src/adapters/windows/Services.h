#pragma once

#include "platform/Clock.h"
#include "platform/FileDialog.h"
#include "platform/Keyboard.h"
#include "platform/ProcessLauncher.h"

namespace adapters::windows {

class WinClock : public platform::Clock {
 public:
  std::chrono::sys_days Today() const override;
  int MinutesSinceMidnight() const override;
};

class WinKeyboard : public platform::Keyboard {
 public:
  std::uint32_t GetVersion() const override;
  /// A layout that is not installed leaves the user's own.
  void LoadKeyboardLayout(std::string_view layout) override;
};

class SaveDialog : public platform::FileDialog {
 public:
  /// The active window owns the dialog.
  std::string ShowSave(const std::string& begin, std::string_view filter) override;
};

class ShellLauncher : public platform::ProcessLauncher {
 public:
  /// Throws RuntimeError 53 when there is no such program, 5 for any other failure.
  void Start(const std::string& commandLine) override;
};

/// The form in which Windows takes a filter: each part, and the whole, ends in a zero.
std::wstring WindowsFilter(std::string_view filter);

}  // namespace adapters::windows
