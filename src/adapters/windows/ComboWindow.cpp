#include "adapters/windows/ComboWindow.h"

#include <utility>

#include "adapters/windows/Field.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

using controls::Aspect;
using controls::Change;

namespace {

/// The screen settles the height of a combo box: that of the forms' other fields.
constexpr controls::Twips kComboHeight = 375;
constexpr int kMostShown = 12;

}  // namespace

ComboWindow::ComboWindow(controls::ComboBox& model, const Surroundings& surroundings, HWND parent)
    : WindowOf(model, surroundings) {
  CreateStandard(L"COMBOBOX", {.style = WS_CHILD | WS_CLIPSIBLINGS | WS_VSCROLL | CBS_DROPDOWNLIST |
                                        CBS_OWNERDRAWFIXED | CBS_HASSTRINGS,
                               .extendedStyle = kRightToLeftField,
                               .parent = parent,
                               .place = {0, 0, 100, GetScale().Design(200)}});
  SendMessageW(Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(Look().Font()), FALSE);
  SendMessageW(Handle(), CB_SETITEMHEIGHT, 0, Look().LineHeight() + GetScale().Design(6));
}

void ComboWindow::SettleHeight() {
  // The height given to a drop-down list is the open one's; the closed one follows from its item.
  RECT place{};
  GetWindowRect(Handle(), &place);
  const int item = static_cast<int>(SendMessageW(Handle(), CB_GETITEMHEIGHT, 0, 0));
  const int open = GetScale().Pixels(kComboHeight) + kMostShown * item + 2;
  SetWindowPos(Handle(), nullptr, 0, 0, place.right - place.left, open,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  // What is added around the item is found out by trying. (What CB_GETITEMHEIGHT tells need not be
  // what was set.)
  const auto setField = [this](int height) {
    SendMessageW(Handle(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height);
  };
  setField(Look().LineHeight());
  GetWindowRect(Handle(), &place);
  const int around = static_cast<int>(place.bottom - place.top) - Look().LineHeight();
  setField(GetScale().Pixels(kComboHeight) - around);
}

void ComboWindow::ShowItems() {
  SendMessageW(Handle(), CB_RESETCONTENT, 0, 0);
  for (int i = 0; i < Model()->ListCount(); ++i) {
    SendMessageW(Handle(), CB_ADDSTRING, 0,
                 reinterpret_cast<LPARAM>(Wide(Model()->List(i)).c_str()));
  }
}

void ComboWindow::Refresh(const Change& change) {
  if (change.aspect == Aspect::kBounds) SettleHeight();
  if (change.aspect == Aspect::kItems) ShowItems();
  if (change.aspect == Aspect::kItems || change.aspect == Aspect::kText) {
    SendMessageW(Handle(), CB_SETCURSEL, static_cast<WPARAM>(Model()->ListIndex()), 0);
  }
  Invalidate();
}

LRESULT ComboWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      Paint();
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      Invalidate();
      break;
    case WM_KEYDOWN:
      // While the list is open, Enter and Esc are its own.
      if (SendMessageW(Handle(), CB_GETDROPPEDSTATE, 0, 0) != 0 && wParam != VK_TAB) {
        return Default(message, wParam, lParam);
      }
      break;
    default:
      break;
  }
  return WindowOf::OnMessage(message, wParam, lParam);
}

bool ComboWindow::OnParentMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
  if (message == WM_DRAWITEM) {
    PaintItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    result = TRUE;
    return true;
  }
  if (message == WM_CTLCOLORLISTBOX) {
    result = FieldColours(reinterpret_cast<HDC>(wParam), true);
    return true;
  }
  if (message != WM_COMMAND) return false;
  switch (HIWORD(wParam)) {
    case CBN_DROPDOWN:
      accepted_ = false;
      break;
    case CBN_SELENDOK:
      accepted_ = true;
      break;
    case CBN_SELENDCANCEL:
      accepted_ = false;
      break;
    case CBN_CLOSEUP:
      Choose();
      break;
    case CBN_SELCHANGE:
      // In the open list it is only the mark that moved.
      if (SendMessageW(Handle(), CB_GETDROPPEDSTATE, 0, 0) == 0) {
        accepted_ = true;
        Choose();
      }
      break;
    default:
      return false;
  }
  return true;
}

void ComboWindow::Choose() {
  const int index = static_cast<int>(SendMessageW(Handle(), CB_GETCURSEL, 0, 0));
  const bool picked = std::exchange(accepted_, false);
  const bool there = Call([&](controls::ComboBox& box) {
    if (picked && index < box.ListCount()) box.SetListIndex(index);
  });
  if (!there) return;
  SendMessageW(Handle(), CB_SETCURSEL, static_cast<WPARAM>(Model()->ListIndex()), 0);
  Invalidate();
}

std::wstring ComboWindow::ItemText(int index) const {
  const LRESULT length = SendMessageW(Handle(), CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
  if (index < 0 || length < 0) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  SendMessageW(Handle(), CB_GETLBTEXT, static_cast<WPARAM>(index),
               reinterpret_cast<LPARAM>(text.data()));
  text.pop_back();
  return text;
}

void ComboWindow::Paint() const {
  const PaintSession canvas(Handle());
  const Scale& scale = GetScale();
  const bool enabled = Enabled();
  PaintField(canvas, canvas.Area(), Look(), Ground(), enabled, GetFocus() == Handle());
  RECT text = canvas.Area();
  text.left += scale.Design(22);
  text.right -= scale.Design(6);
  const int index = static_cast<int>(SendMessageW(Handle(), CB_GETCURSEL, 0, 0));
  canvas.Text(ItemText(index), text,
              {.font = Look().Font(), .colour = enabled ? theme::kText : theme::kMutedText});
  canvas.DropArrow({scale.Design(12), canvas.Area().bottom / 2}, scale,
                   enabled ? theme::kText : theme::kLine);
}

void ComboWindow::PaintItem(const DRAWITEMSTRUCT& item) const {
  if ((item.itemState & ODS_COMBOBOXEDIT) != 0) {
    Invalidate();  // the closed part is painted as a whole
    return;
  }
  const Buffer canvas(item.hDC, item.rcItem);
  const bool chosen = (item.itemState & ODS_SELECTED) != 0;
  canvas.Fill(item.rcItem, chosen ? theme::kAccentGround : theme::kField);
  RECT text = item.rcItem;
  InflateRect(&text, -GetScale().Design(6), 0);
  canvas.Text(ItemText(static_cast<int>(item.itemID)), text, {.font = Look().Font()});
}

}  // namespace adapters::windows
