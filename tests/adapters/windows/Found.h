#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <oleacc.h>

#include <algorithm>
#include <string>
#include <vector>

#include "adapters/windows/Com.h"
#include "adapters/windows/Wide.h"
#include "adapters/windows/Window.h"

// How tests find the module's windows: by their titles, and by what they tell screen readers.

namespace test {

using adapters::windows::ComPtr;
using adapters::windows::Utf8;
using adapters::windows::Variant;

inline VARIANT Number(LONG number) {
  VARIANT value{};
  value.vt = VT_I4;
  value.lVal = number;
  return value;
}

inline ComPtr<IAccessible> ClientOf(HWND window) {
  ComPtr<IAccessible> client;
  EXPECT_EQ(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                       __uuidof(IAccessible), client.OutVoid()),
            S_OK);
  return client;
}

/// The window, or a part of it by its number.
struct Node {
  ComPtr<IAccessible> object;
  LONG child = CHILDID_SELF;

  using Text = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);
  std::string Told(Text which) const {
    BSTR text = nullptr;
    (object.Get()->*which)(Number(child), &text);
    const std::string told = text == nullptr ? "" : Utf8(text);
    SysFreeString(text);
    return told;
  }
  std::string Name() const { return Told(&IAccessible::get_accName); }
  std::string Value() const { return Told(&IAccessible::get_accValue); }
  LONG Role() const {
    Variant role;
    EXPECT_EQ(object->get_accRole(Number(child), role.Out()), S_OK);
    return role.Number();
  }
  bool Is(LONG bit) const {
    Variant state;
    EXPECT_EQ(object->get_accState(Number(child), state.Out()), S_OK);
    return (state.Number() & bit) != 0;
  }
  LONG Count() const {
    LONG count = 0;
    EXPECT_EQ(object->get_accChildCount(&count), S_OK);
    return count;
  }
  Node Part(LONG number) const { return {object, number}; }
  void Press() const { EXPECT_EQ(object->accDoDefaultAction(Number(child)), S_OK) << Name(); }
  void TakeFocus() const {
    EXPECT_EQ(object->accSelect(SELFLAG_TAKEFOCUS, Number(child)), S_OK) << Name();
  }
};

inline std::vector<Node> ChildrenOf(const Node& node) {
  std::vector<VARIANT> children(static_cast<std::size_t>(node.Count()));
  LONG obtained = 0;
  AccessibleChildren(node.object.Get(), 0, static_cast<LONG>(children.size()), children.data(),
                     &obtained);
  children.resize(static_cast<std::size_t>(obtained));
  std::vector<Node> nodes;
  for (VARIANT& child : children) {
    if (child.vt == VT_I4) nodes.push_back(node.Part(child.lVal));
    if (child.vt != VT_DISPATCH) continue;
    const auto object = ComPtr<IDispatch>::Adopt(child.pdispVal);
    HWND window = nullptr;
    EXPECT_EQ(
        WindowFromAccessibleObject(object.As<IAccessible>(__uuidof(IAccessible)).Get(), &window),
        S_OK);
    nodes.push_back({ClientOf(window)});
  }
  return nodes;
}

/// An empty one where there is none.
inline Node Named(const Node& within, LONG role, const std::string& name) {
  for (const Node& child : ChildrenOf(within)) {
    if (child.Role() == role && child.Name() == name) return child;
    if (child.Role() != ROLE_SYSTEM_GROUPING) continue;
    if (Node found = Named(child, role, name); found.object) return found;
  }
  return {};
}

/// The shown windows of this thread.
inline std::vector<HWND> ShownWindows() {
  std::vector<HWND> windows;
  const auto add = [](HWND window, LPARAM list) -> BOOL {
    if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), add, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

/// The shown window whose title begins so; null for none.
inline HWND FindForm(const std::string& title) {
  for (const HWND each : ShownWindows()) {
    if (Utf8(adapters::windows::TextOf(each)).starts_with(title)) return each;
  }
  return nullptr;
}

/// The window of a button on a form.
inline HWND FindButton(HWND form, const std::string& caption) {
  HWND window = nullptr;
  const Node button = Named({ClientOf(form)}, ROLE_SYSTEM_PUSHBUTTON, caption);
  EXPECT_TRUE(button.object) << caption;
  WindowFromAccessibleObject(button.object.Get(), &window);
  return window;
}

}  // namespace test
