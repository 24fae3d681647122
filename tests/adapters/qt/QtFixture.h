#pragma once

#include <QTemporaryDir>

#include "adapters/qt/QtScreen.h"
#include "contract/ScreenFixture.h"
#include "platform/Connection.h"

struct contract::ScreenTest::Adapter {
  explicit Adapter(const platform::Desktop& desktop) : screen(guard, desktop) {}
  adapters::qt::ErrorGuard guard;
  adapters::qt::QtScreen screen;
};

namespace adapters::qt {

class QtTest : public contract::ScreenTest {
 protected:
  /// Runs `action` on the modal window that comes up next.
  void OnModalWindow(std::function<void(QWidget&)> action);
  /// Accepts the message that comes up next. Returns its title and all its texts, a line each, once
  /// it came.
  std::shared_ptr<const std::string> AnswerDialog();
};

/// With the embedded database of a small sample office.
class QtOfficeTest : public QtTest, public platform::ConnectionFactory {
 protected:
  QtOfficeTest();
  std::unique_ptr<platform::Connection> Create(const std::string& text) override;

  QTemporaryDir folder;
  std::string connectionString;
};

}  // namespace adapters::qt
