#pragma once

#include "adapters/windows/Loop.h"
#include "adapters/windows/WinScreen.h"
#include "contract/ScreenFixture.h"

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
  SampleForm host;
};

namespace adapters::windows {

/// The open drop-down of this thread; null for none.
HWND DropDown();

class WinScreenTest : public contract::ScreenTest {
 protected:
  HWND Of(const controls::Control& control) const { return adapter->screen.WindowOf(control); }
  HWND Of(const controls::Form& shown) const { return adapter->screen.WindowOf(shown); }
};

}  // namespace adapters::windows
