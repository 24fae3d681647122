#pragma once

#include <QColor>
#include <QRect>
#include <QString>
#include <QWidget>
#include <string>
#include <string_view>

#include "screens/PixelPlace.h"

namespace adapters::qt {

inline QString ToQString(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

inline std::string ToUtf8(const QString& text) {
  return text.toStdString();
}

/// A form's colour (0x00BBGGRR).
constexpr QColor ToQColor(controls::Colour colour) {
  return QColor(static_cast<int>(colour & 0xFFU), static_cast<int>(colour >> 8U & 0xFFU),
                static_cast<int>(colour >> 16U & 0xFFU));
}

/// Twips to pixels of the screen that `widget` is on, and back: 15 twips at 96 dpi.
inline int ToPixels(const QWidget& widget, controls::Twips twips) {
  return qRound(twips * widget.logicalDpiX() / 1440.0);
}
inline controls::Twips ToTwips(const QWidget& widget, int pixels) {
  return pixels * 1440.0 / widget.logicalDpiX();
}

/// A control's place in its container, on the screen that `widget` is on.
inline QRect PixelBounds(const QWidget& widget, const controls::Control& control) {
  const auto [left, top, right, bottom] = screens::PlaceInContainer(
      control, [&widget](controls::Twips twips) { return ToPixels(widget, twips); });
  return {left, top, right - left, bottom - top};
}

}  // namespace adapters::qt
