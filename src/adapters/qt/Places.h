#pragma once

#include <QSettings>
#include <QWidget>

#include "screens/WindowPlace.h"

namespace adapters::qt {

/// In a file of the user's settings of an application (~/.config/<application>/windows.conf).
class SettingsPlaces : public screens::PlaceStore {
 public:
  explicit SettingsPlaces(const QString& application)
      : settings_(application, QStringLiteral("windows")) {}
  std::string Read(const std::string& form) const override;
  void Write(const std::string& form, const std::string& text) override;

 private:
  QSettings settings_;
};

/// Keeps the place of a window that is up and can be sized, under its object name.
void KeepPlace(const QWidget& window, screens::PlaceStore& store);
/// Puts a hidden window that can be sized where it stood; false where there is no such place.
bool TakePlace(QWidget& window, const screens::PlaceStore& store);

}  // namespace adapters::qt
