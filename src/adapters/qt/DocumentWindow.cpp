#include "adapters/qt/DocumentWindow.h"

#include <QApplication>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableWidget>
#include <QVBoxLayout>

#include "adapters/qt/Convert.h"
#include "adapters/qt/Theme.h"

namespace adapters::qt {

namespace {

using Column = AccountingDocument::Column;

constexpr int kRowHeight = 26;
constexpr int kNarrowestColumn = 48;
constexpr int kWidth = 920;
constexpr int kFewestRows = 6;
constexpr int kMostRows = 16;

bool IsAmount(int column) {
  return column == Column::kDebit || column == Column::kCredit;
}

/// The side on which a line has nothing stays empty.
QString LineAmount(const QString& amount) {
  const QString grouped = GroupedAmount(amount);
  return grouped == QLatin1String("0") ? QString() : grouped;
}

QLineEdit* ReadOnlyField(const QString& text, const char* name) {
  auto* field = new QLineEdit(text);
  field->setObjectName(QLatin1String(name));
  field->setReadOnly(true);
  field->setAlignment(Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute);
  field->setCursorPosition(0);
  field->setMinimumHeight(kRowHeight);
  return field;
}

QLabel* Caption(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  return label;
}

QFrame* Head(const AccountingDocument& document) {
  auto* frame = new QFrame;
  frame->setObjectName(QStringLiteral("messageFrame"));
  auto* grid = new QGridLayout(frame);
  grid->setContentsMargins(14, 12, 14, 12);
  grid->setHorizontalSpacing(10);
  grid->addWidget(Caption(QStringLiteral("شماره سند")), 0, 0);
  grid->addWidget(ReadOnlyField(document.code, "code"), 0, 1);
  grid->addWidget(Caption(QStringLiteral("تاريخ سند")), 0, 2);
  grid->addWidget(ReadOnlyField(document.date, "date"), 0, 3);
  grid->addWidget(Caption(QStringLiteral("شرح سند")), 1, 0);
  grid->addWidget(ReadOnlyField(document.description, "description"), 1, 1, 1, 4);
  grid->setColumnMinimumWidth(1, 130);
  grid->setColumnMinimumWidth(3, 130);
  grid->setColumnStretch(4, 1);
  return frame;
}

QTableWidget* Lines(const AccountingDocument& document) {
  auto* table = new QTableWidget(static_cast<int>(document.lines.size()), Column::kColumns);
  table->setHorizontalHeaderLabels({QStringLiteral("رديف"), QStringLiteral("كد حساب"),
                                    QStringLiteral("نام حساب"), QStringLiteral("شعبه"),
                                    QStringLiteral("شرح"), QStringLiteral("بدهكار"),
                                    QStringLiteral("بستانكار")});
  for (int row = 0; row < table->rowCount(); ++row) {
    const AccountingDocument::Line& line = document.lines[static_cast<std::size_t>(row)];
    for (int column = 0; column < Column::kColumns; ++column) {
      const QString& text = line[static_cast<std::size_t>(column)];
      auto* item = new QTableWidgetItem(IsAmount(column) ? LineAmount(text) : text);
      const bool centred = column == Column::kRow || column == Column::kAccountCode;
      // Amounts too, so that their units stand one below the other.
      item->setTextAlignment(Qt::AlignVCenter | Qt::AlignAbsolute |
                             (centred ? Qt::AlignHCenter : Qt::AlignRight));
      item->setToolTip(item->text());
      table->setItem(row, column, item);
    }
  }
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setAlternatingRowColors(true);
  table->setWordWrap(false);
  table->setCornerButtonEnabled(false);
  table->setTabKeyNavigation(false);
  table->verticalHeader()->hide();
  table->verticalHeader()->setDefaultSectionSize(kRowHeight);
  QHeaderView& header = *table->horizontalHeader();
  header.setHighlightSections(false);
  header.setMinimumHeight(kRowHeight + 2);
  header.setMinimumSectionSize(kNarrowestColumn);
  const int rows = qBound(kFewestRows, table->rowCount(), kMostRows);
  table->setMinimumHeight((kFewestRows + 1) * kRowHeight + 8);
  table->resize(kWidth, (rows + 1) * kRowHeight + 8);
  table->setStyleSheet(QStringLiteral("QTableWidget { border: 1px solid %1; gridline-color: %2; }"
                                      "QTableWidget::item { padding: 0px 7px; }"
                                      "QHeaderView::section { background: %3; color: %4;"
                                      " border: none; border-bottom: 1px solid %1; padding: 4px; }")
                           .arg(theme::kLine.name(), theme::kFaintLine.name(),
                                ToQColor(controls::palette::kButton).name(), theme::kText.name()));
  table->resizeColumnsToContents();  // after the sheet, which has a say in it
  header.setSectionResizeMode(Column::kDescription, QHeaderView::Stretch);
  return table;
}

QLabel* Sum(const QString& caption, const QString& amount, const char* name) {
  auto* label = new QLabel(caption + QLatin1String(": ") + GroupedAmount(amount));
  label->setObjectName(QLatin1String(name));
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  QFont font = label->font();
  font.setBold(true);
  label->setFont(font);
  return label;
}

}  // namespace

QString GroupedAmount(const QString& amount) {
  static const QRegularExpression number(QStringLiteral("^(-?)(\\d+)(?:\\.(\\d*?)0*)?$"));
  if (amount.isEmpty()) return QStringLiteral("0");
  const QRegularExpressionMatch match = number.match(amount);
  if (!match.hasMatch()) return amount;
  QString whole = match.captured(2);
  for (qsizetype at = whole.size() - 3; at > 0; at -= 3) whole.insert(at, QLatin1Char(','));
  const QString decimals = match.captured(3);
  return match.captured(1) + whole + (decimals.isEmpty() ? QString() : QLatin1Char('.') + decimals);
}

DocumentWindow::DocumentWindow(const AccountingDocument& document)
    : QDialog(QApplication::activeWindow()) {
  setWindowTitle(QStringLiteral("سند حسابداري ") + document.code);
  setWindowModality(Qt::ApplicationModal);
  QTableWidget* lines = Lines(document);

  auto* foot = new QHBoxLayout;
  foot->setSpacing(28);
  foot->addWidget(Sum(QStringLiteral("جمع بدهكار"), document.debit, "debit"));
  foot->addWidget(Sum(QStringLiteral("جمع بستانكار"), document.credit, "credit"));
  foot->addStretch(1);
  auto* close = new QPushButton(QStringLiteral("بستن"));
  close->setMinimumSize(88, 28);
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  foot->addWidget(close);

  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(14, 14, 14, 14);
  all->setSpacing(12);
  all->addWidget(Head(document));
  all->addWidget(lines, 1);
  all->addLayout(foot);
  resize(kWidth, lines->height() + 190);
  close->setFocus();
}

void DocumentWindow::Run() {
  // An hourglass of the work that asked would hide that the window can be used.
  QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
  exec();
  QGuiApplication::restoreOverrideCursor();
}

}  // namespace adapters::qt
