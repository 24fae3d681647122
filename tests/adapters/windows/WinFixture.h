#pragma once

#include "adapters/windows/WinScreen.h"
#include "contract/ScreenFixture.h"
#include "screens/DatePane.h"
#include "screens/GridPane.h"
#include "screens/SelectorPane.h"

namespace adapters::windows {

/// What a host's loop does until nothing is left.
void Pump();
/// A click of the mouse, through the message loop.
void ClickAt(HWND window, int x, int y);
/// The pane of a control's window.
template <typename PaneType>
PaneType& PaneIn(HWND window) {
  return dynamic_cast<PaneType&>(*dynamic_cast<PaneView&>(*Window::Of(window)).Shown());
}

/// Runs an action once from the message loop, whichever runs, also one that has messages for the
/// active window alone.
class Errand : public Window {
 public:
  Errand(ErrorGuard& guard, std::function<void()> action)
      : Window(guard), action_(std::move(action)) {
    const HWND active = GetActiveWindow();
    Create({.style = active == nullptr ? 0UL : WS_CHILD,
            .parent = active == nullptr ? HWND_MESSAGE : active});
    PostMessageW(Handle(), WM_APP, 0, 0);
  }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message != WM_APP) return Default(message, wParam, lParam);
    action_();
    return 0;
  }

 private:
  std::function<void()> action_;
};

}  // namespace adapters::windows

/// With a form that stands in for the host's frame.
struct contract::ScreenTest::Adapter {
  Adapter(const platform::Desktop& desktop, controls::LookupSource& source)
      : screen(guard, desktop, theme), host(screen, source) {
    host.Show(controls::Modality::kModeless);
    screen.SetHostWindow(screen.WindowOf(host));
  }
  adapters::windows::ErrorGuard guard;
  adapters::windows::Theme theme{screens::Scale(96)};
  adapters::windows::WinScreen screen;
  std::vector<std::unique_ptr<adapters::windows::Errand>> errands;
  SampleForm host;
};

namespace adapters::windows {

class WinScreenTest : public contract::ScreenTest {
 protected:
  HWND Of(const controls::Control& control) const { return adapter->screen.WindowOf(control); }
  HWND Of(const controls::Form& shown) const { return adapter->screen.WindowOf(shown); }
};

}  // namespace adapters::windows
