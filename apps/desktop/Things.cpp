#include "Things.h"

#include <QAccessible>
#include <algorithm>
#include <utility>

#include "adapters/qt/Convert.h"

namespace desktop {

using adapters::qt::ToRect;
using adapters::qt::ToUtf8;
using screens::Role;
using ThingPtr = std::unique_ptr<tour::Thing>;

namespace {

constexpr std::pair<QAccessible::Role, Role> kRoles[] = {
    {QAccessible::Grouping, Role::kGroup},    {QAccessible::StaticText, Role::kLabel},
    {QAccessible::Graphic, Role::kSign},      {QAccessible::EditableText, Role::kField},
    {QAccessible::Button, Role::kButton},     {QAccessible::CheckBox, Role::kCheckBox},
    {QAccessible::ComboBox, Role::kComboBox}, {QAccessible::ProgressBar, Role::kProgressBar},
    {QAccessible::Table, Role::kTable},       {QAccessible::ColumnHeader, Role::kColumnHeading},
    {QAccessible::Cell, Role::kCell},         {QAccessible::List, Role::kList},
    {QAccessible::ListItem, Role::kListItem}, {QAccessible::AlertMessage, Role::kNote},
    {QAccessible::Document, Role::kDocument}};

Role RoleOf(QAccessible::Role role) {
  const auto* const found =
      std::ranges::find(kRoles, role, &std::pair<QAccessible::Role, Role>::first);
  return found == std::end(kRoles) ? Role::kNone : found->second;
}

class Thing : public tour::Thing {
 public:
  explicit Thing(QAccessibleInterface& told) : told_(told) {}

  screens::Accessible Tell() const override {
    const QAccessible::State state = told_.state();
    screens::Accessible tells{.role = RoleOf(told_.role())};
    tells.name = ToUtf8(told_.text(QAccessible::Name));
    tells.value = ToUtf8(told_.text(QAccessible::Value));
    tells.description = ToUtf8(told_.text(QAccessible::Description));
    tells.keys = ToUtf8(told_.text(QAccessible::Accelerator));
    if (state.invisible == 0 && state.offscreen == 0) tells.place = ToRect(told_.rect());
    tells.enabled = state.disabled == 0;
    tells.focused = state.focused != 0;
    tells.selected = state.selected != 0;
    tells.checked = state.checked != 0;
    tells.expanded = state.expanded != 0;
    return tells;
  }

  std::vector<ThingPtr> Children() const override {
    std::vector<ThingPtr> children;
    if (IsList() || told_.tableInterface() != nullptr) return children;
    for (int i = 0; i < told_.childCount(); ++i) {
      if (ThingPtr child = Make(told_.child(i))) children.push_back(std::move(child));
    }
    return children;
  }

  int Rows() const override {
    if (IsList()) return told_.childCount();
    QAccessibleTableInterface* const table = told_.tableInterface();
    return table == nullptr ? 0 : table->rowCount();
  }

  ThingPtr Cell(int row, int column) const override {
    if (row < 0 || row > Rows()) return nullptr;
    if (IsList()) return row == 0 ? nullptr : Make(told_.child(row - 1));
    QAccessibleTableInterface* const table = told_.tableInterface();
    if (table == nullptr) return nullptr;
    QAccessibleInterface* const cell = table->cellAt(std::max(row, 1) - 1, column);
    if (row > 0 || cell == nullptr) return Make(cell);
    QAccessibleTableCellInterface* const below = cell->tableCellInterface();
    return below == nullptr ? nullptr : Make(below->columnHeaderCells().value(0));
  }

 private:
  bool IsList() const { return told_.role() == QAccessible::List; }
  static ThingPtr Make(QAccessibleInterface* told) {
    return told == nullptr ? nullptr : std::make_unique<Thing>(*told);
  }

  QAccessibleInterface& told_;
};

}  // namespace

ThingPtr MakeThing(QWidget& window) {
  return std::make_unique<Thing>(*QAccessible::queryAccessibleInterface(&window));
}

}  // namespace desktop
