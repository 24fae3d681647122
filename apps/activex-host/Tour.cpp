#include "Tour.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "Windows.h"
#include "adapters/windows/GridAutomation.h"
#include "adapters/windows/Wide.h"

namespace activexhost {

namespace {

using adapters::windows::Wide;
using tour::Expect;

constexpr UINT kStepDelay = 60;      // milliseconds, for the screen to settle
constexpr DWORD kPaintingTime = 60;  // milliseconds, for the painted windows to reach the screen
constexpr int kFileNameCombo = 0x47c;
constexpr int kFileNameEdit = 0x480;

// A timer's procedure is given nothing of its owner.
Tour* playing = nullptr;

LPARAM Middle(HWND window) {
  RECT place;
  GetClientRect(window, &place);
  return MAKELPARAM(place.right / 2, place.bottom / 2);
}

/// The pointer is nowhere before and after.
void ClickAt(HWND window, LPARAM place) {
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
  PostMessageW(window, WM_MOUSELEAVE, 0, 0);
  SendMessageW(window, WM_LBUTTONUP, 0, place);
}

LPARAM CellPlace(HWND grid, int row, int col) {
  const LRESULT place =
      SendMessageW(grid, adapters::windows::GridCellRectMessage(), static_cast<WPARAM>(row), col);
  Expect(place != 0, "a visible cell " + std::to_string(row) + ", " + std::to_string(col));
  return place;
}

/// The window with the keyboard, in the control.
HWND Focus(HWND control) {
  HWND focus = GetFocus();
  if (focus != control && IsChild(control, focus) == 0) {
    SetForegroundWindow(GetAncestor(control, GA_ROOT));
    SetFocus(control);
    focus = GetFocus();
  }
  return focus;
}

WPARAM VirtualKey(tour::Key key) {
  using enum tour::Key;
  switch (key) {
    case kEnter:
      return VK_RETURN;
    case kEscape:
      return VK_ESCAPE;
    case kUp:
      return VK_UP;
    case kDown:
      return VK_DOWN;
    case kEnd:
      return VK_END;
    case kBackspace:
      return VK_BACK;
    case kF4:
      return VK_F4;
  }
  return 0;
}

/// Only what keys have posted: the tour's own timer waits for the loop that runs already.
void PumpKeys() {
  MSG message;
  while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE) != 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void PumpPainting(const std::vector<HWND>& windows) {
  for (const HWND window : windows) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  }
  const DWORD begin = GetTickCount();
  while (GetTickCount() - begin < kPaintingTime) {
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) != 0) {
      DispatchMessageW(&message);
    }
    MsgWaitForMultipleObjects(0, nullptr, FALSE, kPaintingTime / 4, QS_PAINT);
  }
}

}  // namespace

Tour::Tour(std::string folder, std::function<void(std::int32_t)> open)
    : folder_(std::move(folder)), open_(std::move(open)), script_(tour::PlannersDay(*this)) {
  playing = this;
}

Tour::~Tour() {
  playing = nullptr;
}

void Tour::Start() {
  if (timer_ != 0) KillTimer(nullptr, timer_);
  timer_ = SetTimer(nullptr, 0, kStepDelay, &Tour::OnTimer);
}

void CALLBACK Tour::OnTimer(HWND /*window*/, UINT /*message*/, UINT_PTR id, DWORD /*time*/) {
  if (playing != nullptr && playing->timer_ == id) playing->Next();
}

void Tour::Next() {
  if (script_.Ended()) {
    KillTimer(nullptr, timer_);
    ended_ = true;
    std::printf("The tour is over: %d pictures in %s.\n", pictures_, folder_.c_str());
    PostQuitMessage(0);
    return;
  }
  // Beforehand: the step may open a modal form, in whose loop the next one plays. Afterwards anew:
  // what it has set going comes before the next one.
  Start();
  const UINT_PTR own = timer_;
  try {
    script_.PlayNext();
    if (timer_ == own) Start();
  } catch (const std::exception& error) {
    Fail(error.what());
  }
}

