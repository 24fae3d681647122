#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QPainter>

#include "adapters/qt/PageLetters.h"
#include "screens/Palette.h"
#include "screens/Surface.h"

namespace adapters::qt {

/// A painter as panes see it. The painter's unit must be a device pixel, the font as large in it;
/// texts of a size are drawn with `letters`, which outlive it.
class QtSurface : public screens::Surface {
 public:
  QtSurface(QPainter& painter, const QFont& font, screens::palette::Scheme scheme,
            const PageLetters& letters);

  void Fill(const screens::Rect& area, controls::Colour colour) override;
  void Text(std::string_view text, const screens::Rect& box,
            const screens::TextStyle& style) override;
  void RoundBox(const screens::Rect& area, int radius, controls::Colour ground,
                controls::Colour line, int lineWidth) override;
  void Stroke(std::initializer_list<screens::Dot> points, double width,
              controls::Colour colour) override;
  void PushClip(const screens::Rect& area) override;
  void PopClip() override;

 private:
  QPainter& painter_;
  QFont normal_;
  QFont bold_;
  const PageLetters& letters_;
};

QFont Bold(QFont font);

}  // namespace adapters::qt
