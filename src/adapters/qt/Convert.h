#pragma once

#include <QColor>
#include <QRect>
#include <QString>
#include <string>
#include <string_view>

#include "controls/Control.h"
#include "screens/Rect.h"

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

inline QRect ToQRect(const screens::Rect& rect) {
  return {rect.left, rect.top, rect.Width(), rect.Height()};
}

inline screens::Rect ToRect(const QRect& rect) {
  return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

}  // namespace adapters::qt
