// What the grid view paints.

#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "adapters/qt/FlexGridView.h"
#include "adapters/qt/Theme.h"

namespace adapters::qt {

using controls::FlexGrid;

namespace {

constexpr int kTextMargin = 4;
constexpr qreal kBlockTint = 0.30;

Qt::Alignment TextAlignment(FlexGrid::Alignment alignment) {
  const Qt::Alignment rest = Qt::AlignVCenter | Qt::AlignAbsolute;
  switch (alignment) {
    case FlexGrid::Alignment::kLeftCentre:
      return rest | Qt::AlignLeft;
    case FlexGrid::Alignment::kCentreCentre:
      return rest | Qt::AlignHCenter;
    case FlexGrid::Alignment::kRightCentre:
    case FlexGrid::Alignment::kGeneral:
      break;
  }
  return rest | Qt::AlignRight;
}

/// A ground that shows the block and lets a mark shine through.
QColor Tinted(const QColor& ground) {
  const auto mix = [](int from, int to) {
    return static_cast<int>(from + (to - from) * kBlockTint);
  };
  return {mix(ground.red(), theme::kAccent.red()), mix(ground.green(), theme::kAccent.green()),
          mix(ground.blue(), theme::kAccent.blue())};
}

}  // namespace

void FlexGridView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.setLayoutDirection(Qt::RightToLeft);
  painter.fillRect(event->rect(), ToQColor(controls::palette::kFrame));
  if (!Model()) return;
  PaintColumns(painter, event->rect(), false);
  PaintColumns(painter, event->rect(), true);
  if (hasFocus()) PaintBlockFrame(painter);
}

void FlexGridView::PaintColumns(QPainter& painter, const QRect& clip, bool fixed) const {
  painter.save();
  const QRect room =
      fixed ? viewport()->rect() : viewport()->rect().adjusted(0, 0, -FixedWidth(), 0);
  painter.setClipRect(room & clip);
  const int fixedRows = Model()->FixedRows();
  const int firstRow = fixedRows + verticalScrollBar()->value();
  const int lastRow = LastRowInSight();
  for (const int col : ColumnsInSight(fixed)) {
    const QRect column = ColumnPlace(col);
    if (!column.intersects(clip)) continue;
    const auto paintRows = [&](int first, int last) {
      for (int row = first; row <= last; ++row) {
        const int top = RowTop(row);
        if (top <= clip.bottom() && top + rowHeight_ > clip.top()) PaintCell(painter, row, col);
      }
    };
    paintRows(0, std::min(fixedRows, Model()->Rows()) - 1);
    paintRows(firstRow, lastRow);
  }
  painter.restore();
}

void FlexGridView::PaintCell(QPainter& painter, int row, int col) const {
  const QRect column = ColumnPlace(col);
  const QRect place(column.left(), RowTop(row), column.width(), rowHeight_);
  const bool heading = row < Model()->FixedRows() || col < Model()->FixedCols();
  QColor ground = ToQColor(controls::palette::kButton);
  if (!heading) {
    ground = ToQColor(Model()->EffectiveBackColor(row, col));
    const FlexGrid::HighLight highLight = Model()->GetHighLight();
    const bool shown = highLight == FlexGrid::HighLight::kAlways ||
                       (highLight == FlexGrid::HighLight::kWithFocus && hasFocus());
    if (shown && Model()->InBlock(row, col)) ground = Tinted(ground);
  }
  painter.fillRect(place, ground);
  painter.setPen(heading ? theme::kLine : theme::kFaintLine);
  painter.drawLine(place.bottomLeft(), place.bottomRight());
  painter.drawLine(place.topLeft(), place.bottomLeft());

  const QString text = CellText(row, col);
  if (text.isEmpty()) return;
  painter.setPen(isEnabled() ? theme::kText : theme::kMutedText);
  const auto alignment = TextAlignment(Model()->ColAlignment(col)).toInt();
  const int flags = static_cast<int>(alignment) | int{Qt::TextSingleLine};
  const QRect inside = place.adjusted(kTextMargin, 0, -kTextMargin, -1);
  painter.drawText(inside, flags, fontMetrics().elidedText(text, Qt::ElideRight, inside.width()));
}

void FlexGridView::PaintBlockFrame(QPainter& painter) const {
  if (Model()->Rows() <= Model()->FixedRows()) return;
  const auto [firstRow, lastRow] = std::minmax({Model()->Row(), Model()->RowSel()});
  const auto [firstCol, lastCol] = std::minmax({Model()->Col(), Model()->ColSel()});
  if (firstRow < Model()->FixedRows() || lastCol >= static_cast<int>(columns_.size())) return;
  const QRect right = ColumnPlace(firstCol);
  const QRect left = ColumnPlace(lastCol);
  const int top = RowTop(firstRow);
  const QRect block(QPoint(left.left(), top),
                    QPoint(right.right(), RowTop(lastRow) + rowHeight_ - 1));
  if (block.width() <= 0) return;
  QRect room = viewport()->rect();
  room.setTop(FixedHeight());
  if (firstCol >= Model()->FixedCols()) room.setRight(room.right() - FixedWidth());
  painter.save();
  painter.setClipRect(room);
  painter.setPen(theme::kAccent);
  painter.setBrush(Qt::NoBrush);
  // A block of 100,000 rows is longer than some painters can draw.
  const QRect near = block & room.adjusted(-4, -4, 4, 4);
  painter.drawRect(near.adjusted(0, 0, -1, -1));
  painter.restore();
}

}  // namespace adapters::qt
