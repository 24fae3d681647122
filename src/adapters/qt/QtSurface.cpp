#include "adapters/qt/QtSurface.h"

#include <QPolygonF>
#include <algorithm>

#include "adapters/qt/Convert.h"

namespace adapters::qt {

namespace {

int FlagsOf(screens::Side side) {
  const Qt::AlignmentFlag across = side == screens::Side::kRight    ? Qt::AlignRight
                                   : side == screens::Side::kCentre ? Qt::AlignHCenter
                                                                    : Qt::AlignLeft;
  return int{across} | int{Qt::AlignVCenter} | int{Qt::AlignAbsolute} | int{Qt::TextSingleLine};
}

}  // namespace

QFont Bold(QFont font) {
  font.setBold(true);
  return font;
}

QtSurface::QtSurface(QPainter& painter, const QFont& font, screens::palette::Scheme scheme,
                     const PageLetters& letters)
    : Surface(scheme), painter_(painter), normal_(font), bold_(Bold(font)), letters_(letters) {}

void QtSurface::Fill(const screens::Rect& area, controls::Colour colour) {
  painter_.fillRect(ToQRect(area), ToQColor(Shown(colour)));
}

void QtSurface::Text(std::string_view text, const screens::Rect& box,
                     const screens::TextStyle& style) {
  painter_.setPen(ToQColor(Shown(style.colour)));
  if (style.size > 0) return letters_.Draw(painter_, text, box, style);
  const bool rightToLeft = style.direction == screens::Direction::kRightToLeft;
  painter_.setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
  painter_.setFont(style.weight == screens::Weight::kBold ? bold_ : normal_);
  const QString shown =
      painter_.fontMetrics().elidedText(ToQString(text), Qt::ElideRight, box.Width());
  painter_.drawText(ToQRect(box), FlagsOf(style.side), shown);
}

void QtSurface::Stroke(std::initializer_list<screens::Dot> points, double width,
                       controls::Colour colour) {
  QPolygonF line;
  for (const screens::Dot& point : points) line.append(QPointF(point.x, point.y));
  painter_.save();
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.setPen(QPen(ToQColor(Shown(colour)), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter_.drawPolyline(line);
  painter_.restore();
}

void QtSurface::RoundBox(const screens::Rect& area, int radius, controls::Colour ground,
                         controls::Colour line, int lineWidth) {
  painter_.save();
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.setPen(QPen(ToQColor(Shown(line)), lineWidth));
  painter_.setBrush(ToQColor(Shown(ground)));
  const double inset = lineWidth / 2.0;
  painter_.drawRoundedRect(QRectF(ToQRect(area)).adjusted(inset, inset, -inset, -inset),
                           std::max(0.0, radius - inset), std::max(0.0, radius - inset));
  painter_.restore();
}

void QtSurface::PushClip(const screens::Rect& area) {
  painter_.save();
  painter_.setClipRect(ToQRect(area), Qt::IntersectClip);
}

void QtSurface::PopClip() {
  painter_.restore();
}

}  // namespace adapters::qt
