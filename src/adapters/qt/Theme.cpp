#include "adapters/qt/Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QStyleFactory>
#include <QTranslator>

#include "adapters/qt/Convert.h"
#include "controls/Control.h"

namespace adapters::qt {

namespace {

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

/// %1 text, %2 muted, %3 line, %4 field, %5 accent, %6 button, %7 frame, %8 refused, %9 accent
/// ground, %10 border, %11 on accent, %12 ground of a note, %13 row of a grid. A disabled button is
/// no more than its caption and a faint line on the form.
constexpr auto kSheet = R"(
QPushButton { background: %6; color: %1; border: 1px solid %10; border-radius: 4px;
              padding: 0px 2px; }
QDialog QPushButton { padding: 4px 14px; min-width: 56px; }
QPushButton:hover { background: %9; border-color: %5; }
QPushButton:pressed { background: %3; }
QPushButton:focus { border: 2px solid %5; }
QPushButton:disabled { background: transparent; color: %2; border-color: %3; }
QLineEdit, QPlainTextEdit { background: %4; color: %1; border: 1px solid %10; border-radius: 3px;
              padding: 0px 3px; selection-background-color: %5; selection-color: %11; }
QLineEdit:focus, QPlainTextEdit:focus { border-color: %5; }
QLineEdit:disabled, QPlainTextEdit:disabled { background: %7; color: %1; border-color: %3; }
QLineEdit[refused="true"] { border: 2px solid %8; }
QComboBox { background: %4; color: %1; border: 1px solid %10; border-radius: 3px;
              padding: 0px 4px; }
QComboBox::drop-down { border: none; width: 22px; }
QComboBox::down-arrow { image: none; }
QComboBox:focus { border-color: %5; }
QComboBox:disabled { background: %7; color: %2; border-color: %3; }
QComboBox QAbstractItemView, QListView { background: %4; color: %1; border: 1px solid %10;
              selection-background-color: %9; selection-color: %1; outline: none; }
QScrollBar { background: %7; border: none; }
QScrollBar:vertical { width: 13px; }
QScrollBar:horizontal { height: 13px; }
QScrollBar::handle { background: %10; border-radius: 4px; margin: 2px; }
QScrollBar::handle:hover { background: %5; }
QScrollBar::handle:vertical { min-height: 28px; }
QScrollBar::handle:horizontal { min-width: 28px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QCheckBox { color: %1; spacing: 6px; }
QCheckBox:disabled { color: %2; }
QCheckBox:focus { color: %5; }
QToolButton { background: %6; color: %1; border: none; border-radius: 2px; }
QToolButton:hover { background: %9; }
QToolButton:disabled { background: transparent; color: %3; }
QFrame#popup { background: %7; border: 1px solid %10; }
QFrame#messageFrame { background: %7; border: 1px solid %3; border-radius: 5px; }
QLabel#technical { background: %4; color: %2; border: 1px solid %3; border-radius: 3px;
              padding: 6px; }
QLabel#note { background: %12; color: %8; border: 1px solid %8; border-radius: 3px;
              padding: 3px 7px; }
QToolTip { background: %13; color: %1; border: 1px solid %10; padding: 2px; }
QProgressBar { background: %4; border: 1px solid %3; border-radius: 4px; text-align: center; }
QProgressBar::chunk { background: %5; border-radius: 3px; }
)";

QString Sheet() {
  return QString::fromUtf8(kSheet).arg(
      theme::kText.name(), theme::kMutedText.name(), theme::kLine.name(), theme::kField.name(),
      theme::kAccent.name(), ToQColor(controls::palette::kButton).name(),
      ToQColor(controls::palette::kFrame).name(), theme::kRefused.name(),
      theme::kAccentGround.name(), theme::kBorder.name(), theme::kOnAccent.name(),
      theme::kNoteGround.name(), ToQColor(controls::palette::kGridRow).name());
}

}  // namespace

void ApplyTheme(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setLayoutDirection(Qt::RightToLeft);
  const bool tahoma = QFontDatabase::families().contains(QStringLiteral("Tahoma"));
  // At 9 points both draw joined Persian that fits the forms' rows of 285 twips.
  QFont font(tahoma ? QStringLiteral("Tahoma") : QStringLiteral("DejaVu Sans"));
  font.setPointSizeF(9);
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
