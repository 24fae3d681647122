// What forms on Windows do beyond what every screen does.

#include "adapters/windows/AutomationDispatch.h"
#include "adapters/windows/WinFixture.h"
#include "contract/ScreenContract.h"
#include "screens/MessageComponent.h"

namespace adapters::windows {
namespace {

using contract::Key;
using contract::NumberOf;
using controls::Modality;

TEST_F(WinScreenTest, ShowModal_Form_TakesTheInputOfTheOthersAndGivesItBack) {
  const HWND host = Of(adapter->host);
  HWND button = nullptr;
  form.cmdOK.onClick = [&] {
    button = Of(form.cmdOK);
    form.Unload();
    EXPECT_TRUE(IsWindow(button)) << "the click returns to it";
  };
  Later([&] {
    EXPECT_FALSE(IsWindowEnabled(host));
    Click(form.cmdOK);
  });
  form.Show(Modality::kModal);
  EXPECT_TRUE(IsWindowEnabled(host));
  EXPECT_EQ(GetActiveWindow(), host) << "the form's owner comes to the front";
  Settle();
  EXPECT_FALSE(IsWindow(button)) << "an unloaded form's windows go in the end";
}

TEST_F(WinScreenTest, ShowModeless_WhileTheHostIsModal_Throws401) {
  EnableWindow(Of(adapter->host), FALSE);
  EXPECT_EQ(NumberOf([&] { form.Show(Modality::kModeless); }), 401);
  EnableWindow(Of(adapter->host), TRUE);
  adapter->screen.SetHostModal(true);
  EXPECT_EQ(NumberOf([&] { form.Show(Modality::kModeless); }), 401);
  EXPECT_FALSE(form.Visible());
}

TEST_F(WinScreenTest, ModalForm_ProgramQuitsOrOwnerEnds_IsHidden) {
  Later([] { PostQuitMessage(7); });
  form.Show(Modality::kModal);
  EXPECT_FALSE(form.Visible());
  MSG message;
  ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 7U) << "the host's loop hears of it too";
  Later([&] { DestroyWindow(Of(adapter->host)); });
  form.Show(Modality::kModal);
  EXPECT_FALSE(form.Visible());
  EXPECT_FALSE(adapter->host.Visible());
}

TEST_F(WinScreenTest, Component_AsAnObjectOfCom_IsReachedByNamesOfAnyCase) {
  using screens::MessageComponent;
  const Dispatch notice(MakeDispatch(std::make_unique<MessageComponent>(screen),
                                     MessageComponent::kMembers, MessageComponent::kProgId));
  notice.Put("formmessage", "آيا ادامه ميدهيد؟");
  notice.Put("FORMTYPE", 1);
  OnMessage([&](const controls::Form& message) {
    EXPECT_EQ(dynamic_cast<controls::Label&>(*message.FindControl("lblMessage")).Caption(),
              "آيا ادامه ميدهيد؟");
    Press({Key::kEnter});
  });
  notice.Call("ClearShow");
  EXPECT_EQ(notice.Property("Resualt").Number(), 1);
  EXPECT_EQ(NumberOf([&] { notice.Call("Resualt"); }), 438);
  EXPECT_EQ(NumberOf([&] { notice.Put("FormTpye", 1); }), 438);
  EXPECT_EQ(NumberOf([&] { notice.Put("FormType", "x"); }), 13);
}

TEST_F(WinScreenTest, WaitingForm_TakesTheInputOfTheOthersAndLetsThemBePainted) {
  ShowForm();
  form.txtName.SetFocus();
  const HWND box = GetFocus();
  contract::SampleForm waiting(screen, cities);
  waiting.Show(Modality::kWaiting);
  EXPECT_FALSE(IsWindowEnabled(Of(form)));
  PostMessageW(box, WM_CHAR, L'x', 0);
  form.txtName.SetText("یک");
  screen.Breathe();
  EXPECT_FALSE(GetUpdateRect(Of(form.txtName), nullptr, FALSE));
  waiting.Hide();
  EXPECT_TRUE(IsWindowEnabled(Of(form)));
  EXPECT_EQ(GetFocus(), box);
  Settle();
  EXPECT_EQ(form.txtName.Text(), "یک") << "what was typed meanwhile is dropped";
}

TEST_F(WinScreenTest, Window_OnAMonitorOfTwiceTheResolution_GrowsWithItsControls) {
  ShowForm();
  const auto widthOf = [](HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place.right - place.left;
  };
  const LONG box = widthOf(Of(form.txtName));
  const LONG field = widthOf(GetWindow(Of(form.txtName), GW_CHILD));
  const RECT suggested{0, 0, 2 * widthOf(Of(form)), 1000};
  SendMessageW(Of(form), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&suggested));
  EXPECT_NEAR(widthOf(Of(form.txtName)), 2 * box, 1);
  EXPECT_NEAR(widthOf(GetWindow(Of(form.txtName), GW_CHILD)), 2 * field, 2);
  EXPECT_NEAR(form.Width(), 10500, 150);
}

TEST_F(WinScreenTest, MonthPage_FormClickedOrMoved_Closes) {
  form.cmdCancel.onClick = [this] { events.emplace_back("cancel"); };
  ShowForm();
  form.datFrom.SetFocus();
  SendMessageW(GetFocus(), WM_SYSKEYDOWN, VK_DOWN, 1 << 29);
  EXPECT_NE(DropDown(), nullptr) << "Alt+Down";
  PostClick(Of(form.cmdCancel));
  Pump();
  EXPECT_EQ(DropDown(), nullptr);
  EXPECT_TRUE(events.empty()) << "the click was only for the page";
  Press({Key::kF4});
  EXPECT_NE(DropDown(), nullptr);
  EXPECT_EQ(Focused(), "datFrom");
  SetWindowPos(Of(form), nullptr, 7, 7, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  Settle();
  EXPECT_EQ(DropDown(), nullptr);
}

TEST_F(WinScreenTest, GridScrolled_EitherWay_MovesTheCellsAndTheThumb) {
  form.flx.SetRows(100001);
  form.flx.SetCols(4);
  ShowForm();
  SendMessageW(Of(form.flx), WM_VSCROLL, SB_BOTTOM, 0);
  SCROLLINFO bar{sizeof bar, SIF_ALL, 0, 0, 0, 0, 0};
  GetScrollInfo(Of(form.flx), SB_VERT, &bar);
  EXPECT_EQ(bar.nPos + static_cast<int>(bar.nPage), 100000);
  form.flx.SetColWidth(3, 12000);
  const int unscrolled = At(0, 2).x;
  SendMessageW(Of(form.flx), WM_HSCROLL, SB_LINELEFT, 0);
  EXPECT_NEAR(At(0, 2).x, unscrolled + 40, 20);
}

}  // namespace
}  // namespace adapters::windows
