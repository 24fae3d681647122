#include "adapters/windows/PaneAccessible.h"

#include <algorithm>
#include <string>
#include <vector>

#include "adapters/windows/ComObject.h"
#include "adapters/windows/PaneView.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

using screens::Accessible;
using screens::Role;
using screens::Tidings;

namespace {

LONG RoleOf(const Accessible& told) {
  switch (told.role) {
    case Role::kNone:
      break;
    case Role::kGroup:
      return ROLE_SYSTEM_GROUPING;
    case Role::kLabel:
      return ROLE_SYSTEM_STATICTEXT;
    case Role::kSign:
      return ROLE_SYSTEM_GRAPHIC;
    case Role::kField:
      return ROLE_SYSTEM_TEXT;
    case Role::kButton:
      return ROLE_SYSTEM_PUSHBUTTON;
    case Role::kCheckBox:
      return ROLE_SYSTEM_CHECKBUTTON;
    case Role::kComboBox:
      return ROLE_SYSTEM_COMBOBOX;
    case Role::kProgressBar:
      return ROLE_SYSTEM_PROGRESSBAR;
    case Role::kTable:
      return ROLE_SYSTEM_TABLE;
    case Role::kColumnHeading:
      return ROLE_SYSTEM_COLUMNHEADER;
    case Role::kCell:
      return ROLE_SYSTEM_CELL;
    case Role::kList:
      return ROLE_SYSTEM_LIST;
    case Role::kListItem:
      return ROLE_SYSTEM_LISTITEM;
    case Role::kNote:
      return ROLE_SYSTEM_ALERT;
    case Role::kDocument:
      return ROLE_SYSTEM_DOCUMENT;
  }
  return ROLE_SYSTEM_CLIENT;
}

LONG StateOf(const Accessible& told) {
  LONG state = 0;
  const auto add = [&state](bool holds, LONG bit) {
    if (holds) state |= bit;
  };
  add(!told.enabled, STATE_SYSTEM_UNAVAILABLE);
  add(told.focusable, STATE_SYSTEM_FOCUSABLE);
  add(told.focused, STATE_SYSTEM_FOCUSED);
  add(told.selectable, STATE_SYSTEM_SELECTABLE);
  add(told.selected, STATE_SYSTEM_SELECTED);
  add(told.checkable && told.checked, STATE_SYSTEM_CHECKED);
  add(told.expandable, told.expanded ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED);
  add(told.readOnly, STATE_SYSTEM_READONLY);
  add(told.place.Empty(), STATE_SYSTEM_OFFSCREEN);
  return state;
}

PaneView* ViewOf(HWND window) {
  return dynamic_cast<PaneView*>(Window::Of(window));
}

screens::Pane* PaneOf(HWND window) {
  const PaneView* const view = ViewOf(window);
  return view == nullptr ? nullptr : view->Shown();
}

/// The windows of panes on a window, those declared first, which lie below, first.
std::vector<HWND> PanesOn(HWND window) {
  std::vector<HWND> panes;
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if (IsWindowVisible(child) && PaneOf(child) != nullptr) panes.push_back(child);
  }
  std::ranges::reverse(panes);
  return panes;
}

/// A form that others wait for: readers read all of it out.
bool IsDialog(HWND form) {
  const HWND owner = GetWindow(form, GW_OWNER);
  return owner != nullptr && !IsWindowEnabled(owner);
}

VARIANT Number(LONG number) {
  VARIANT value{};
  value.vt = VT_I4;
  value.lVal = number;
  return value;
}

HRESULT Give(const std::string& text, BSTR* out) {
  if (out == nullptr) return E_POINTER;
  *out = text.empty() ? nullptr : Bstr(text).Release();
  return text.empty() ? S_FALSE : S_OK;
}

HRESULT GiveWindow(HWND window, DWORD object, IDispatch** out) {
  return AccessibleObjectFromWindow(window, object, IID_IDispatch, reinterpret_cast<void**>(out));
}

HRESULT GiveWindow(HWND window, VARIANT* out) {
  const HRESULT result = GiveWindow(window, static_cast<DWORD>(OBJID_WINDOW), &out->pdispVal);
  out->vt = static_cast<VARTYPE>(SUCCEEDED(result) ? VT_DISPATCH : VT_EMPTY);
  return result;
}

/// Nothing that goes wrong leaves through COM.
template <typename Action>
HRESULT Guarded(Action&& action) noexcept {
  try {
    return action();
  } catch (...) {
    return E_FAIL;
  }
}

