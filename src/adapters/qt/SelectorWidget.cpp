#include "adapters/qt/SelectorWidget.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <numeric>
#include <utility>

#include "adapters/qt/Theme.h"

namespace adapters::qt {

using controls::Aspect;
using controls::Change;
using controls::Selector;

namespace {

constexpr int kShownRows = 12;
constexpr int kRowPadding = 7;
constexpr int kLeastPopupWidth = 260;
constexpr int kMeasuredRows = 200;
constexpr int kRowMargin = 8;
constexpr int kDetailGap = 16;

/// A row of the list: the name at the right, code and the like muted at the left.
class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const override {
    return {100, option.fontMetrics.height() + kRowPadding};
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    if (option.state & QStyle::State_Selected) {
      painter->fillRect(option.rect, theme::kAccentGround);
    } else if (option.state & QStyle::State_MouseOver) {
      painter->fillRect(option.rect, ToQColor(controls::palette::kGridRow));
    }
    const QRect inside = option.rect.adjusted(kRowMargin, 0, -kRowMargin, 0);
    const QString detail = index.data(SelectorRows::kDetail).toString();
    int detailWidth = 0;
    if (!detail.isEmpty()) {
      // What the name leaves; of a long name, a third of the row.
      const int name = option.fontMetrics.horizontalAdvance(index.data().toString());
      // An advance is rounded, also down, and then the text would be shortened.
      detailWidth = std::min(option.fontMetrics.horizontalAdvance(detail) + 1,
                             std::max(inside.width() - name - kDetailGap, inside.width() / 3));
      painter->setPen(theme::kMutedText);
      painter->drawText(QRect(inside.left(), inside.top(), detailWidth, inside.height()),
                        Qt::AlignLeft | Qt::AlignVCenter | Qt::AlignAbsolute,
                        option.fontMetrics.elidedText(detail, Qt::ElideRight, detailWidth));
      detailWidth += kDetailGap;
    }
    const QRect place = inside.adjusted(detailWidth, 0, 0, 0);
    painter->setPen(theme::kText);
    painter->drawText(
        place, Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute,
        option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, place.width()));
  }
};

/// A list that says so when it is empty.
class PopupList : public QListView {
 public:
  using QListView::QListView;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QListView::paintEvent(event);
    if (!model() || model()->rowCount() > 0) return;
    QPainter painter(viewport());
    painter.setPen(theme::kMutedText);
    painter.drawText(viewport()->rect(), Qt::AlignCenter, QStringLiteral("موردي يافت نشد"));
  }
};

}  // namespace

void SelectorRows::Show(const Selector* selector, std::vector<std::size_t> rows) {
  beginResetModel();
  selector_ = selector;
  rows_ = selector ? std::move(rows) : std::vector<std::size_t>();
  endResetModel();
}

int SelectorRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant SelectorRows::data(const QModelIndex& index, int role) const {
  const auto shown = static_cast<std::size_t>(index.row());
  if (!selector_ || shown >= rows_.size() || rows_[shown] >= selector_->List().size()) return {};
  const Selector::Row& row = selector_->List()[rows_[shown]];
  switch (role) {
    case Qt::DisplayRole:
      return ToQString(row.name);
    case kDetail:
      return ToQString(row.detail);
    case kId:
      return row.id;
    default:
      return {};
  }
}

SelectorWidget::SelectorWidget(Selector& model, const Surroundings& surroundings, QWidget* parent)
    : ViewOf(model, surroundings, parent, Sign::kArrow), popup_(new PopupList(this)) {
  popup_->setWindowFlags(Qt::Popup);
  // A click beside the list only closes it, also one on the button that opened it.
  popup_->setAttribute(Qt::WA_NoMouseReplay);
  popup_->setModel(&rows_);
  popup_->setItemDelegate(new RowDelegate(popup_));
  popup_->setUniformItemSizes(true);
  popup_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  popup_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  popup_->setMouseTracking(true);
  popup_->setFocusPolicy(Qt::NoFocus);
  popup_->setFocusProxy(this);
  popup_->installEventFilter(this);
  popup_->hide();
  connect(this, &QLineEdit::textEdited, this, [this] { Typed(); });
  connect(popup_, &QListView::clicked, this, [this] { ChooseCurrent(); });
}

SelectorWidget::~SelectorWidget() {
  popup_->removeEventFilter(this);
}

void SelectorWidget::Detach() {
  ViewOf::Detach();
  edited_ = false;
  rows_.Show(nullptr, {});
  popup_->hide();
}

void SelectorWidget::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) ShowSelected();
  if (change.aspect == Aspect::kEnabled && !Model()->Enabled()) Close(Leaving::kRestore);
  // The model read its list anew or dropped it: rows kept here may not be there any more.
  if (change.aspect == Aspect::kItems && popup_->isVisible())
    ShowRows(edited_ ? text() : QString());
}

void SelectorWidget::ShowSelected() {
  edited_ = false;
  QString name;
  Call([&](Selector& selector) { name = ToQString(selector.DisplayText()); });
  if (name == text()) return;
  setText(name);
  setCursorPosition(0);
}

void SelectorWidget::Typed() {
  edited_ = true;
  if (popup_->isVisible()) {
    ShowRows(text());
  } else if (!text().isEmpty()) {
    Open();
  }
}

void SelectorWidget::Toggle() {
  if (popup_->isVisible()) {
    Close(Leaving::kRestore);
  } else {
    Open();
  }
}

void SelectorWidget::Open() {
  if (!Model() || !isEnabled()) return;
  bool loaded = false;
  Call([&](Selector& selector) {
    selector.LoadList();
    loaded = true;
  });
  if (!loaded || !Model()) return;
  ShowRows(edited_ ? text() : QString());
  popup_->show();
  if (const QModelIndex current = popup_->currentIndex(); current.isValid()) {
    popup_->scrollTo(current, QAbstractItemView::PositionAtCenter);
  }
}

