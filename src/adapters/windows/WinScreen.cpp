#include "adapters/windows/WinScreen.h"

#include <algorithm>
#include <utility>

#include "adapters/windows/Clipboard.h"
#include "adapters/windows/ModalLoop.h"
#include "adapters/windows/Places.h"
#include "adapters/windows/Wide.h"
#include "adapters/windows/WinSurface.h"
#include "platform/RuntimeError.h"
#include "text/Text.h"

namespace adapters::windows {

using controls::Control;
using controls::Form;
using controls::Modality;
using controls::MousePointer;
using platform::RuntimeError;

namespace {

bool StandsOver(HWND window, HWND below) {
  while (window != nullptr && window != below) window = GetWindow(window, GW_OWNER);
  return window != nullptr;
}

}  // namespace

class WinScreen::Dropper : public Window {
 public:
  Dropper(ErrorGuard& guard, WinScreen& screen) : Window(guard), screen_(screen) {
    Create({.parent = HWND_MESSAGE});
  }
  void Ask() const { PostMessageW(Handle(), WM_APP, 0, 0); }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message != WM_APP) return Default(message, wParam, lParam);
    screen_.DropRetired();
    return 0;
  }

 private:
  WinScreen& screen_;
};

WinScreen::WinScreen(ErrorGuard& guard, const platform::Desktop& desktop, const Theme& theme)
    : surroundings_{guard, desktop, theme}, dropper_(std::make_unique<Dropper>(guard, *this)) {
  guard.SetScreen(this);
}

WinScreen::~WinScreen() {
  surroundings_.guard.SetScreen(nullptr);
  WinScreen::SetMousePointer(MousePointer::kDefault);
}

FormWindow& WinScreen::WindowFor(Form& form, HWND owner) {
  std::unique_ptr<FormWindow>& window = windows_[&form];
  // The one before may have gone with its owner.
  if (window && window->Handle() == nullptr) Retire(std::move(window));
  if (!window) {
    window = std::make_unique<FormWindow>(form, surroundings_, owner);
    window->SetBusy(hourglass_);
    CentreOver(owner, window->Handle());
  }
  return *window;
}

void WinScreen::SetHostWindow(HWND frame) {
  const HWND before = std::exchange(host_, frame);
  if (before == frame) return;
  for (const auto& entry : windows_) {
    const HWND window = entry.second->Handle();
    if (window == nullptr || GetWindow(window, GW_OWNER) != before) continue;
    if (StandsOver(frame, window)) continue;  // Windows hangs where two own each other
    SetWindowLongPtrW(window, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(frame));
  }
}

bool WinScreen::ModalUp() const {
  if (!modal_.empty() || hostModal_) return true;
  // Whoever is modal has disabled the windows around it.
  if (host_ != nullptr && !IsWindowEnabled(host_)) return true;
  return std::ranges::any_of(windows_, [](const auto& entry) {
    const HWND window = entry.second->Handle();
    return window != nullptr && !IsWindowEnabled(window);
  });
}