/// What readers hold of a window; it may outlive the window.
class WindowAccessible final : public ComObject<IAccessible> {
 public:
  explicit WindowAccessible(HWND window) : window_(window) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
    if (id != IID_IDispatch) return ComObject::QueryInterface(id, object);
    if (object == nullptr) return E_POINTER;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count != nullptr) *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return E_NOTIMPL;
  }

  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
    return GiveWindow(window_, static_cast<DWORD>(OBJID_WINDOW), parent);
  }
  HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
    return Guarded([&] {
      *count = PartCount() + static_cast<LONG>(PanesOn(window_).size());
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override;
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
    return Tell(child, &Accessible::name, name);
  }
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
    return Tell(child, &Accessible::value, value);
  }
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override {
    return Tell(child, &Accessible::description, description);
  }
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* keys) override {
    return Tell(child, &Accessible::keys, keys);
  }
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
    return Tell(child, &Accessible::action, action);
  }
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
    return On(child, [&](const Accessible& told) {
      *role = Number(PaneOf(window_) == nullptr && IsDialog(window_) ? ROLE_SYSTEM_DIALOG
                                                                     : RoleOf(told));
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override;
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR* help) override { return Give({}, help); }
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR*, VARIANT, LONG*) override {
    return DISP_E_MEMBERNOTFOUND;
  }
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override;
  /// The marked rows may be many: each says so itself.
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT*) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override;
  HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                        VARIANT child) override;
  HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override;
  HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override;
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override;
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override;

 private:
  int PartCount() const {
    const screens::Pane* const pane = PaneOf(window_);
    return pane == nullptr ? 0 : pane->PartCount();
  }
  /// Calls action(Accessible) for the window (0) or a part that there is.
  template <typename Action>
  HRESULT On(VARIANT child, Action&& action) const {
    return Guarded([&]() -> HRESULT {
      if (Window::Of(window_) == nullptr) return CO_E_OBJNOTCONNECTED;
      if (child.vt != VT_I4 || child.lVal < 0 || child.lVal > PartCount()) return E_INVALIDARG;
      return action(Told(child.lVal));
    });
  }
  Accessible Told(LONG child) const;
  HRESULT Tell(VARIANT child, std::string Accessible::*text, BSTR* out) const {
    return On(child, [&](const Accessible& told) { return Give(told.*text, out); });
  }
  /// Where the keyboard is while the window has it.
  HWND Target() const {
    const PaneView* const view = ViewOf(window_);
    return view == nullptr ? window_ : view->FocusTarget();
  }

  HWND window_;
};

Accessible WindowAccessible::Told(LONG child) const {
  const screens::Pane* const pane = PaneOf(window_);
  if (child > 0) return pane->DescribePart(child - 1);
  RECT inside{};
  GetClientRect(window_, &inside);
  Accessible told{.name = Utf8(TextOf(window_))};
  if (pane != nullptr) told = pane->Describe();
  told.place = {0, 0, static_cast<int>(inside.right), static_cast<int>(inside.bottom)};
  told.focused = GetFocus() == Target();
  return told;
}

HRESULT WindowAccessible::get_accChild(VARIANT child, IDispatch** object) {
  return Guarded([&]() -> HRESULT {
    *object = nullptr;
    if (child.vt != VT_I4 || child.lVal < 0) return E_INVALIDARG;
    const int parts = PartCount();
    if (child.lVal <= parts) return S_FALSE;  // has no object of its own
    const std::vector<HWND> panes = PanesOn(window_);
    const auto index = static_cast<std::size_t>(child.lVal - parts - 1);
    if (index >= panes.size()) return E_INVALIDARG;
    return GiveWindow(panes[index], static_cast<DWORD>(OBJID_WINDOW), object);
  });
}

HRESULT WindowAccessible::get_accState(VARIANT child, VARIANT* state) {
  return On(child, [&](const Accessible& told) {
    const LONG invisible = IsWindowVisible(window_) ? 0 : STATE_SYSTEM_INVISIBLE;
    *state = Number(StateOf(told) | invisible);
    return S_OK;
  });
}

HRESULT WindowAccessible::get_accFocus(VARIANT* child) {
  return Guarded([&]() -> HRESULT {
    *child = VARIANT{};
    const HWND focus = GetFocus();
    if (focus == nullptr) return S_FALSE;
    if (focus == Target()) {
      const screens::Pane* const pane = PaneOf(window_);
      *child = Number(pane == nullptr ? CHILDID_SELF : pane->FocusedPart() + 1);
      return S_OK;
    }
    for (const HWND pane : PanesOn(window_)) {
      if (focus == pane || IsChild(pane, focus)) return GiveWindow(pane, child);
    }
    return S_FALSE;
  });
}

HRESULT WindowAccessible::accSelect(LONG flags, VARIANT child) {
  return On(child, [&](const Accessible& told) -> HRESULT {
    if (flags != SELFLAG_TAKEFOCUS || child.lVal != CHILDID_SELF) return E_INVALIDARG;
    if (!told.focusable || !told.enabled) return S_FALSE;
    SetFocus(Target());
    return S_OK;
  });
}

HRESULT WindowAccessible::accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                      VARIANT child) {
  return On(child, [&](const Accessible& told) {
    POINT corner{told.place.left, told.place.top};
    ClientToScreen(window_, &corner);
    *left = corner.x;
    *top = corner.y;
    *width = told.place.Width();
    *height = told.place.Height();
    return told.place.Empty() ? S_FALSE : S_OK;
  });
}

