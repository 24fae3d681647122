#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "adapters/windows/MessageComponent.h"
#include "adapters/windows/WinScreen.h"
#include "controls/Form.h"

namespace adapters::windows {

class NoonClock : public platform::Clock {
 public:
  std::chrono::sys_days Today() const override { return {}; }
  int MinutesSinceMidnight() const override { return 720; }
};

class SampleForm : public controls::Form {
 public:
  explicit SampleForm(controls::Screen& onScreen) : Form(onScreen, "SampleForm", Border::kSizable) {
    Resize(9000, 6000);
    SetMinimumSize(7500, 4500);
    frame.Move(150, 1500, 8700, 1500);
    int place = 0;
    for (controls::Control* each : std::vector<controls::Control*>{
             &cmdOK, &cmdCancel, &chkActive, &cmbReport, &txtNumber, &txtName}) {
      each->Move(150 + place * 1200, 300, 1050, 300);
      each->SetTabIndex(5 - place++);
    }
    for (const char* title : {"قالب ساده", "قالب ماهانه"}) cmbReport.AddItem(title);
    SetDefaultButton(&cmdOK);
    SetCancelButton(&cmdCancel);
  }
  controls::Button cmdOK{*this, "cmdOK", "تاييد"};
  controls::Button cmdCancel{*this, "cmdCancel", "انصراف"};
  controls::TextBox txtName{*this, "txtName"};
  controls::Frame frame{*this, "frame", "مشخصات"};
  controls::TextBox txtNumber{frame, "txtNumber"};
  controls::ComboBox cmbReport{frame, "cmbReport"};
  controls::CheckBox chkActive{*this, "chkActive", "فعال"};
  int closed = 0;
  int laidOut = 0;

 protected:
  void FormClose() override { ++closed; }
  void FormResize() override { ++laidOut; }
};

/// Runs actions from the message loop, whichever runs.
class Desk : public Window {
 public:
  explicit Desk(ErrorGuard& guard) : Window(guard) { Create({.parent = HWND_MESSAGE}); }
  void Later(std::function<void()> action) {
    actions_.push_back(std::move(action));
    PostMessageW(Handle(), WM_APP, 0, 0);
  }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message != WM_APP) return Default(message, wParam, lParam);
    const auto action = std::move(actions_.front());
    actions_.erase(actions_.begin());
    action();
    return 0;
  }

 private:
  std::vector<std::function<void()>> actions_;
};

/// A form that stands in for the host's frame, and one to show.
class WinScreenTest : public testing::Test {
 protected:
  WinScreenTest() {
    host.Show(controls::Modality::kModeless);
    screen.SetHostWindow(screen.WindowOf(host));
  }
  void Click(const controls::Control& control) {
    SendMessageW(screen.WindowOf(control), BM_CLICK, 0, 0);
  }
  static void Press(WPARAM key) { SendMessageW(GetFocus(), WM_KEYDOWN, key, 0); }
  /// What a host's loop does until nothing is left.
  static void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  /// Runs `action` on the message that comes up next.
  void OnMessageDialog(std::function<void(HWND)> action) {
    desk.Later([action = std::move(action)] {
      ASSERT_EQ(NameOf(GetActiveWindow(), kFormProperty), "MessageDialog");
      action(GetActiveWindow());
    });
  }
  static std::int32_t NumberOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const platform::RuntimeError& error) {
      return error.Number();
    }
    return 0;
  }

  ErrorGuard guard;
  NoonClock clock;
  Theme theme;
  WinScreen screen{guard, clock, theme};
  Desk desk{guard};
  SampleForm host{screen};
  SampleForm form{screen};
};

}  // namespace adapters::windows
