#include "adapters/qt/Places.h"

#include <QGuiApplication>
#include <QScreen>

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
  for (const QScreen* screen : QGuiApplication::screens()) {
    areas.push_back(ToRect(screen->availableGeometry()));
  }
  const auto taken = screens::PlaceOnDesk(store.Read(ToUtf8(window.objectName())), areas);
  if (!taken) return false;
  // Without the frame, whose size nobody knows before the window is up.
  window.setGeometry(ToQRect(taken->place));
  if (taken->maximised) window.setWindowState(window.windowState() | Qt::WindowMaximized);
  return true;
}

}  // namespace adapters::qt
