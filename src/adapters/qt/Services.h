#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QProgressDialog>
#include <string>

#include "platform/Clock.h"
#include "platform/FileDialog.h"
#include "platform/Keyboard.h"
#include "platform/Progress.h"

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

/// A bar with a cancel button that appears once work has taken long enough to make one wait.
class QtProgress : public platform::Progress {
 public:
  ~QtProgress() override;
  void Begin(std::string_view what, std::size_t total) override;
  bool Advance(std::size_t done) override;
  void End() override;

 private:
  QPointer<QProgressDialog> bar_;
  QString what_;
  std::size_t total_ = 0;
  QElapsedTimer sinceBegin_;
  QElapsedTimer sincePaint_;
};

/// Qt's pattern list ("Text (*.txt);;All (*)") for a filter as FileDialog takes it.
QString QtFilter(std::string_view filter);

}  // namespace adapters::qt