int SelectorWidget::WidthForRows() const {
  const QFontMetrics metrics = popup_->fontMetrics();
  int widest = 0;
  for (int i = 0; i < std::min(rows_.rowCount(), kMeasuredRows); ++i) {
    const QModelIndex row = rows_.index(i);
    const QString detail = row.data(SelectorRows::kDetail).toString();
    widest = std::max(widest, metrics.horizontalAdvance(row.data().toString()) +
                                  metrics.horizontalAdvance(detail));
  }
  const int around =
      kDetailGap + 2 * kRowMargin + popup_->verticalScrollBar()->sizeHint().width() + 4;
  return std::clamp(widest + around, kLeastPopupWidth, screen()->availableGeometry().width());
}

void SelectorWidget::ShowRows(const QString& typed) {
  std::vector<std::size_t> rows;
  const std::vector<Selector::Row>& list = Model()->List();
  if (typed.trimmed().isEmpty()) {
    rows.resize(list.size());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
  } else {
    rows = Model()->Narrow(ToUtf8(typed));
  }
  int current = typed.isEmpty() || rows.empty() ? -1 : 0;
  for (std::size_t i = 0; current < 0 && Model()->HasSelection() && i < rows.size(); ++i) {
    if (list[rows[i]].id == Model()->SelectedID()) current = static_cast<int>(i);
  }
  rows_.Show(Model(), std::move(rows));
  popup_->setCurrentIndex(current < 0 ? QModelIndex() : rows_.index(current));
  const int rowHeight = popup_->fontMetrics().height() + kRowPadding;
  const int shown = std::clamp(rows_.rowCount(), 1, kShownRows);
  popup_->resize(std::max(width(), WidthForRows()), shown * rowHeight + 4);
  popup_->move(PopupPlace(popup_->size()));
}

void SelectorWidget::ChooseCurrent() {
  const QModelIndex current = popup_->currentIndex();
  if (!current.isValid() || !Model()) return;
  const std::size_t row = rows_.ListRow(current.row());
  edited_ = false;
  popup_->hide();
  const bool there = Call([&](Selector& selector) { selector.Choose(row); });
  // The same id again notifies nobody, yet the typed text has to go.
  if (there) ShowSelected();
}

void SelectorWidget::Close(Leaving leaving) {
  popup_->hide();
  if (!edited_ || !Model()) return;
  if (leaving == Leaving::kSettle) {
    Settle();
  } else {
    ShowSelected();
  }
}

void SelectorWidget::Settle() {
  const bool emptied = edited_ && text().trimmed().isEmpty();
  const bool there = !emptied || Call([](Selector& selector) { selector.ChooseNone(); });
  if (edited_ && there) ShowSelected();
}

void SelectorWidget::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (popup_->isVisible() && KeyInPopup(*event)) return;
  if (!popup_->isVisible() && (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up) &&
      event->modifiers() == Qt::NoModifier) {
    Open();
    return;
  }
  if (edited_ && enter) {
    Settle();
    return;
  }
  if (edited_ && event->key() == Qt::Key_Escape) {
    ShowSelected();
    return;
  }
  ViewOf::keyPressEvent(event);
}

bool SelectorWidget::KeyInPopup(QKeyEvent& event) {
  const int count = rows_.rowCount();
  const auto moveBy = [&](int rows) {
    if (count == 0) return;
    const QModelIndex current = popup_->currentIndex();
    const int from = current.isValid() ? current.row() : (rows > 0 ? -1 : count);
    popup_->setCurrentIndex(rows_.index(std::clamp(from + rows, 0, count - 1)));
  };
  if (event.modifiers() & Qt::AltModifier) return false;
  switch (event.key()) {
    case Qt::Key_Down:
      moveBy(1);
      return true;
    case Qt::Key_Up:
      moveBy(-1);
      return true;
    case Qt::Key_PageDown:
      moveBy(kShownRows - 1);
      return true;
    case Qt::Key_PageUp:
      moveBy(1 - kShownRows);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (popup_->currentIndex().isValid()) {
        ChooseCurrent();
      } else {
        Close(Leaving::kSettle);
      }
      return true;
    case Qt::Key_Escape:
      Close(Leaving::kRestore);
      return true;
    default:
      return false;
  }
}

bool SelectorWidget::eventFilter(QObject* watched, QEvent* event) {
  if (watched != popup_) return ViewOf::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    const bool tab = key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
    if (tab) {
      // Leaving with a narrowed list takes the row that stands marked in it.
      if (edited_ && !text().trimmed().isEmpty() && popup_->currentIndex().isValid()) {
        ChooseCurrent();
      } else {
        Close(Leaving::kSettle);
      }
      focusNextPrevChild(key->key() == Qt::Key_Tab);
      return true;
    }
    keyPressEvent(key);
    return true;
  }
  if (event->type() == QEvent::InputMethod) {
    inputMethodEvent(static_cast<QInputMethodEvent*>(event));
    return true;
  }
  if (event->type() == QEvent::MouseButtonPress) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (!popup_->rect().contains(mouse->position().toPoint())) {
      Close(Leaving::kSettle);
      return true;
    }
  }
  return false;
}

void SelectorWidget::focusOutEvent(QFocusEvent* event) {
  // Popups of this program take the focus only for a while; the cursor goes on blinking here.
  if (event->reason() == Qt::PopupFocusReason) return;
  ViewOf::focusOutEvent(event);
  if (edited_ && !popup_->isVisible()) Settle();
}

}  // namespace adapters::qt
