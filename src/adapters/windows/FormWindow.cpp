#include "adapters/windows/FormWindow.h"

#include <dwmapi.h>

#include <algorithm>
#include <utility>

#include "adapters/windows/Wide.h"
#include "adapters/windows/WinSurface.h"
#include "screens/AccessKeys.h"
#include "screens/TabOrder.h"

namespace adapters::windows {

using controls::Aspect;
using controls::Change;
using controls::Control;
using controls::Form;

namespace {

/// DWMWA_USE_IMMERSIVE_DARK_MODE, where Windows knows it.
constexpr DWORD kDarkTitle = 20;
// Not mirrored (WS_EX_LAYOUTRTL): the forms place their controls from the left themselves.
constexpr DWORD kExtendedStyle = WS_EX_RTLREADING | WS_EX_RIGHT | WS_EX_CONTROLPARENT;
constexpr DWORD kFixedStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD kSizableStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME |
                                WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_CLIPCHILDREN;

/// Whether a window within `form` is visible and enabled, with all frames around it.
bool CanTakeFocus(HWND form, HWND window) {
  if (window == nullptr || !IsWindowVisible(window)) return false;
  for (; window != nullptr && window != form; window = GetAncestor(window, GA_PARENT)) {
    if (!IsWindowEnabled(window)) return false;
  }
  return true;
}

/// So that what is typed next takes the place of the whole text, as on every desktop.
void SelectText(HWND field) {
  if (field == nullptr) return;
  if ((SendMessageW(field, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) == 0) return;
  SendMessageW(field, EM_SETSEL, 0, -1);
}

/// As Control::Shortcut names a key (VK_...) that was struck with Ctrl.
std::string ShortcutOf(WPARAM key) {
  if (key == VK_ADD || key == VK_OEM_PLUS) return "+";
  if (key == VK_SUBTRACT || key == VK_OEM_MINUS) return "-";
  return key >= 'A' && key <= 'Z' ? std::string(1, static_cast<char>(key)) : std::string();
}

}  // namespace

FormWindow::FormWindow(Form& form, const Surroundings& surroundings, HWND owner)
    : Window(surroundings.guard),
      form_(&form),
      look_(surroundings.theme.GetScale()),
      surroundings_{surroundings.guard, surroundings.desktop, look_} {
  const bool sizable = form.BorderStyle() == Form::Border::kSizable;
  Create({.style = sizable ? kSizableStyle : kFixedStyle,
          .extendedStyle = kExtendedStyle | (sizable ? 0U : WS_EX_DLGMODALFRAME),
          .parent = owner});
  const BOOL dark = look_.Dark() ? TRUE : FALSE;
  DwmSetWindowAttribute(Handle(), kDarkTitle, &dark, sizeof dark);
  Refresh({Aspect::kText});
  Refresh({Aspect::kBounds});
  MakeWindows(form, Handle());
  subscription_ = form.Subscribe([this](const Change& change) { Refresh(change); });
}

void FormWindow::MakeWindows(const controls::Container& container, HWND parent) {
  for (Control* const control : container.Controls()) {
    auto window = std::make_unique<PaneWindow>(*control, surroundings_, parent);
    const auto* const frame = dynamic_cast<const controls::Frame*>(control);
    if (frame != nullptr) MakeWindows(*frame, window->Handle());
    windows_[control] = std::move(window);
  }
}

FormWindow::~FormWindow() {
  Detach();
}

void FormWindow::Detach() {
  if (!form_) return;
  form_ = nullptr;
  subscription_.Reset();
  for (const auto& [control, window] : windows_) window->Detach();
}

PaneWindow* FormWindow::WindowOf(const Control& control) const {
  const auto found = form_ ? windows_.find(&control) : windows_.end();
  return found == windows_.end() ? nullptr : found->second.get();
}

void FormWindow::Refresh(const Change& change) {
  if (Handle() == nullptr) return;
  if (change.aspect == Aspect::kText) SetWindowTextW(Handle(), Wide(form_->Caption()).c_str());
  if (change.aspect == Aspect::kBounds) FitToForm();
}

SIZE FormWindow::WindowSize(controls::Twips width, controls::Twips height) const {
  const screens::Scale& scale = look_.GetScale();
  RECT place{0, 0, scale.Pixels(width), scale.Pixels(height)};
  AdjustWindowRectEx(&place, static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_STYLE)), FALSE,
                     static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_EXSTYLE)));
  return {place.right - place.left, place.bottom - place.top};
}

