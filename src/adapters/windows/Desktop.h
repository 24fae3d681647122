#pragma once

#include "platform/Desktop.h"

namespace adapters::windows {

class WinDesktop : public platform::Desktop {
 public:
  std::chrono::sys_days Today() const override;
  int MinutesSinceMidnight() const override;
  std::uint32_t GetVersion() const override;
  /// A layout that is not installed leaves the user's own.
  void LoadKeyboardLayout(std::string_view layout) override;
  /// The active window owns the dialog.
  std::string ShowSave(const std::string& begin, std::string_view filter) override;
  /// Throws RuntimeError 5 for any other failure than a missing program.
  void Start(const std::string& commandLine) override;
};

/// The form in which Windows takes a filter: each part, and the whole, ends in a zero.
std::wstring WindowsFilter(std::string_view filter);

}  // namespace adapters::windows
