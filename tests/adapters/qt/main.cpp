#include <gmock/gmock.h>

#include <QApplication>

#include "adapters/qt/Theme.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleMock(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  adapters::qt::ApplyTheme(application);
  return RUN_ALL_TESTS();
}
