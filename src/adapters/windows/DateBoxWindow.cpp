#include "adapters/windows/DateBoxWindow.h"

#include <optional>

#include "adapters/windows/HeldKey.h"
#include "adapters/windows/MonthPopupWindow.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

using calendar::SolarHijriDate;
using controls::Aspect;
using controls::Change;
using controls::DateBox;

namespace {

constexpr WPARAM kMostCharacters = 20;

std::optional<DateBox::Key> StepKey(WPARAM key) {
  if (Held(VK_SHIFT) || Held(VK_CONTROL)) return std::nullopt;
  switch (key) {
    case VK_UP:
      return DateBox::Key::kUp;
    case VK_DOWN:
      return DateBox::Key::kDown;
    case VK_PRIOR:
      return DateBox::Key::kPageUp;
    case VK_NEXT:
      return DateBox::Key::kPageDown;
    default:
      return std::nullopt;
  }
}

}  // namespace

DateBoxWindow::DateBoxWindow(DateBox& model, const Surroundings& surroundings, HWND parent)
    : WindowOf(model, surroundings),
      frame_(surroundings, FieldFrame::Sign::kCalendar, [this] { Toggle(); }) {
  CreateStandard(L"EDIT", FieldFrame::Plan(parent));
  frame_.Attach(Handle());
  SendMessageW(Handle(), EM_SETLIMITTEXT, kMostCharacters, 0);
}

DateBoxWindow::~DateBoxWindow() = default;

void DateBoxWindow::Detach() {
  WindowOf::Detach();
  edited_ = false;
  ClosePopup();
}

void DateBoxWindow::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) ShowDate();
  if (change.aspect == Aspect::kEnabled && !Model()->Enabled()) {
    ClosePopup();
    if (edited_) ShowDate();
  }
}

void DateBoxWindow::ShowDate() {
  edited_ = false;
  frame_.SetRefused(false);
  frame_.SetText(Wide(Model()->Text()));
}

/// As a tip under the mouse; a tip that the form gave is shown by the form.
void DateBoxWindow::ShowWeekday() {
  if (tip_ || !Model() || !Model()->ToolTip().empty()) return;
  tip_ = std::make_unique<CellTip>(Handle(), Look(), [this] {
    return Model() && !PopupOpen() ? Wide(Model()->WeekdayName()) : std::wstring();
  });
  RECT area{};
  GetClientRect(Handle(), &area);
  tip_->MoveTo(area);
}

bool DateBoxWindow::PopupOpen() const {
  return popup_ && popup_->Visible();
}

void DateBoxWindow::ClosePopup() {
  if (popup_) popup_->Hide();
}

void DateBoxWindow::Toggle() {
  if (PopupOpen()) {
    ClosePopup();
    return;
  }
  if (!Model() || !Enabled() || !Commit() || !Model()) return;
  if (!popup_ || popup_->Handle() == nullptr) {
    popup_ = std::make_unique<MonthPopupWindow>(Around(), Handle());
    popup_->Name(Model()->Name());
    popup_->onLeft = [this] { ClosePopup(); };
    popup_->onPicked = [this](const SolarHijriDate& day) {
      edited_ = false;
      // As if typed: the model decides whether it may change.
      if (Call([&](DateBox& box) { box.EnterTyped(day.Text()); })) ShowDate();
    };
  }
  popup_->Open(Model()->Date(), SolarHijriDate::FromDays(Around().clock.Today()));
}

bool DateBoxWindow::Commit(DateBox::Typing how) {
  if (!edited_ && how == DateBox::Typing::kLeft) return true;
  std::string refusal;
  const std::string typed = Utf8(frame_.Text());
  if (!Call([&](DateBox& box) { refusal = box.EnterTyped(typed, how); })) return true;
  if (refusal.empty()) {
    ShowDate();
    return true;
  }
  frame_.SetRefused(true);
  frame_.ShowNote(Wide(refusal));
  return false;
}

bool DateBoxWindow::OnKey(WPARAM key) {
  if (PopupOpen()) {
    popup_->OnKey(key, Held(VK_CONTROL));
    return true;
  }
  if (key == VK_RETURN && Model() && (edited_ || Model()->onChange)) {
    if (Commit(DateBox::Typing::kEnter)) frame_.SelectAll();
    return true;
  }
  if (edited_ && key == VK_ESCAPE && Model()) {
    frame_.ShowNote({});
    ShowDate();
    return true;
  }
  const auto step = StepKey(key);
  if (!step) return false;
  if (Commit()) Call([&](DateBox& box) { box.PressKey(*step, Around().clock.Today()); });
  return true;
}

LRESULT DateBoxWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const bool popupKey = message == WM_KEYDOWN && PopupOpen();
  if (!popupKey) {
    if (const auto answer = frame_.OnMessage(message, wParam, lParam, Ground())) return *answer;
  }
  switch (message) {
    case WM_KEYDOWN:
      if (OnKey(wParam)) return 0;
      break;
    case WM_CHAR:
      // The keys of an open month page mean no letters.
      if (PopupOpen()) return 0;
      break;
    case WM_MOUSEWHEEL:
      if (PopupOpen()) return SendMessageW(popup_->Handle(), message, wParam, lParam);
      break;
    case WM_MOUSEMOVE:
      ShowWeekday();
      break;
    case WM_SIZE:
      tip_.reset();
      break;
    case WM_NOTIFY:
      if (tip_ && tip_->OnNotify(lParam)) return 0;
      break;
    case WM_ERASEBKGND:
      return Default(message, wParam, lParam);
    case WM_KILLFOCUS: {
      ClosePopup();
      const LRESULT result = Default(message, wParam, lParam);
      // The old date comes back; the note stays a little, so that the user sees why.
      if (edited_ && !Commit() && Model()) ShowDate();
      return result;
    }
    default:
      break;
  }
  return WindowOf::OnMessage(message, wParam, lParam);
}

bool DateBoxWindow::OnParentMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/,
                                    LRESULT& result) {
  if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE) {
    if (frame_.Showing()) return true;
    edited_ = true;
    frame_.SetRefused(false);
    frame_.ShowNote({});
    return true;
  }
  return frame_.OnColours(message, wParam, result);
}

}  // namespace adapters::windows
