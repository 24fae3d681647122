#pragma once

#include <QColor>
#include <optional>

#include "adapters/qt/Convert.h"
#include "screens/Palette.h"
#include "screens/Scale.h"

class QApplication;

namespace adapters::qt {

/// Font, palette and style of the suite's warm look, dark where the desktop's is, right-to-left
/// windows and Qt's own texts in Persian. Forms are designed for a font of 9 points and grow with
/// the desktop's, which is `desktopPoints` where that is told. Call once, before the first window.
void ApplyTheme(QApplication& application, std::optional<double> desktopPoints = {});

/// Of forms on a screen of this resolution.
screens::Scale FormScale(double dpi);

/// Which the windows of the desktop have, and after ApplyTheme ours.
screens::palette::Scheme CurrentScheme();

/// A colour of the palette in this scheme.
QColor Painted(controls::Colour colour, screens::palette::Scheme scheme = CurrentScheme());

}  // namespace adapters::qt
