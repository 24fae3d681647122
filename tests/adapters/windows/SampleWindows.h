#pragma once

#include <gmock/gmock.h>

#include "adapters/windows/Wide.h"
#include "adapters/windows/WinScreen.h"
#include "calendar/SolarHijriDate.h"
#include "controls/DateBox.h"
#include "controls/FlexGrid.h"
#include "controls/Form.h"
#include "controls/Selector.h"

namespace adapters::windows {

struct SpringClock : platform::Clock {
  std::chrono::sys_days Today() const override {
    return calendar::SolarHijriDate::FromYearMonthDay(1404, 2, 15)->Days();
  }
  int MinutesSinceMidnight() const override { return 600; }
};

struct CitySource : controls::LookupSource {
  platform::RowSet Lookup(const std::string& /*connection*/, const std::string& what) override {
    if (failing) throw platform::RuntimeError(-2147467259, "The server does not answer");
    platform::RowSet rows({"ID", "Name"});
    const char* const names[] = {"مشهد", "نیشابور", "سبزوار", "تهران", "کرج", "شهر ري"};
    for (int i = 0; i < count; ++i) {
      const std::string id = std::to_string(i + 1);
      if (what.find("ID=") != std::string::npos && !what.ends_with("ID=" + id)) continue;
      rows.Append(id);
      rows.Append(names[i % 6]);
    }
    return rows;
  }
  int count = 6;
  bool failing = false;
};

/// A form with the three windows that paint themselves, driven by messages.
class SampleWindows : public testing::Test, public controls::Form {
 protected:
  SampleWindows() : Form(screen, "SampleWindows", Border::kFixed) {
    Resize(9000, 6600);
    datFrom.Move(6000, 150, 1900, 375);
    sltCity.Move(150, 150, 4000, 375);
    cmdCancel.Move(4500, 150, 1200, 375);
    flx.Move(150, 750, 8700, 5700);
    datFrom.SetTabIndex(0);
    sltCity.SetTabIndex(1);
    cmdCancel.onClick = [this] { events.push_back("cancel"); };
    SetCancelButton(&cmdCancel);
    Show(controls::Modality::kModeless);
  }
  ~SampleWindows() override { Unload(); }
  HWND Of(const controls::Control& control) const { return screen.WindowOf(control); }
  static void Press(std::initializer_list<WPARAM> keys, int with = 0) {
    BYTE state[256]{};
    state[with] = with != 0 ? 0x80 : 0;
    SetKeyboardState(state);
    for (const WPARAM key : keys) SendMessageW(GetFocus(), WM_KEYDOWN, key, 0);
    state[with] = 0;
    SetKeyboardState(state);
  }

  ErrorGuard guard;
  SpringClock clock;
  CitySource cities;
  Theme theme{Scale(96)};
  WinScreen screen{guard, clock, theme};
  controls::DateBox datFrom{*this, "datFrom"};
  controls::Selector sltCity{*this, "sltCity", cities};
  controls::FlexGrid flx{*this, "flx"};
  controls::Button cmdCancel{*this, "cmdCancel", "انصراف"};
  std::vector<std::string> events;
};

}  // namespace adapters::windows