HRESULT WindowAccessible::accNavigate(LONG direction, VARIANT start, VARIANT* end) {
  return On(start, [&](const Accessible&) {
    *end = VARIANT{};
    const LONG last = PartCount();
    LONG to = 0;
    if (start.lVal == CHILDID_SELF) {
      if (direction == NAVDIR_FIRSTCHILD) to = 1;
      if (direction == NAVDIR_LASTCHILD) to = last;
    } else {
      if (direction == NAVDIR_NEXT) to = start.lVal + 1;
      if (direction == NAVDIR_PREVIOUS) to = start.lVal - 1;
    }
    if (to < 1 || to > last) return S_FALSE;
    *end = Number(to);
    return S_OK;
  });
}

HRESULT WindowAccessible::accHitTest(LONG left, LONG top, VARIANT* child) {
  return Guarded([&]() -> HRESULT {
    *child = VARIANT{};
    POINT place{left, top};
    RECT inside{};
    ScreenToClient(window_, &place);
    if (!GetClientRect(window_, &inside)) return CO_E_OBJNOTCONNECTED;
    if (!PtInRect(&inside, place)) return S_FALSE;
    const HWND at = ChildWindowFromPointEx(window_, place, CWP_SKIPINVISIBLE);
    if (at != window_ && PaneOf(at) != nullptr) return GiveWindow(at, child);
    const screens::Pane* const pane = PaneOf(window_);
    const screens::Point point{static_cast<int>(place.x), static_cast<int>(place.y)};
    *child = Number(pane == nullptr ? CHILDID_SELF : pane->PartAt(point) + 1);
    return S_OK;
  });
}

HRESULT WindowAccessible::accDoDefaultAction(VARIANT child) {
  return On(child, [&](const Accessible& told) -> HRESULT {
    if (told.action.empty() || !told.enabled) return DISP_E_MEMBERNOTFOUND;
    return PostMessageW(window_, kAct, static_cast<WPARAM>(child.lVal), 0) ? S_OK : E_FAIL;
  });
}

HRESULT WindowAccessible::put_accValue(VARIANT child, BSTR value) {
  return On(child, [&](const Accessible& told) -> HRESULT {
    const HWND field = Target();
    const bool isField = told.role == Role::kField || told.role == Role::kComboBox;
    if (!isField || field == window_) return DISP_E_MEMBERNOTFOUND;
    if (!told.enabled || told.readOnly) return E_ACCESSDENIED;
    return SetWindowTextW(field, value == nullptr ? L"" : value) ? S_OK : E_FAIL;
  });
}

/// What a value that has changed is to readers.
DWORD ValueEvent(const Accessible& told) {
  switch (told.role) {
    case Role::kCheckBox:
      return EVENT_OBJECT_STATECHANGE;
    case Role::kLabel:
    case Role::kSign:
    case Role::kButton:
    case Role::kGroup:
      return EVENT_OBJECT_NAMECHANGE;
    default:
      return EVENT_OBJECT_VALUECHANGE;
  }
}

DWORD EventOf(const screens::Pane& pane, Tidings what, int part) {
  switch (what) {
    case Tidings::kFocus:
      return EVENT_OBJECT_FOCUS;
    case Tidings::kName:
      return EVENT_OBJECT_NAMECHANGE;
    case Tidings::kValue:
      return ValueEvent(pane.Describe());
    case Tidings::kSelection:
      if (part < 0) return EVENT_OBJECT_SELECTIONWITHIN;
      return pane.DescribePart(part).selected ? EVENT_OBJECT_SELECTIONADD
                                              : EVENT_OBJECT_SELECTIONREMOVE;
    case Tidings::kContent:
      return EVENT_OBJECT_REORDER;
    case Tidings::kOpened:
    case Tidings::kClosed:
      break;
  }
  return EVENT_OBJECT_STATECHANGE;
}

}  // namespace

ScreenReaderLink::~ScreenReaderLink() {
  if (object_) CoDisconnectObject(object_.Get(), 0);
}

std::optional<LRESULT> ScreenReaderLink::Answer(HWND window, WPARAM wParam, LPARAM lParam) {
  if (static_cast<LONG>(lParam) != OBJID_CLIENT) return std::nullopt;
  if (!object_) object_ = ComPtr<IAccessible>::Adopt(new WindowAccessible(window));
  return LresultFromObject(__uuidof(IAccessible), wParam, object_.Get());
}

void TellScreenReader(const PaneView& view, Tidings what, int part) {
  const screens::Pane* const pane = view.Shown();
  if (pane == nullptr || !IsWindowVisible(view.Handle())) return;
  const HWND target = view.FocusTarget();
  // That a window has the keyboard Windows tells by itself.
  if (what == Tidings::kFocus && part < 0) return;
  NotifyWinEvent(EventOf(*pane, what, part), part < 0 ? target : view.Handle(), OBJID_CLIENT,
                 part + 1);
  // Once a list is closed, the keyboard is where it was all along.
  if (what == Tidings::kClosed && GetFocus() == target) {
    NotifyWinEvent(EVENT_OBJECT_FOCUS, target, OBJID_CLIENT, CHILDID_SELF);
  }
}

}  // namespace adapters::windows
