#pragma once

#include <QColor>
#include <QPointF>

class QPainter;

namespace adapters::qt {

/// Small drawings, so that no icon theme is needed.
void PaintDropArrow(QPainter& painter, const QPointF& centre, const QColor& ink);
void PaintCalendar(QPainter& painter, const QPointF& centre, const QColor& ink);

}  // namespace adapters::qt