void Tour::Fail(const std::string& what) {
  std::fprintf(stderr, "The tour stopped: %s\n", what.c_str());
  try {
    const HWND desktop = GetDesktopWindow();
    RECT place;
    GetWindowRect(desktop, &place);
    Save(place, "stopped-here");
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
  // Loops of modal forms are nested; the program ends without unwinding their events.
  std::fflush(nullptr);
  std::_Exit(EXIT_FAILURE);
}

void Tour::Click(const std::string& button) {
  const HWND window = ReachControl(button);
  ClickAt(window, Middle(window));
}

void Tour::Type(const std::string& control, const std::string& text) {
  const HWND receiver = Focus(ReachControl(control));
  for (const wchar_t unit : Wide(text)) PostMessageW(receiver, WM_CHAR, unit, 1);
  PumpKeys();
}

void Tour::PressKey(const std::string& control, tour::Key key) {
  const HWND receiver = Focus(ReachControl(control));
  PostMessageW(receiver, WM_KEYDOWN, VirtualKey(key), 1);
  PostMessageW(receiver, WM_KEYUP, VirtualKey(key), static_cast<LPARAM>(0xC0000001));
  PumpKeys();
}

void Tour::ClickCell(const std::string& grid, int row, int col) {
  const HWND window = ReachControl(grid);
  ClickAt(window, CellPlace(window, row, col));
}

void Tour::DoubleClickCell(const std::string& grid, int row, int col) {
  ClickCell(grid, row, col);
  const HWND window = ReachControl(grid);
  const LPARAM place = CellPlace(window, row, col);
  SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, place);
  if (IsWindow(window) != 0) SendMessageW(window, WM_LBUTTONUP, 0, place);
}

void Tour::DragRows(const std::string& grid, int firstRow, int lastRow, int col) {
  const HWND window = ReachControl(grid);
  Focus(window);
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, CellPlace(window, firstRow, col));
  SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, CellPlace(window, lastRow, col));
  SendMessageW(window, WM_LBUTTONUP, 0, CellPlace(window, lastRow, col));
}

void Tour::ResizeWindow(const std::string& form, double factor) {
  const HWND window = FindForm(form);
  Expect(window != nullptr, "a window of " + form);
  RECT place;
  GetWindowRect(window, &place);
  SetWindowPos(window, nullptr, 10, 10, static_cast<int>((place.right - place.left) * factor),
               static_cast<int>((place.bottom - place.top) * factor),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void Tour::AnswerMessage(int button) {
  Expect(FindMessage() != nullptr, "a message");
  const HWND window = ReachControl(button == 0 ? "MessageForm.cmdYes" : "MessageForm.cmdNo");
  ClickAt(window, Middle(window));
}

void Tour::SaveAs(const std::string& fileName) {
  const HWND dialog = FindSaveDialog();
  Expect(dialog != nullptr, "a Save As dialog");
  const std::wstring path = Wide(folder_ + "\\" + fileName);
  DeleteFileW(path.c_str());  // of an earlier tour: the program would ask
  const int field = GetDlgItem(dialog, kFileNameCombo) != nullptr ? kFileNameCombo : kFileNameEdit;
  SetDlgItemTextW(dialog, field, path.c_str());
  PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

bool Tour::IsShown(const std::string& form) {
  return FindForm(form) != nullptr;
}

bool Tour::IsEnabled(const std::string& control) {
  return IsWindowEnabled(FindControl(control)) != 0;
}

std::string Tour::Text(const std::string& control) {
  return TextOf(FindControl(control));
}

int Tour::Rows(const std::string& grid) {
  return static_cast<int>(
      SendMessageW(FindControl(grid), adapters::windows::GridRowsMessage(), 0, 0));
}

std::string Tour::CellText(const std::string& grid, int row, int col) {
  const LRESULT answer = SendMessageW(FindControl(grid), adapters::windows::GridTextMessage(),
                                      static_cast<WPARAM>(row), col);
  Expect(answer >= 0, "a cell in " + grid);
  if (answer == 0) return {};
  std::array<wchar_t, 256> text{};
  const auto atom = static_cast<ATOM>(answer);
  GlobalGetAtomNameW(atom, text.data(), static_cast<int>(text.size()));
  GlobalDeleteAtom(atom);
  return adapters::windows::Utf8(text.data());
}

std::pair<int, int> Tour::BlockRows(const std::string& grid) {
  const LRESULT rows = SendMessageW(FindControl(grid), adapters::windows::GridBlockMessage(), 0, 0);
  return {LOWORD(rows), HIWORD(rows)};
}

void Tour::Picture(const std::string& form, const std::string& name) {
  const HWND base = FindForm(form);
  Expect(base != nullptr, "a window of " + form);
  const std::vector<HWND> shown = FormAndAbove(base);
  PumpPainting(shown);
  RECT all{};
  for (const HWND window : shown) {
    RECT place;
    GetWindowRect(window, &place);
    UnionRect(&all, &all, &place);
  }
  Save(all, name);
}

/// Reports go to the system's viewer: here only what is said of that.
void Tour::PictureAndCloseDialog(const std::string& name) {
  if (FindForm("DocumentForm") != nullptr) {
    Picture("DocumentForm", name);
    Click("DocumentForm.cmdClose");
  } else if (FindMessage() != nullptr) {
    Picture("MessageForm", name);
    AnswerMessage(0);
  }
}

void Tour::Save(const RECT& place, const std::string& name) {
  char number[8];
  std::snprintf(number, sizeof number, "%02d-", ++pictures_);
  camera_.Save(place, folder_ + "\\" + number + name + ".png");
}

}  // namespace activexhost
