#pragma once

#include <QString>

#include "platform/Desktop.h"

namespace adapters::qt {

/// A Linux desktop. Qt can read which keyboard layout is active but has no way to switch it: that
/// belongs to the desktop, and differs between X11 and each Wayland compositor. So asking for a
/// layout changes nothing here; the user's own layout switch does it.
class QtDesktop : public platform::Desktop {
 public:
  std::chrono::sys_days Today() const override;
  int MinutesSinceMidnight() const override;
  /// 10, like a current Windows.
  std::uint32_t GetVersion() const override { return 10; }
  void LoadKeyboardLayout(std::string_view layout) override;
  std::string ShowSave(const std::string& begin, std::string_view filter) override;
  void Start(const std::string& commandLine) override;
};

/// Qt's pattern list ("Text (*.txt);;All (*)") for a filter as ShowSave takes it.
QString QtFilter(std::string_view filter);

}  // namespace adapters::qt
