#include "adapters/qt/Places.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>

#include "adapters/qt/Convert.h"

namespace adapters::qt {

namespace {

bool CanBeSized(const QWidget& window) {
  return window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint);
}

}  // namespace

std::string SettingsPlaces::Read(const std::string& form) const {
  return ToUtf8(settings_.value(ToQString(form)).toString());
}

void SettingsPlaces::Write(const std::string& form, const std::string& text) {
  settings_.setValue(ToQString(form), ToQString(text));
}

void KeepPlace(const QWidget& window, screens::PlaceStore& store) {
  if (!window.isVisible() || window.isMinimized() || !CanBeSized(window)) return;
  const bool maximised = window.isMaximized();
  const QRect normal = maximised ? window.normalGeometry() : window.geometry();
  if (normal.isEmpty()) return;
  store.Write(ToUtf8(window.objectName()), screens::PlaceText({ToRect(normal), maximised}));
}

bool TakePlace(QWidget& window, const screens::PlaceStore& store) {
  if (!CanBeSized(window)) return false;
  std::vector<screens::Rect> areas;
  // The frame's size is known only once the window is up: its title, above the place, is to be
  // within reach.
  const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
  for (const QScreen* screen : QGuiApplication::screens()) {
    areas.push_back(ToRect(screen->availableGeometry().adjusted(0, title, 0, 0)));
  }
  const auto taken = screens::PlaceOnDesk(store.Read(ToUtf8(window.objectName())), areas);
  if (!taken) return false;
  window.setGeometry(ToQRect(taken->place));
  if (taken->maximised) window.setWindowState(window.windowState() | Qt::WindowMaximized);
  return true;
}

}  // namespace adapters::qt
