#include "adapters/qt/MessageDialog.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QTextLayout>
#include <QVBoxLayout>

#include "adapters/qt/Convert.h"
#include "adapters/qt/Theme.h"

namespace adapters::qt {

using screens::Answer;

namespace {

constexpr int kBadge = 40;
constexpr int kLeastText = 300;
constexpr int kMostText = 460;

/// A round badge with "i", "?" or "!".
QPixmap Badge(MessageDialog::Kind kind, qreal ratio) {
  const QColor ground = kind == MessageDialog::Kind::kError ? theme::kRefused : theme::kAccent;
  QPixmap pixmap(QSize(kBadge, kBadge) * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(ground);
  painter.setPen(Qt::NoPen);
  painter.drawEllipse(1, 1, kBadge - 2, kBadge - 2);
  QFont font = QGuiApplication::font();
  font.setPixelSize(24);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(theme::kOnAccent);
  painter.drawText(QRect(0, 0, kBadge, kBadge), Qt::AlignCenter, ToQString(screens::SignOf(kind)));
  return pixmap;
}

/// The message in lines of their own. The label would leave the blank at which it broke a line in
/// the line, at its right end; and a carriage return takes room, by which the first letter of a
/// line would be pushed out.
QString Wrapped(const QString& message) {
  QString text = ToQString(screens::ShownMessage(ToUtf8(message)));
  text.remove(QLatin1Char('\r')).replace(QLatin1Char('\n'), QChar::LineSeparator);
  QTextLayout layout(text, QApplication::font());
  QTextOption option;
  option.setTextDirection(Qt::RightToLeft);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QStringList lines;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(kMostText);
    lines << text.mid(line.textStart(), line.textLength()).remove(QChar::LineSeparator).trimmed();
  }
  layout.endLayout();
  return lines.join(QLatin1Char('\n'));
}

void SetGround(QWidget& widget, const QColor& colour) {
  if (!colour.isValid()) return;
  QPalette palette = widget.palette();
  palette.setColor(QPalette::Window, colour);
  widget.setPalette(palette);
  widget.setAutoFillBackground(true);
}

QLabel* TechnicalBox(const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName(QStringLiteral("technical"));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setLayoutDirection(Qt::LeftToRight);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop | Qt::AlignAbsolute);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

}  // namespace

MessageDialog::MessageDialog(const Content& content) : QDialog(QApplication::activeWindow()) {
  setWindowTitle(content.title);
  setWindowModality(Qt::ApplicationModal);
  SetGround(*this, content.formGround);

  auto* frame = new QFrame;
  frame->setObjectName(QStringLiteral("messageFrame"));
  if (content.frameGround.isValid()) {
    frame->setStyleSheet(
        QStringLiteral("QFrame#messageFrame { background: %1; }").arg(content.frameGround.name()));
  }
  auto* badge = new QLabel;
  badge->setPixmap(Badge(content.kind, devicePixelRatioF()));
  auto* message = new QLabel(Wrapped(content.message));
  message->setObjectName(QStringLiteral("message"));
  message->setTextFormat(Qt::PlainText);
  message->setMinimumWidth(kLeastText);
  message->setAlignment(Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute);
  auto* inside = new QVBoxLayout(frame);
  inside->setContentsMargins(18, 16, 18, 16);
  inside->setSpacing(12);
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  row->addWidget(badge, 0, Qt::AlignTop);
  row->addWidget(message, 1);
  inside->addLayout(row);
  if (!content.technical.isEmpty()) inside->addWidget(TechnicalBox(content.technical));

  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  const bool question = content.kind == Kind::kQuestion;
  const Answer ofEnter = question ? screens::AnswerOfEnter(ToUtf8(content.title)) : Answer::kYes;
  const auto addButton = [&](const QString& caption, Answer answer) {
    auto* button = new QPushButton(caption);
    button->setMinimumWidth(88);
    button->setMinimumHeight(28);
    if (content.buttonGround.isValid()) {
      button->setStyleSheet(QStringLiteral("QPushButton:!hover { background: %1; }")
                                .arg(content.buttonGround.name()));
    }
    connect(button, &QPushButton::clicked, this, [this, answer] {
      answer_ = answer;
      accept();
    });
    buttons->addWidget(button);
    if (answer != ofEnter) return;
    button->setDefault(true);
    button->setFocus();
  };
  addButton(question ? QStringLiteral("بله") : QStringLiteral("تأييد"), Answer::kYes);
  if (question) addButton(QStringLiteral("خير"), Answer::kNo);

  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(14, 14, 14, 14);
  all->setSpacing(12);
  all->addWidget(frame, 1);
  all->addLayout(buttons);
  all->setSizeConstraint(QLayout::SetFixedSize);
}

screens::Answer MessageDialog::Run() {
  // An hourglass of the work that asked would hide that the buttons can be pressed.
  QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
  exec();
  QGuiApplication::restoreOverrideCursor();
  return answer_;
}

}  // namespace adapters::qt
