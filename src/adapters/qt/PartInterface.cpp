#include "adapters/qt/PartInterface.h"

#include "adapters/qt/Convert.h"
#include "adapters/qt/PaneInterface.h"

namespace adapters::qt {

using screens::Accessible;
using screens::Role;

QAccessible::Role RoleOf(const Accessible& told) {
  switch (told.role) {
    case Role::kNone:
      break;
    case Role::kGroup:
      return QAccessible::Grouping;
    case Role::kLabel:
      return QAccessible::StaticText;
    case Role::kSign:
      return QAccessible::Graphic;
    case Role::kField:
      return QAccessible::EditableText;
    case Role::kButton:
      return QAccessible::Button;
    case Role::kCheckBox:
      return QAccessible::CheckBox;
    case Role::kComboBox:
      return QAccessible::ComboBox;
    case Role::kProgressBar:
      return QAccessible::ProgressBar;
    case Role::kTable:
      return QAccessible::Table;
    case Role::kColumnHeading:
      return QAccessible::ColumnHeader;
    case Role::kCell:
      return QAccessible::Cell;
    case Role::kList:
      return QAccessible::List;
    case Role::kListItem:
      return QAccessible::ListItem;
    case Role::kNote:
      return QAccessible::AlertMessage;
    case Role::kDocument:
      return QAccessible::Document;
  }
  return QAccessible::Client;
}

QAccessible::State StateOf(const Accessible& told) {
  QAccessible::State state;
  state.disabled = !told.enabled;
  state.focusable = told.focusable;
  state.focused = told.focused;
  state.selectable = told.selectable;
  state.selected = told.selected;
  state.checkable = told.checkable;
  state.checked = told.checked;
  state.expandable = told.expandable;
  state.expanded = told.expandable && told.expanded;
  state.collapsed = told.expandable && !told.expanded;
  state.readOnly = told.readOnly;
  state.offscreen = told.place.Empty();
  return state;
}

QString TextOf(const Accessible& told, QAccessible::Text which) {
  switch (which) {
    case QAccessible::Name:
      return ToQString(told.role == Role::kCell ? told.value : told.name);
    case QAccessible::Value:
      return ToQString(told.value);
    case QAccessible::Description:
      return ToQString(told.description);
    case QAccessible::Accelerator:
      return ToQString(told.keys);
    default:
      return {};
  }
}

QStringList ActionsOf(const Accessible& told) {
  if (told.action.empty()) return {};
  return {told.checkable ? QAccessibleActionInterface::toggleAction()
                         : QAccessibleActionInterface::pressAction()};
}

Accessible PartInterface::Told() const {
  return pane_.Told(part_);
}

bool PartInterface::isValid() const {
  return pane_.isValid() && part_ < pane_.PartCount();
}

QWindow* PartInterface::window() const {
  return pane_.window();
}

QAccessibleInterface* PartInterface::parent() const {
  return &pane_;
}

QString PartInterface::text(QAccessible::Text which) const {
  return TextOf(Told(), which);
}

QRect PartInterface::rect() const {
  return pane_.OnScreen(Told().place);
}

QAccessible::Role PartInterface::role() const {
  return RoleOf(Told());
}

QAccessible::State PartInterface::state() const {
  QAccessible::State state = StateOf(Told());
  state.invisible = pane_.state().invisible;
  return state;
}

void* PartInterface::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
  if (type == QAccessible::TableCellInterface && Told().row >= 0) {
    return static_cast<QAccessibleTableCellInterface*>(this);
  }
  return nullptr;
}

QStringList PartInterface::actionNames() const {
  return ActionsOf(Told());
}

QString PartInterface::localizedActionDescription(const QString& /*name*/) const {
  return ToQString(Told().action);
}

void PartInterface::doAction(const QString& name) {
  if (actionNames().contains(name)) pane_.Act(part_);
}

bool PartInterface::isSelected() const {
  return Told().selected;
}

QList<QAccessibleInterface*> PartInterface::columnHeaderCells() const {
  if (rowIndex() < 0 || pane_.Told().headingRows == 0) return {};
  return {pane_.Part(Told().column)};
}

int PartInterface::columnIndex() const {
  return Told().column;
}

int PartInterface::rowIndex() const {
  return Told().row - pane_.Told().headingRows;
}

QAccessibleInterface* PartInterface::table() const {
  return &pane_;
}

}  // namespace adapters::qt
