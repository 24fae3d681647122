#include "adapters/windows/DateBoxWindow.h"
#include "adapters/windows/MonthPopupWindow.h"
#include "adapters/windows/SampleWindows.h"
#include "adapters/windows/SelectorWindow.h"

namespace adapters::windows {
namespace {

class FieldWindowTest : public SampleWindows {
 protected:
  FieldWindowTest() {
    datFrom.SetText("1404/02/15");
    sltCity.Select(3);
  }
  static void Retype(std::wstring_view text) {
    SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
    SendMessageW(GetFocus(), WM_CHAR, VK_BACK, 0);
    for (const wchar_t letter : text) SendMessageW(GetFocus(), WM_CHAR, letter, 0);
  }
  static void Click(HWND window, int x, int y) {
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  /// Answers the message that comes up next with Enter.
  static void CALLBACK Accept(HWND, UINT, UINT_PTR timer, DWORD) {
    if (NameOf(GetActiveWindow(), kFormProperty) != "MessageDialog") return;
    KillTimer(nullptr, timer);
    Press({VK_RETURN});
  }
  DateBoxWindow* const date = dynamic_cast<DateBoxWindow*>(Window::Of(Of(datFrom)));
  SelectorWindow* const city = dynamic_cast<SelectorWindow*>(Window::Of(Of(sltCity)));
};

TEST_F(FieldWindowTest, DateTypedOrStepped_IsUnderstoodOrRefused) {
  datFrom.SetFocus();
  for (const wchar_t* typed : {L"۱۴۰۳/۱/۵", L"١٤٠٣/١/٥", L"14030105"}) {
    datFrom.SetText("1404/02/15");
    Retype(typed);
    Press({VK_RETURN});
    EXPECT_EQ(datFrom.Text(), "1403/01/05");
  }
  Press({VK_UP, VK_PRIOR, VK_DOWN});
  EXPECT_EQ(date->Field().Text(), L"1403/02/05");
  Retype(L"1403/13/40");
  Press({VK_RETURN});
  EXPECT_EQ(date->Field().Text(), L"1403/13/40");
  EXPECT_TRUE(date->Field().Refused());
  sltCity.SetFocus();
  EXPECT_EQ(date->Field().Text(), L"1403/02/05") << "the old date comes back on leaving";
  EXPECT_FALSE(date->Field().Refused());
}

TEST_F(FieldWindowTest, MonthPage_ClickedMovedByKeysOrLeft_GivesTheDay) {
  datFrom.SetFocus();
  Press({VK_F4});
  MonthPopupWindow& page = *date->Popup();
  EXPECT_EQ(NameOf(page.Handle(), kPopupProperty), "datFrom");
  EXPECT_GT(page.DayPlace(1, 0).left, page.DayPlace(1, 6).left) << "Saturday at the right";
  Click(page.Handle(), page.DayPlace(1, 0).left + 5, page.DayPlace(1, 0).top + 5);
  EXPECT_EQ(datFrom.Text(), "1404/02/06");
  EXPECT_EQ(GetFocus(), date->Handle());
  SendMessageW(date->Handle(), WM_SYSKEYDOWN, VK_DOWN, 1 << 29);
  Press({VK_NEXT, VK_LEFT, VK_DOWN, VK_RETURN});
  EXPECT_EQ(datFrom.Text(), "1404/03/14");
  Press({VK_F4, VK_ESCAPE});
  EXPECT_FALSE(page.Visible());
  Press({VK_F4});
  Click(Of(cmdCancel), 5, 5);
  EXPECT_FALSE(page.Visible());
  Press({VK_F4});
  ASSERT_TRUE(page.Visible());
  SetWindowPos(screen.WindowOf(*this), nullptr, 7, 7, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  Click(page.Handle(), 0, 0);
  EXPECT_FALSE(page.Visible()) << "the form was moved";
  EXPECT_TRUE(events.empty()) << "Esc and the click were only for the page";
}

TEST_F(FieldWindowTest, SelectorTyped_Narrows_AndKeysChooseRestoreOrEmpty) {
  sltCity.SetFocus();
  Retype(L"شهر ری");
  ASSERT_TRUE(city->Popup()->Visible());
  EXPECT_EQ(city->Popup()->Count(), 1) << "either yeh";
  Press({VK_RETURN});
  EXPECT_EQ(sltCity.SelectedID(), 6);
  EXPECT_EQ(city->Field().Text(), L"شهر ري");
  Retype(L"ته");
  Press({VK_ESCAPE});
  EXPECT_EQ(city->Field().Text(), L"شهر ري");
  EXPECT_TRUE(events.empty());
  Press({VK_F4});
  Click(city->Popup()->Handle(), 100, city->Popup()->RowHeight() + 5);
  EXPECT_EQ(sltCity.SelectedID(), 3) << "the second by name";
  Retype(L"");
  EXPECT_EQ(sltCity.SelectedID(), 3) << "not before the box is left";
  Press({VK_TAB});
  EXPECT_EQ(sltCity.SelectedID(), -1);
}

TEST_F(FieldWindowTest, SelectorOf100000Rows_EndChosen_AndServerSilent_ShowsTheError) {
  cities.count = 100000;
  sltCity.SetFocus();
  Press({VK_F4});
  SelectorList& list = *city->Popup();
  SendMessageW(list.Handle(), WM_VSCROLL, SB_BOTTOM, 0);
  EXPECT_EQ(list.Top(), 100000 - SelectorList::kShownRows);
  Click(list.Handle(), 100, 11 * list.RowHeight() + 5);
  EXPECT_EQ(sltCity.SelectedID(), 99998);
  cities.failing = true;
  SetTimer(nullptr, 0, 10, &FieldWindowTest::Accept);
  Press({VK_F4});
  EXPECT_FALSE(list.Visible());
  EXPECT_EQ(GetFocus(), city->Handle());
}

}  // namespace
}  // namespace adapters::windows
