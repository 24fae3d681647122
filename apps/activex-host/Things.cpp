#include "Things.h"

#include <oleacc.h>

#include <algorithm>
#include <utility>

#include "adapters/windows/Com.h"
#include "adapters/windows/Wide.h"

namespace activexhost {

using adapters::windows::ComPtr;
using adapters::windows::Variant;
using screens::Role;
using ThingPtr = std::unique_ptr<tour::Thing>;

namespace {

// What a library of that name exports is no identifier.
const IID kAccessible = __uuidof(IAccessible);

constexpr std::pair<LONG, Role> kRoles[] = {
    {ROLE_SYSTEM_GROUPING, Role::kGroup},    {ROLE_SYSTEM_STATICTEXT, Role::kLabel},
    {ROLE_SYSTEM_GRAPHIC, Role::kSign},      {ROLE_SYSTEM_TEXT, Role::kField},
    {ROLE_SYSTEM_PUSHBUTTON, Role::kButton}, {ROLE_SYSTEM_CHECKBUTTON, Role::kCheckBox},
    {ROLE_SYSTEM_COMBOBOX, Role::kComboBox}, {ROLE_SYSTEM_PROGRESSBAR, Role::kProgressBar},
    {ROLE_SYSTEM_TABLE, Role::kTable},       {ROLE_SYSTEM_COLUMNHEADER, Role::kColumnHeading},
    {ROLE_SYSTEM_CELL, Role::kCell},         {ROLE_SYSTEM_LIST, Role::kList},
    {ROLE_SYSTEM_LISTITEM, Role::kListItem}, {ROLE_SYSTEM_ALERT, Role::kNote},
    {ROLE_SYSTEM_DOCUMENT, Role::kDocument}};

Role RoleOf(LONG role) {
  const auto* const found = std::ranges::find(kRoles, role, &std::pair<LONG, Role>::first);
  return found == std::end(kRoles) ? Role::kNone : found->second;
}

VARIANT Number(LONG number) {
  VARIANT value{};
  value.vt = VT_I4;
  value.lVal = number;
  return value;
}

/// A window (CHILDID_SELF) or a part of it, by its number.
class Thing : public tour::Thing {
 public:
  Thing(ComPtr<IAccessible> told, LONG child) : told_(std::move(told)), child_(child) {}

  screens::Accessible Tell() const override {
    const LONG state = Ask(&IAccessible::get_accState, child_);
    const auto is = [state](LONG bit) { return (state & bit) != 0; };
    screens::Accessible tells{.role = RoleAt(child_)};
    tells.name = Text(&IAccessible::get_accName);
    tells.value = Text(&IAccessible::get_accValue);
    tells.description = Text(&IAccessible::get_accDescription);
    tells.keys = Text(&IAccessible::get_accKeyboardShortcut);
    if (!is(STATE_SYSTEM_INVISIBLE) && !is(STATE_SYSTEM_OFFSCREEN)) tells.place = Place();
    tells.enabled = !is(STATE_SYSTEM_UNAVAILABLE);
    tells.focused = is(STATE_SYSTEM_FOCUSED);
    tells.selected = is(STATE_SYSTEM_SELECTED);
    tells.checked = is(STATE_SYSTEM_CHECKED);
    tells.expanded = is(STATE_SYSTEM_EXPANDED);
    return tells;
  }

  std::vector<ThingPtr> Children() const override {
    std::vector<ThingPtr> things;
    const Role role = RoleAt(child_);
    if (child_ != CHILDID_SELF || role == Role::kTable || role == Role::kList) return things;
    std::vector<VARIANT> children(static_cast<std::size_t>(Count()));
    LONG obtained = 0;
    AccessibleChildren(told_.Get(), 0, Count(), children.data(), &obtained);
    children.resize(static_cast<std::size_t>(obtained));
    for (const VARIANT& child : children) {
      if (child.vt == VT_I4) things.push_back(std::make_unique<Thing>(told_, child.lVal));
      if (child.vt != VT_DISPATCH) continue;
      const auto object = ComPtr<IDispatch>::Adopt(child.pdispVal);
      HWND window = nullptr;
      WindowFromAccessibleObject(object.As<IAccessible>(kAccessible).Get(), &window);
      ThingPtr thing = MakeThing(window);
      if (thing) things.push_back(std::move(thing));
    }
    return things;
  }

  int Rows() const override {
    const LONG columns = Columns();
    if (columns > 0) return static_cast<int>(Count() / columns - 1);
    return RoleAt(child_) == Role::kList ? static_cast<int>(Count()) : 0;
  }

  ThingPtr Cell(int row, int column) const override {
    const LONG columns = Columns();
    if (row < 0 || row > Rows() || column < 0 || column >= std::max(columns, LONG{1})) {
      return nullptr;
    }
    return std::make_unique<Thing>(told_, columns == 0 ? row : row * columns + column + 1);
  }

 private:
  using TextOf = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);
  using NumberOf = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, VARIANT*);

  std::string Text(TextOf which) const {
    BSTR text = nullptr;
    (told_.Get()->*which)(Number(child_), &text);
    const std::string told = adapters::windows::Utf8({text, SysStringLen(text)});
    SysFreeString(text);
    return told;
  }
  LONG Ask(NumberOf which, LONG child) const {
    VARIANT answer{};
    (told_.Get()->*which)(Number(child), &answer);
    return answer.vt == VT_I4 ? answer.lVal : 0;
  }
  Role RoleAt(LONG child) const { return RoleOf(Ask(&IAccessible::get_accRole, child)); }
  LONG Count() const {
    LONG count = 0;
    told_->get_accChildCount(&count);
    return count;
  }
  /// Of a table with headings, which come first.
  LONG Columns() const {
    if (RoleAt(child_) != Role::kTable) return 0;
    LONG columns = 0;
    while (columns < Count() && RoleAt(columns + 1) == Role::kColumnHeading) ++columns;
    return columns;
  }
  screens::Rect Place() const {
    LONG left = 0;
    LONG top = 0;
    LONG width = 0;
    LONG height = 0;
    told_->accLocation(&left, &top, &width, &height, Number(child_));
    return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(left + width),
            static_cast<int>(top + height)};
  }

  ComPtr<IAccessible> told_;
  LONG child_;
};

}  // namespace

ThingPtr MakeThing(HWND window) {
  ComPtr<IAccessible> client;
  AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), kAccessible,
                             client.OutVoid());
  if (!client) return nullptr;
  return std::make_unique<Thing>(std::move(client), CHILDID_SELF);
}

}  // namespace activexhost
