#include "adapters/qt/Signs.h"

#include <QPainter>
#include <array>

namespace adapters::qt {

void PaintDropArrow(QPainter& painter, const QPointF& centre, const QColor& ink) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const std::array<QPointF, 3> points = {centre + QPointF(-4, -2), centre + QPointF(0, 2),
                                         centre + QPointF(4, -2)};
  painter.drawPolyline(points.data(), static_cast<int>(points.size()));
}

void PaintCalendar(QPainter& painter, const QPointF& centre, const QColor& ink) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ink, 1.2));
  const QRectF page(centre + QPointF(-5.5, -4.5), QSizeF(11, 10));
  painter.drawRoundedRect(page, 1.5, 1.5);
  painter.drawLine(page.topLeft() + QPointF(0, 3), page.topRight() + QPointF(0, 3));
  painter.drawLine(page.topLeft() + QPointF(3, -1.5), page.topLeft() + QPointF(3, 1));
  painter.drawLine(page.topRight() + QPointF(-3, -1.5), page.topRight() + QPointF(-3, 1));
}

}  // namespace adapters::qt
