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

#include "adapters/qt/Convert.h"
#include "controls/Control.h"

namespace adapters::qt {

namespace {

/// At 9 points both fonts draw joined Persian that fits the forms' rows of 285 twips.
constexpr double kDesignPoints = 9;

QPalette WarmPalette() {
  const QColor ground = ToQColor(controls::palette::kFormGround);
  const QColor button = ToQColor(controls::palette::kButton);
  QPalette palette(button, ground);
  palette.setColor(QPalette::WindowText, theme::kText);
  palette.setColor(QPalette::Text, theme::kText);
  palette.setColor(QPalette::ButtonText, theme::kText);
  palette.setColor(QPalette::Base, theme::kField);
  palette.setColor(QPalette::AlternateBase, ToQColor(controls::palette::kGridRow));
  palette.setColor(QPalette::Highlight, theme::kAccent);
  palette.setColor(QPalette::HighlightedText, theme::kOnAccent);
  palette.setColor(QPalette::ToolTipBase, ToQColor(controls::palette::kGridRow));
  palette.setColor(QPalette::ToolTipText, theme::kText);
  palette.setColor(QPalette::PlaceholderText, theme::kMutedText);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, theme::kMutedText);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, ToQColor(controls::palette::kFrame));
  return palette;
}

/// %1 text, %2 muted, %3 line, %4 field, %5 accent, %6 button, %7 frame, %8 accent ground,
/// %9 border, %10 row of a grid. A disabled button is no more than its caption and a faint line on
/// the form.
constexpr auto kSheet = R"(
QPushButton { background: %6; color: %1; border: 1px solid %9; border-radius: 4px;
              padding: 0px 2px; }
QDialog QPushButton { padding: 4px 14px; min-width: 56px; }
QPushButton:hover { background: %8; border-color: %5; }
QPushButton:pressed { background: %3; }
QPushButton:focus { border: 2px solid %5; }
QPushButton:disabled { background: transparent; color: %2; border-color: %3; }
QScrollBar { background: %7; border: none; }
QScrollBar:vertical { width: 13px; }
QScrollBar:horizontal { height: 13px; }
QScrollBar::handle { background: %9; border-radius: 4px; margin: 2px; }
QScrollBar::handle:hover { background: %5; }
QScrollBar::handle:vertical { min-height: 28px; }
QScrollBar::handle:horizontal { min-width: 28px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QToolButton { background: %6; color: %1; border: none; border-radius: 2px; }
QToolButton:hover { background: %8; }
QToolButton:disabled { background: transparent; color: %3; }
QFrame#messageFrame { background: %7; border: 1px solid %3; border-radius: 5px; }
QLabel#technical { background: %4; color: %2; border: 1px solid %3; border-radius: 3px;
              padding: 6px; }
QLineEdit#paneField { background: transparent; color: %1; border: none; }
QToolTip { background: %10; color: %1; border: 1px solid %9; padding: 2px; }
QProgressBar { background: %4; border: 1px solid %3; border-radius: 4px; text-align: center; }
QProgressBar::chunk { background: %5; border-radius: 3px; }
)";

QString Sheet() {
  return QString::fromUtf8(kSheet).arg(
      theme::kText.name(), theme::kMutedText.name(), theme::kLine.name(), theme::kField.name(),
      theme::kAccent.name(), ToQColor(controls::palette::kButton).name(),
      ToQColor(controls::palette::kFrame).name(), theme::kAccentGround.name(),
      theme::kBorder.name(), ToQColor(controls::palette::kGridRow).name());
}

}  // namespace

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
