#pragma once

#include <QGlyphRun>
#include <QList>
#include <string>
#include <unordered_map>

#include "report/Letters.h"
#include "screens/Surface.h"

class QPainter;

namespace adapters::qt {

/// Letters of reports. Each text is shaped once, without hinting, and is the same at every size and
/// on every device. Needs a QApplication.
class PageLetters : public report::Letters {
 public:
  double Width(std::string_view text, const controls::SheetFont& font) const override;
  double LineHeight(const controls::SheetFont& font) const override;

  /// A text of a size (see screens::TextStyle) with the painter's pen.
  void Draw(QPainter& painter, std::string_view text, const screens::Rect& box,
            const screens::TextStyle& style) const;

 private:
  struct Shaped {
    QList<QGlyphRun> runs;
    double width = 0;
  };
  const Shaped& Of(std::string_view text, bool bold, bool rightToLeft) const;

  mutable std::unordered_map<std::string, Shaped> shaped_;  // by text and how it is shaped
  mutable std::string key_;
};

}  // namespace adapters::qt