void FormWindow::FitToForm() {
  if (IsZoomed(Handle()) || IsIconic(Handle())) return;
  const SIZE wanted = WindowSize(form_->Width(), form_->Height());
  fitting_ = true;
  SetWindowPos(Handle(), nullptr, 0, 0, wanted.cx, wanted.cy,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  fitting_ = false;
}

void FormWindow::Resized() {
  if (fitting_ || !form_ || IsIconic(Handle())) return;
  const screens::Rect inside = ClientArea(Handle());
  const screens::Scale& scale = look_.GetScale();
  form_->Resize(scale.Twips(inside.right, form_->Width()),
                scale.Twips(inside.bottom, form_->Height()));
  Invalidate();
}

void FormWindow::ChangeResolution(int dpi, const RECT& suggested) {
  look_ = Theme(ScaleFor(dpi));
  SetWindowPos(Handle(), nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
               suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
  for (const auto& [control, window] : windows_) window->Rescale();
  Invalidate();
}

void FormWindow::LimitSize(MINMAXINFO& limits) const {
  if (!form_ || form_->BorderStyle() != Form::Border::kSizable) return;
  const SIZE least = WindowSize(form_->MinWidth(), form_->MinHeight());
  limits.ptMinTrackSize.x = std::max(limits.ptMinTrackSize.x, least.cx);
  limits.ptMinTrackSize.y = std::max(limits.ptMinTrackSize.y, least.cy);
}

const Control* FormWindow::Focused() const {
  const HWND focus = GetFocus();
  const auto found = std::ranges::find_if(windows_, [focus](const auto& entry) {
    return focus != nullptr && entry.second->FocusTarget() == focus;
  });
  return found == windows_.end() ? nullptr : found->first;
}

HWND FormWindow::TargetOf(const Control* control) const {
  const PaneWindow* const window = control == nullptr ? nullptr : WindowOf(*control);
  return window == nullptr ? nullptr : window->FocusTarget();
}

void FormWindow::MoveFocus(int step) {
  const HWND target = form_ ? TargetOf(screens::NextStop(*form_, Focused(), step)) : nullptr;
  SetFocus(target != nullptr ? target : Handle());
  SelectText(target);
}

void FormWindow::TakeFirstFocus() {
  if (!form_ || form_->FirstFocus() == nullptr) return;
  lastFocus_ = TargetOf(screens::FirstStop(*form_));
  SelectText(lastFocus_);
}

void FormWindow::FocusOn(const PaneWindow& window) {
  lastFocus_ = window.FocusTarget();
  if (GetActiveWindow() == Handle() && lastFocus_ != nullptr) SetFocus(lastFocus_);
}

void FormWindow::TakeFocus() {
  const HWND before = lastFocus_;
  const bool stillThere = IsChild(Handle(), before) && CanTakeFocus(Handle(), before);
  const HWND target = stillThere || !form_ ? before : TargetOf(screens::FirstStop(*form_));
  if (target != nullptr) SetFocus(target);
}

bool FormWindow::OnKey(WPARAM key) {
  if (!form_) return false;
  if (key == VK_TAB) {
    MoveFocus(Held(VK_SHIFT) ? -1 : 1);
    return true;
  }
  if (Held(VK_CONTROL) && screens::PressShortcut(*form_, ShortcutOf(key))) return true;
  if (key == VK_RETURN) return form_->PressEnter(Focused());
  return key == VK_ESCAPE && form_->PressEscape();
}

bool FormWindow::OnAccessKey(WPARAM unit) {
  const std::string letter = Utf8(std::wstring(1, static_cast<wchar_t>(unit)));
  return form_ && screens::PressAccessKey(*form_, letter, Focused());
}

LRESULT FormWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT: {
      PaintSession surface(Handle(), look_);
      surface.Fill(surface.Dirty(), controls::palette::kFormGround);
      return 0;
    }
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      Resized();
      return 0;
    case WM_DPICHANGED:
      ChangeResolution(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
      return 0;
    case WM_GETMINMAXINFO:
      LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
      return 0;
    case WM_CLOSE:
      if (form_) form_->CloseBox();
      return 0;
    case WM_DESTROY:
      // Somebody else ends the window: the host's frame has gone, and its owned windows with it.
      if (form_) form_->Hide();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) == WA_INACTIVE) {
        if (const HWND focus = GetFocus(); IsChild(Handle(), focus)) lastFocus_ = focus;
      } else if (HIWORD(wParam) == 0) {
        SetFocus(Handle());
      }
      return 0;
    case WM_SETFOCUS:
      TakeFocus();
      return 0;
    case kFormFocusLost:
      MoveFocus(1);
      return 0;
    case kFormKeyDown:
      return OnKey(wParam) ? 1 : 0;
    case WM_KEYDOWN:
      OnKey(wParam);
      return 0;
    case kFormAccessKey:
      return OnAccessKey(wParam) ? 1 : 0;
    case WM_SYSCHAR:
      if (OnAccessKey(wParam)) return 0;
      break;
    case WM_GETOBJECT:
      if (const auto answer = reader_.Answer(Handle(), wParam, lParam)) return *answer;
      break;
    case WM_SETCURSOR:
      if (!busy_) break;
      SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_WAIT)));
      return TRUE;
    default:
      break;
  }
  return Default(message, wParam, lParam);
}

}  // namespace adapters::windows
