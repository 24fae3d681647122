// What a screen reader is told on Windows beyond what it hears of a whole form.

#include <gmock/gmock.h>
#include <windows.h>

#include "adapters/windows/Found.h"
#include "adapters/windows/WinFixture.h"

namespace adapters::windows {
namespace {

using contract::Key;

/// A hook is given nothing of its owner.
std::vector<std::string> told;
HWND grid = nullptr;
HWND box = nullptr;

void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD) {
  if (object != OBJID_CLIENT) return;
  const std::string where = window == grid ? " grid " : window == box ? " box " : " ";
  if (event == EVENT_OBJECT_FOCUS) told.push_back("focus" + where + std::to_string(child));
  if (event == EVENT_OBJECT_STATECHANGE) told.push_back("state" + where + std::to_string(child));
}

class ScreenReaderTest : public WinScreenTest {
 protected:
  ScreenReaderTest() {
    form.flx.SetRows(4);
    form.flx.SetCols(2);
    form.flx.SetFixedCols(0);
    form.flx.SetTextMatrix(2, 1, "here");
    ShowForm();
    grid = Of(form.flx);
    box = Of(form.chkActive);
    told.clear();
    hook_ = SetWinEventHook(EVENT_MIN, EVENT_MAX, nullptr, Hear, GetCurrentProcessId(),
                            GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT);
  }
  ~ScreenReaderTest() override { UnhookWinEvent(hook_); }

 private:
  HWINEVENTHOOK hook_ = nullptr;
};

TEST_F(ScreenReaderTest, CellsAndTicks_ThatChange_AreTold) {
  using testing::Contains;
  form.flx.SetFocus();
  Settle();
  EXPECT_THAT(told, Contains("focus grid 4"));
  Press({Key::kDown});
  Settle();
  EXPECT_THAT(told, Contains("focus grid 6"));
  Click(form.chkActive);
  Settle();
  EXPECT_THAT(told, Contains("state box 0"));
}

TEST_F(ScreenReaderTest, Cell_AskedForByPlace_IsFoundWhereItStands) {
  form.flx.SetFocus();
  Press({Key::kDown, Key::kLeft});
  const auto client = test::ClientOf(grid);
  Variant focus;
  EXPECT_EQ(client->get_accFocus(focus.Out()), S_OK);
  EXPECT_EQ(focus.Number(), 6);
  LONG left = 0, top = 0, width = 0, height = 0;
  EXPECT_EQ(client->accLocation(&left, &top, &width, &height, test::Number(6)), S_OK);
  Variant hit;
  EXPECT_EQ(client->accHitTest(left + width / 2, top + height / 2, hit.Out()), S_OK);
  EXPECT_EQ(hit.Number(), 6);
  BSTR text = nullptr;
  EXPECT_EQ(client->get_accValue(test::Number(6), &text), S_OK);
  EXPECT_EQ(Utf8(text), "here");
  SysFreeString(text);
  EXPECT_EQ(client->get_accValue(test::Number(9), &text), E_INVALIDARG);
  EXPECT_EQ(test::ClientOf(Of(form))->accHitTest(left + 1, top + 1, hit.Out()), S_OK);
  EXPECT_EQ(hit.Type(), VT_DISPATCH) << "the window of the grid";
}

TEST_F(ScreenReaderTest, Object_HeldBeyondItsWindow_AnswersNothing) {
  const auto client = test::ClientOf(grid);
  form.Unload();
  Settle();
  BSTR text = nullptr;
  LONG count = -1;
  EXPECT_EQ(client->get_accName(test::Number(0), &text), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(client->accDoDefaultAction(test::Number(3)), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(client->get_accChildCount(&count), S_OK);
  EXPECT_EQ(count, 0);
}

}  // namespace
}  // namespace adapters::windows
