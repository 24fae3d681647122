#include "adapters/qt/PageLetters.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QTextLayout>

#include "adapters/qt/Convert.h"

namespace adapters::qt {

namespace {

/// Pixels to the em at which texts are shaped.
constexpr int kEm = 64;
constexpr std::size_t kMostTexts = 20'000;

QFont Font(bool bold) {
  QFont font(QGuiApplication::font().family());
  font.setPixelSize(kEm);
  font.setBold(bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

}  // namespace

const PageLetters::Shaped& PageLetters::Of(std::string_view text, bool bold,
                                           bool rightToLeft) const {
  key_.assign(1, static_cast<char>('0' + (bold ? 1 : 0) + (rightToLeft ? 2 : 0))).append(text);
  const auto found = shaped_.find(key_);
  if (found != shaped_.end()) return found->second;
  if (shaped_.size() >= kMostTexts) shaped_.clear();
  QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
  option.setWrapMode(QTextOption::NoWrap);
  option.setUseDesignMetrics(true);
  QTextLayout layout(ToQString(text), Font(bold));
  layout.setTextOption(option);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  Shaped shaped;
  if (line.isValid()) {
    line.setLineWidth(0);
    // From the middle of the line on, down to the baseline.
    const double middle = (line.ascent() + line.descent()) / 2;
    line.setPosition({-line.naturalTextRect().left(), -middle});
    shaped.width = line.naturalTextWidth();
    shaped.runs = line.glyphRuns();
  }
  layout.endLayout();
  return shaped_.emplace(key_, std::move(shaped)).first->second;
}

double PageLetters::Width(std::string_view text, const controls::SheetFont& font) const {
  return Of(text, font.bold, true).width * font.points / kEm;
}

double PageLetters::LineHeight(const controls::SheetFont& font) const {
  return QFontMetricsF(Font(font.bold)).lineSpacing() * font.points / kEm;
}

void PageLetters::Draw(QPainter& painter, std::string_view text, const screens::Rect& box,
                       const screens::TextStyle& style) const {
  const Shaped& shaped = Of(text, style.weight == screens::Weight::kBold,
                            style.direction == screens::Direction::kRightToLeft);
  const double scale = style.size / kEm;
  const double width = shaped.width * scale;
  double left = box.left;
  if (style.side == screens::Side::kRight) left = box.right - width;
  if (style.side == screens::Side::kCentre) left = (box.left + box.right - width) / 2;
  const QTransform before = painter.transform();
  painter.translate(left, (box.top + box.bottom) / 2.0);
  painter.scale(scale, scale);
  for (const QGlyphRun& run : shaped.runs) painter.drawGlyphRun({}, run);
  painter.setTransform(before);
}

}  // namespace adapters::qt