void WinScreen::Show(Form& form, Modality modality) {
  const bool modal = modality != Modality::kModeless;
  if (!modal && ModalUp()) {
    throw RuntimeError(platform::kNonModalWhileModal,
                       "Can't show non-modal form when modal form is displayed");
  }
  HWND owner = modal ? DialogOwner() : host_;
  if (owner == nullptr) owner = host_;
  FormWindow& shown = WindowFor(form, owner);
  const HWND window = shown.Handle();
  int show = IsIconic(window) ? SW_RESTORE : SW_SHOW;
  if (!IsWindowVisible(window)) shown.TakeFirstFocus();
  if (!IsWindowVisible(window) && owner != window) {
    SetWindowLongPtrW(window, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
    const auto taken = places_ == nullptr ? std::nullopt : TakePlace(window, form.Name(), *places_);
    if (!taken && modal) CentreOver(owner, window);
    if (taken && taken->maximised) show = SW_SHOWMAXIMIZED;
  }
  if (modality == Modality::kModal) return RunModal(form, window, show);
  if (modality == Modality::kWaiting) {
    waiting_.push_back({&form, std::make_unique<ModalLoop>(window)});
  }
  ShowWindow(window, show);
  SetForegroundWindow(window);
}

void WinScreen::RunModal(Form& form, HWND window, int show) {
  ModalLoop loop(window);
  modal_.push_back({&form, &loop});
  ShowWindow(window, show);
  SetForegroundWindow(window);
  const bool ended = loop.Run(window);
  std::erase_if(modal_, [&loop](const ModalRun& run) { return run.loop == &loop; });
  // The program was told to quit while the form was up. (Its window's end hides a form by itself.)
  if (!ended) {
    loop.End();
    form.Hide();
  }
}

void WinScreen::EndModal(const Form& form) {
  for (const ModalRun& run : modal_) {
    if (run.form == &form) run.loop->End();
  }
  const auto waits = [&form](const Waiting& each) { return each.form == &form; };
  if (std::erase_if(waiting_, waits) > 0) ModalLoop::DropInput(nullptr);
}

void WinScreen::Breathe() {
  if (waiting_.empty()) return;
  if (const HWND window = WindowOf(*waiting_.back().form)) ModalLoop::Breathe(window);
}

controls::Twips WinScreen::TextWidth(std::string_view text) const {
  const Theme& look = surroundings_.theme;
  return look.GetScale().Twips(windows::TextWidth(look.Font(), text));
}

controls::Twips WinScreen::LineHeight() const {
  return surroundings_.theme.GetScale().Twips(surroundings_.theme.LineHeight());
}

void WinScreen::Hide(Form& form) {
  EndModal(form);
  if (const HWND window = WindowOf(form)) {
    if (places_ != nullptr) KeepPlace(window, form.Name(), *places_);
    ShowWindow(window, SW_HIDE);
  }
}

void WinScreen::Unload(Form& form) {
  EndModal(form);
  const auto found = windows_.find(&form);
  if (found == windows_.end()) return;
  // The form's own destructor may be what unloads it: no more than its name may be asked.
  std::unique_ptr<FormWindow> window = std::move(found->second);
  windows_.erase(found);
  if (places_ != nullptr) KeepPlace(window->Handle(), form.Name(), *places_);
  window->Detach();
  if (window->Handle() != nullptr) ShowWindow(window->Handle(), SW_HIDE);
  Retire(std::move(window));
}

void WinScreen::Retire(std::unique_ptr<FormWindow> window) {
  retired_.push_back(std::move(window));
  dropper_->Ask();
}

void WinScreen::DropRetired() {
  // One is the message that asks for it. Waiting costs nothing but memory: the next unloading
  // tries again.
  if (surroundings_.guard.Depth() == 1) retired_.clear();
}

void WinScreen::SetFocus(Control& control) {
  const PaneWindow* view = ViewOf(control);
  if (view == nullptr) {
    throw RuntimeError(platform::kInvalidProcedureCall, "Invalid procedure call or argument");
  }
  windows_.at(&control.ParentForm())->FocusOn(*view);
}

void WinScreen::SetMousePointer(MousePointer pointer) {
  const bool hourglass = pointer == MousePointer::kHourglass;
  if (hourglass == hourglass_) return;
  hourglass_ = hourglass;
  for (const auto& [form, window] : windows_) window->SetBusy(hourglass);
  // At once: while a routine works, no message asks for the pointer.
  SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(hourglass ? IDC_WAIT : IDC_ARROW)));
}

void WinScreen::Beep() {
  MessageBeep(MB_OK);
}

void WinScreen::CopyToClipboard(const std::string& text) {
  windows::CopyToClipboard(dropper_->Handle(), Wide(text::Replace(text, "\n", "\r\n")));
}

const Form* WinScreen::FormOf(HWND window) const {
  const auto found = std::ranges::find_if(
      windows_, [window](const auto& entry) { return entry.second->Handle() == window; });
  return found == windows_.end() ? nullptr : found->first;
}

HWND WinScreen::WindowOf(const Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second->Handle();
}

PaneWindow* WinScreen::ViewOf(const Control& control) const {
  const auto found = windows_.find(&control.ParentForm());
  return found == windows_.end() ? nullptr : found->second->WindowOf(control);
}

HWND WinScreen::WindowOf(const Control& control) const {
  const PaneWindow* view = ViewOf(control);
  return view == nullptr ? nullptr : view->Handle();
}

}  // namespace adapters::windows
