#pragma once

#include "adapters/windows/Found.h"
#include "apps/activex-host/Things.h"

namespace test {

/// What is told of the control on a form that a screen reader finds by role and name; its role is
/// kNone where there is none.
inline screens::Accessible Named(const tour::Thing& within, screens::Role role,
                                 const std::string& name) {
  for (const auto& child : within.Children()) {
    const screens::Accessible told = child->Tell();
    if (told.role == role && told.name == name) return told;
    if (auto inner = Named(*child, role, name); inner.role == role) return inner;
  }
  return {};
}

/// The innermost window in the middle of that control.
inline HWND WindowNamed(HWND form, screens::Role role, const std::string& name) {
  const screens::Accessible told = Named(*activexhost::MakeThing(form), role, name);
  EXPECT_EQ(told.role, role) << name;
  HWND found = nullptr;
  for (HWND inner = form; inner != nullptr && inner != found;) {
    found = inner;
    POINT at{told.place.Middle().x, told.place.Middle().y};
    ScreenToClient(found, &at);
    inner = ChildWindowFromPointEx(found, at, CWP_SKIPINVISIBLE);
  }
  return found;
}

}  // namespace test
