#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

#include "adapters/windows/ScreenFixture.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {
namespace {

using controls::Modality;
using platform::RuntimeError;

TEST_F(WinScreenTest, ShowModal_FormHidesOrUnloadsItselfInItsClick_ReturnsAndEnablesTheOthers) {
  for (const bool unload : {false, true}) {
    const HWND hostWindow = screen.WindowOf(host);
    HWND button = nullptr;
    form.cmdOK.onClick = [&] {
      button = screen.WindowOf(form.cmdOK);
      unload ? form.Unload() : form.Hide();
      EXPECT_TRUE(IsWindow(button)) << "the click returns to it";
    };
    bool hostTookInput = true;
    std::int32_t modeless = 0;
    SampleForm other(screen);
    desk.Later([&] {
      hostTookInput = IsWindowEnabled(hostWindow);
      modeless = NumberOf([&] { other.Show(Modality::kModeless); });
      Click(form.cmdOK);
    });
    form.Show(Modality::kModal);
    EXPECT_FALSE(hostTookInput);
    EXPECT_EQ(modeless, 401);
    EXPECT_TRUE(IsWindowEnabled(hostWindow));
    EXPECT_EQ(GetActiveWindow(), hostWindow) << "the form's owner comes to the front";
    Pump();
    EXPECT_EQ(screen.WindowOf(form) == nullptr, unload);
    EXPECT_EQ(IsWindow(button) == FALSE, unload) << "an unloaded form's windows go in the end";
  }
  form.Show(Modality::kModeless);
  EXPECT_TRUE(IsWindowVisible(screen.WindowOf(form)));
}

TEST_F(WinScreenTest, ShowModeless_WhileTheHostIsModal_Throws401) {
  EnableWindow(screen.WindowOf(host), FALSE);
  EXPECT_EQ(NumberOf([&] { form.Show(Modality::kModeless); }), 401);
  EnableWindow(screen.WindowOf(host), TRUE);
  screen.SetHostModal(true);
  EXPECT_EQ(NumberOf([&] { form.Show(Modality::kModeless); }), 401);
  EXPECT_FALSE(form.Visible());
}

TEST_F(WinScreenTest, ModalForm_ProgramQuitsOrOwnerEnds_IsHidden) {
  desk.Later([] { PostQuitMessage(7); });
  form.Show(Modality::kModal);
  EXPECT_FALSE(form.Visible());
  MSG message;
  ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 7U) << "the host's loop hears of it too";
  desk.Later([&] { DestroyWindow(screen.WindowOf(host)); });
  form.Show(Modality::kModal);
  EXPECT_FALSE(form.Visible());
  EXPECT_FALSE(host.Visible());
}

TEST_F(WinScreenTest, Keys_InAModelessForm_TypeTabAndPressDefaultAndCancel) {
  form.Show(Modality::kModeless);
  std::vector<std::string> heard;
  form.txtName.onChange = [&] { heard.push_back(form.txtName.Text()); };
  form.cmdOK.onClick = [&] { heard.emplace_back("OK"); };
  form.cmdCancel.onClick = [&] { heard.emplace_back("Cancel"); };
  form.chkActive.SetEnabled(false);
  form.txtName.SetFocus();
  for (const wchar_t letter : {L'ش', L'ي'}) SendMessageW(GetFocus(), WM_CHAR, letter, 0);
  Press(VK_RETURN);
  Press(VK_ESCAPE);
  EXPECT_THAT(heard, testing::ElementsAre("ش", "شي", "OK", "Cancel"));
  std::vector<std::string> visited;
  for (int i = 0; i < 5; ++i) {
    visited.push_back(NameOf(GetFocus(), kControlProperty));
    Press(VK_TAB);
  }
  EXPECT_THAT(visited,
              testing::ElementsAre("txtName", "txtNumber", "cmbReport", "cmdCancel", "cmdOK"));
  form.txtName.SetEnabled(false);
  EXPECT_EQ(GetFocus(), screen.WindowOf(form.txtNumber)) << "a disabled control passes it on";
}

TEST_F(WinScreenTest, Controls_ClickedOrChosen_AskTheModel) {
  int clicks = 0;
  form.cmdOK.onClick = [&] { ++clicks; };
  form.Show(Modality::kModeless);
  Click(form.cmdOK);
  form.cmdOK.SetEnabled(false);
  Click(form.cmdOK);
  EXPECT_EQ(clicks, 1);
  Click(form.chkActive);
  EXPECT_TRUE(form.chkActive.Checked());
  const HWND combo = screen.WindowOf(form.cmbReport);
  RECT place{};
  GetWindowRect(combo, &place);
  EXPECT_EQ(place.bottom - place.top, theme.GetScale().Pixels(375)) << "whatever Move said";
  SendMessageW(combo, WM_KEYDOWN, VK_DOWN, 0);
  EXPECT_EQ(form.cmbReport.ListIndex(), 0);
}

TEST_F(WinScreenTest, UntrappedError_InAClick_IsShownAndTheProgramGoesOn) {
  int clicks = 0;
  form.cmdOK.onClick = [&] {
    if (++clicks == 1)
      throw RuntimeError(3704, "گروه قفل است. Operation is not allowed", "Recordset");
    throw std::out_of_range("no such place");
  };
  form.Show(Modality::kModeless);
  for (const char* expected : {"Run-time error '3704': Operation is not allowed (Recordset)",
                               "Unexpected error: no such place"}) {
    std::string technical;
    OnMessageDialog([&](HWND dialog) {
      technical = Utf8(TextOf(FindWindowExW(dialog, nullptr, L"EDIT", nullptr)));
      Press(VK_RETURN);
    });
    Click(form.cmdOK);
    EXPECT_EQ(technical, expected);
    EXPECT_TRUE(IsWindowEnabled(screen.WindowOf(form)));
  }
}

TEST_F(WinScreenTest, MessageComponent_AskedByName_TellsTheAnswer) {
  const Dispatch notice(MakeMessageComponent(guard));
  notice.Put("FormMessage", "آيا ادامه ميدهيد؟");
  notice.Put("FormType", 1);
  for (const auto& [key, answer] :
       std::vector<std::pair<WPARAM, std::int32_t>>{{VK_RETURN, 1}, {'N', 0}, {VK_ESCAPE, -1}}) {
    OnMessageDialog([&](HWND) { Press(key); });
    notice.Call("ClearShow");
    EXPECT_EQ(notice.Property("Resualt").Number(), answer);
  }
  EXPECT_EQ(NumberOf([&] { notice.Put("FormTpye", 1); }), 438);
  EXPECT_EQ(NumberOf([&] { notice.Put("FormType", "x"); }), 13);
}

TEST_F(WinScreenTest, Window_OfAForm_FollowsSizeBothWaysAndAsksBeforeClosing) {
  form.Show(Modality::kModeless);
  const HWND window = screen.WindowOf(form);
  RECT inside{};
  form.Resize(12000, 9000);
  GetClientRect(window, &inside);
  EXPECT_EQ(inside.right, theme.GetScale().Pixels(12000));
  form.laidOut = 0;
  SetWindowPos(window, nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(form.laidOut, 1);
  EXPECT_EQ(form.Width(), 7500) << "the least width";
  SendMessageW(window, WM_CLOSE, 0, 0);
  EXPECT_EQ(form.closed, 1);
  EXPECT_TRUE(IsWindowVisible(window));
}

}  // namespace
}  // namespace adapters::windows
