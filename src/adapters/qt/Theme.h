#pragma once

#include <QColor>

class QApplication;

namespace adapters::qt {

/// Font, palette and style of the suite's warm look, right-to-left windows and Qt's own texts in
/// Persian. Call once, before the first window.
void ApplyTheme(QApplication& application);

namespace theme {
// Colours that the forms do not name.
inline constexpr QColor kText{54, 44, 36};
inline constexpr QColor kMutedText{124, 108, 94};
inline constexpr QColor kLine{203, 184, 166};
inline constexpr QColor kFaintLine{232, 219, 204};
inline constexpr QColor kField{255, 253, 250};
inline constexpr QColor kAccent{166, 104, 58};
inline constexpr QColor kAccentGround{244, 214, 182};
inline constexpr QColor kRefused{184, 56, 44};
}  // namespace theme

}  // namespace adapters::qt
