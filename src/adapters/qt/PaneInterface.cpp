#include "adapters/qt/PaneInterface.h"

#include <QCoreApplication>

#include "adapters/qt/Convert.h"
#include "adapters/qt/PaneField.h"
#include "adapters/qt/PartInterface.h"

namespace adapters::qt {

using screens::Accessible;
using screens::Role;

PaneInterface::PaneInterface(PaneView& view) : QAccessibleWidget(&view) {}

PaneInterface::~PaneInterface() {
  ForgetParts();
}

PaneView* PaneInterface::View() const {
  return dynamic_cast<PaneView*>(widget());
}

const screens::Pane* PaneInterface::Pane() const {
  const PaneView* const view = View();
  return view == nullptr ? nullptr : view->ContentOrNull();
}

Accessible PaneInterface::Told(int part) const {
  const screens::Pane* const pane = Pane();
  if (pane == nullptr || part >= pane->PartCount()) return {};
  return part < 0 ? pane->Describe() : pane->DescribePart(part);
}

int PaneInterface::PartCount() const {
  const screens::Pane* const pane = Pane();
  if (pane == nullptr) return 0;
  const int count = pane->PartCount();
  // The field that is a part is there by itself.
  const bool hasPart =
      HasField() && count > 0 && pane->DescribePart(count - 1).role == Role::kField;
  return hasPart ? count - 1 : count;
}

QAccessibleInterface* PaneInterface::Part(int part) {
  if (part < 0 || part >= PartCount()) return nullptr;
  const auto found = parts_.find(part);
  if (found != parts_.end()) return QAccessible::accessibleInterface(found->second);
  auto* const made = new PartInterface(*this, part);
  parts_[part] = QAccessible::registerAccessibleInterface(made);
  return made;
}

void PaneInterface::ForgetParts() {
  for (const auto& [part, id] : std::exchange(parts_, {})) {
    QAccessible::deleteAccessibleInterface(id);
  }
}

QRect PaneInterface::OnScreen(const screens::Rect& place) const {
  const PaneView* const view = View();
  if (view == nullptr || place.Empty()) return {};
  const QRect on = view->OnViewport(place);
  return {view->viewport()->mapToGlobal(on.topLeft()), on.size()};
}

void PaneInterface::Act(int part) {
  if (View() != nullptr) QCoreApplication::postEvent(View(), new ActEvent(part));
}

QList<QWidget*> PaneInterface::Widgets() const {
  QList<QWidget*> widgets;
  PaneView* const view = View();
  if (view == nullptr) return widgets;
  for (const QWidget* around : {static_cast<QWidget*>(view), view->viewport()}) {
    for (QWidget* each : around->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      const bool shown = each->isWindow() ? each->isVisible() : !each->isHidden();
      const bool ours =
          dynamic_cast<PaneView*>(each) != nullptr || dynamic_cast<PaneField*>(each) != nullptr;
      if (shown && ours) widgets.append(each);
    }
  }
  return widgets;
}

bool PaneInterface::HasField() const {
  PaneView* const view = View();
  return view != nullptr && &view->KeyReceiver() != view;
}

bool PaneInterface::HasKeyboard() const {
  return widget()->hasFocus() && !HasField();
}

int PaneInterface::childCount() const {
  return static_cast<int>(Widgets().size()) + PartCount();
}

QAccessibleInterface* PaneInterface::child(int index) const {
  const QList<QWidget*> widgets = Widgets();
  if (index < 0) return nullptr;
  if (index < widgets.size()) return QAccessible::queryAccessibleInterface(widgets[index]);
  return const_cast<PaneInterface*>(this)->Part(index - static_cast<int>(widgets.size()));
}

int PaneInterface::indexOfChild(const QAccessibleInterface* child) const {
  if (child == nullptr) return -1;
  const QList<QWidget*> widgets = Widgets();
  if (const auto* part = dynamic_cast<const PartInterface*>(child)) {
    return part->parent() == this ? static_cast<int>(widgets.size()) + part->Part() : -1;
  }
  return static_cast<int>(widgets.indexOf(static_cast<QWidget*>(child->object())));
}

QAccessibleInterface* PaneInterface::childAt(int x, int y) const {
  for (QWidget* each : Widgets()) {
    if (QRect(each->mapToGlobal(QPoint()), each->size()).contains(x, y)) {
      return QAccessible::queryAccessibleInterface(each);
    }
  }
  PaneView* const view = View();
  const screens::Pane* const pane = Pane();
  if (view == nullptr || pane == nullptr) return nullptr;
  const QPoint at = view->viewport()->mapFromGlobal(QPoint(x, y));
  return const_cast<PaneInterface*>(this)->Part(pane->PartAt(view->ToPane(at)));
}

/// The viewport between a frame and what stands in it is nothing of its own.
QAccessibleInterface* PaneInterface::parent() const {
  QWidget* const parent = widget()->parentWidget();
  auto* const around =
      parent == nullptr ? nullptr : dynamic_cast<PaneView*>(parent->parentWidget());
  if (around != nullptr && around->viewport() == parent) {
    return QAccessible::queryAccessibleInterface(around);
  }
  return QAccessibleWidget::parent();
}

QAccessibleInterface* PaneInterface::focusChild() const {
  if (const screens::Pane* const pane = Pane(); pane != nullptr && HasKeyboard()) {
    auto* const part = const_cast<PaneInterface*>(this)->Part(pane->FocusedPart());
    if (part != nullptr) return part;
  }
  return QAccessibleWidget::focusChild();
}

QString PaneInterface::text(QAccessible::Text which) const {
  return TextOf(Told(), which);
}

QAccessible::Role PaneInterface::role() const {
  const Accessible told = Told();
  // The field in it is the field.
  if (told.role == Role::kField && HasField()) return QAccessible::Client;
  return RoleOf(told);
}

QAccessible::State PaneInterface::state() const {
  QAccessible::State state = StateOf(Told());
  state.invisible = !widget()->isVisible();
  state.offscreen = false;
  state.focusable = state.focusable && !HasField();
  state.focused = HasKeyboard();
  return state;
}

void* PaneInterface::interface_cast(QAccessible::InterfaceType type) {
  const Role told = Told().role;
  if (type == QAccessible::TableInterface && told == Role::kTable) return &table_;
  if (type == QAccessible::ValueInterface && told == Role::kProgressBar) return &progress_;
  if (type == QAccessible::TextInterface && told == Role::kComboBox && !HasField()) {
    return &valueText_;
  }
  return QAccessibleWidget::interface_cast(type);
}

QStringList PaneInterface::actionNames() const {
  QStringList names = ActionsOf(Told());
  if (Told().focusable && widget()->isEnabled()) names.append(setFocusAction());
  return names;
}

QString PaneInterface::localizedActionDescription(const QString& name) const {
  return name == setFocusAction() ? QString() : ToQString(Told().action);
}

void PaneInterface::doAction(const QString& name) {
  if (name == setFocusAction()) {
    QAccessibleWidget::doAction(name);
  } else if (widget()->isEnabled() && actionNames().contains(name)) {
    Act(-1);
  }
}

QStringList PaneInterface::keyBindingsForAction(const QString& name) const {
  const std::string keys = Told().keys;
  return name == setFocusAction() || keys.empty() ? QStringList() : QStringList{ToQString(keys)};
}

QAccessibleInterface* PaneInterface::Table::cellAt(int row, int column) const {
  const Accessible table = pane_.Told();
  if (row < 0 || column < 0 || column >= table.columns) return nullptr;
  return pane_.Part((row + table.headingRows) * table.columns + column);
}

int PaneInterface::Table::rowCount() const {
  const Accessible table = pane_.Told();
  return table.rows - table.headingRows;
}

QString PaneInterface::Table::columnDescription(int column) const {
  const Accessible table = pane_.Told();
  if (table.headingRows == 0 || column < 0 || column >= table.columns) return {};
  return ToQString(pane_.Told(column).name);
}

int PaneInterface::Table::selectedCellCount() const {
  return selectedRowCount() * columnCount();
}

QList<QAccessibleInterface*> PaneInterface::Table::selectedCells() const {
  QList<QAccessibleInterface*> cells;
  for (const int row : selectedRows()) {
    for (int column = 0; column < columnCount(); ++column) cells.append(cellAt(row, column));
  }
  return cells;
}

QList<int> PaneInterface::Table::selectedRows() const {
  QList<int> rows;
  for (int row = 0; row < rowCount(); ++row) {
    if (isRowSelected(row)) rows.append(row);
  }
  return rows;
}

bool PaneInterface::Table::isRowSelected(int row) const {
  const Accessible table = pane_.Told();
  return row >= 0 && pane_.Told((row + table.headingRows) * table.columns).selected;
}

QString PaneInterface::ValueText::text(int start, int end) const {
  return pane_.text(QAccessible::Value).mid(start, end < 0 ? -1 : end - start);
}

int PaneInterface::ValueText::characterCount() const {
  return static_cast<int>(pane_.text(QAccessible::Value).size());
}

QString PaneInterface::ValueText::attributes(int /*offset*/, int* start, int* end) const {
  *start = 0;
  *end = characterCount();
  return {};
}

QVariant PaneInterface::Progress::currentValue() const {
  return pane_.text(QAccessible::Value).remove('%').toInt();
}

}  // namespace adapters::qt
