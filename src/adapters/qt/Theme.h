#pragma once

#include <QColor>

#include "adapters/qt/Convert.h"
#include "controls/ScreenPalette.h"

class QApplication;

namespace adapters::qt {

/// Font, palette and style of the suite's warm look, right-to-left windows and Qt's own texts in
/// Persian. Call once, before the first window.
void ApplyTheme(QApplication& application);

namespace theme {
inline constexpr QColor kText = ToQColor(controls::palette::kText);
inline constexpr QColor kMutedText = ToQColor(controls::palette::kMutedText);
inline constexpr QColor kLine = ToQColor(controls::palette::kLine);
inline constexpr QColor kFaintLine = ToQColor(controls::palette::kFaintLine);
inline constexpr QColor kField = ToQColor(controls::palette::kField);
inline constexpr QColor kAccent = ToQColor(controls::palette::kAccent);
inline constexpr QColor kAccentGround = ToQColor(controls::palette::kAccentGround);
inline constexpr QColor kRefused = ToQColor(controls::palette::kRefused);
}  // namespace theme

}  // namespace adapters::qt
