#include "adapters/qt/Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QStyleFactory>
#include <QTranslator>
#include <algorithm>
#include <utility>

#include "adapters/qt/Convert.h"

namespace adapters::qt {

namespace {

/// At 9 points both fonts draw joined Persian that fits the forms' rows of 285 twips.
constexpr double kDesignPoints = 9;

QPalette WarmPalette() {
  namespace ours = screens::palette;
  QPalette palette(Painted(ours::kButton), Painted(ours::kFormGround));
  const std::pair<QPalette::ColorRole, controls::Colour> colours[] = {
      {QPalette::WindowText, ours::kText},          {QPalette::Text, ours::kText},
      {QPalette::ButtonText, ours::kText},          {QPalette::Base, ours::kField},
      {QPalette::AlternateBase, ours::kGridRow},    {QPalette::Highlight, ours::kAccent},
      {QPalette::HighlightedText, ours::kOnAccent}, {QPalette::ToolTipBase, ours::kGridRow},
      {QPalette::ToolTipText, ours::kText},         {QPalette::PlaceholderText, ours::kMutedText}};
  for (const auto& [role, colour] : colours) palette.setColor(role, Painted(colour));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, Painted(ours::kMutedText));
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, Painted(ours::kFrame));
  return palette;
}

/// %1 text, %2 muted, %3 line, %4 accent, %5 button, %6 frame, %7 accent ground,
/// %8 border, %9 row of a grid. A disabled button is no more than its caption and a faint line on
/// the form.
constexpr auto kSheet = R"(
QPushButton { background: %5; color: %1; border: 1px solid %8; border-radius: 4px;
              padding: 0px 2px; }
QDialog QPushButton { padding: 4px 14px; min-width: 56px; }
QPushButton:hover { background: %7; border-color: %4; }
QPushButton:pressed { background: %3; }
QPushButton:focus { border: 2px solid %4; }
QPushButton:disabled { background: transparent; color: %2; border-color: %3; }
QScrollBar { background: %6; border: none; }
QScrollBar:vertical { width: 13px; }
QScrollBar:horizontal { height: 13px; }
QScrollBar::handle { background: %8; border-radius: 4px; margin: 2px; }
QScrollBar::handle:hover { background: %4; }
QScrollBar::handle:vertical { min-height: 28px; }
QScrollBar::handle:horizontal { min-width: 28px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QToolButton { background: %5; color: %1; border: none; border-radius: 2px; }
QToolButton:hover { background: %7; }
QToolButton:disabled { background: transparent; color: %3; }
QLineEdit#paneField { background: transparent; color: %1; border: none; }
QToolTip { background: %9; color: %1; border: 1px solid %8; padding: 2px; }
)";

QString Sheet() {
  namespace ours = screens::palette;
  QString sheet = QString::fromUtf8(kSheet);
  for (const controls::Colour colour :
       {ours::kText, ours::kMutedText, ours::kLine, ours::kAccent, ours::kButton, ours::kFrame,
        ours::kAccentGround, ours::kBorder, ours::kGridRow}) {
    sheet = sheet.arg(Painted(colour).name());
  }
  return sheet;
}

}  // namespace

screens::palette::Scheme CurrentScheme() {
  constexpr int kMiddle = 128;
  const bool dark = QApplication::palette().color(QPalette::Window).lightness() < kMiddle;
  return dark ? screens::palette::Scheme::kDark : screens::palette::Scheme::kLight;
}

QColor Painted(controls::Colour colour, screens::palette::Scheme scheme) {
  return ToQColor(screens::palette::InScheme(colour, scheme));
}

screens::Scale FormScale(double dpi) {
  return screens::Scale(dpi * QApplication::font().pointSizeF() / kDesignPoints);
}

void ApplyTheme(QApplication& application, std::optional<double> desktopPoints) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setLayoutDirection(Qt::RightToLeft);
  const bool tahoma = QFontDatabase::families().contains(QStringLiteral("Tahoma"));
  QFont font(tahoma ? QStringLiteral("Tahoma") : QStringLiteral("DejaVu Sans"));
  const double points = desktopPoints.value_or(QFontInfo(QApplication::font()).pointSizeF());
  font.setPointSizeF(std::max(kDesignPoints, points));
  QApplication::setFont(font);
  QApplication::setPalette(WarmPalette());
  application.setStyleSheet(Sheet());

  auto* translator = new QTranslator(&application);
  if (translator->load(QLocale(QLocale::Persian), QStringLiteral("qtbase"), QStringLiteral("_"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator);
  }
}

}  // namespace adapters::qt
