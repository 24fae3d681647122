#pragma once

#include <QColor>
#include <QRect>
#include <QString>
#include <QWidget>
#include <string>
#include <string_view>

#include "controls/Controls.h"

namespace adapters::qt {

inline QString ToQString(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

inline std::string ToUtf8(const QString& text) {
  return text.toStdString();
}

/// A form's colour (0x00BBGGRR).
inline QColor ToQColor(controls::Colour colour) {
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

/// A control's place in its container. Edges are rounded, not sizes, and on the form, not in the
/// container, so that controls that touch in twips touch in pixels, also those in different frames.
inline QRect PixelBounds(const QWidget& widget, const controls::Control& control) {
  controls::Twips originX = 0;
  controls::Twips originY = 0;
  const auto* frame = dynamic_cast<const controls::Frame*>(&control.Parent());
  while (frame != nullptr) {
    originX += frame->Left();
    originY += frame->Top();
    frame = dynamic_cast<const controls::Frame*>(&frame->Parent());
  }
  const auto edge = [&widget](controls::Twips origin, controls::Twips place) {
    return ToPixels(widget, origin + place) - ToPixels(widget, origin);
  };
  const int left = edge(originX, control.Left());
  const int top = edge(originY, control.Top());
  const int right = edge(originX, control.Left() + control.Width());
  const int bottom = edge(originY, control.Top() + control.Height());
  return {left, top, right - left, bottom - top};
}

}  // namespace adapters::qt
