#pragma once

#include <QString>
#include <string>

#include "platform/Clock.h"
#include "platform/FileDialog.h"
#include "platform/Keyboard.h"

namespace adapters::qt {

class QtClock : public platform::Clock {
 public:
  std::chrono::sys_days Today() const override;
  int MinutesSinceMidnight() const override;
};

/// A Linux desktop's keyboard. Qt can read which layout is active but has no way to switch it: that
/// belongs to the desktop, and differs between X11 and each Wayland compositor. So asking for a
/// layout changes nothing here; the user's own layout switch does it.
class QtKeyboard : public platform::Keyboard {
 public:
  /// 10, like a current Windows.
  std::uint32_t GetVersion() const override { return 10; }
  void LoadKeyboardLayout(std::string_view layout) override;
};

class QtFileDialog : public platform::FileDialog {
 public:
  std::string ShowSave(const std::string& begin, std::string_view filter) override;
};

/// Qt's pattern list ("Text (*.txt);;All (*)") for a filter as FileDialog takes it.
QString QtFilter(std::string_view filter);

}  // namespace adapters::qt
