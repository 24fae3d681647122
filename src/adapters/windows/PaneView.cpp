#include "adapters/windows/PaneView.h"

#include <uxtheme.h>

#include <algorithm>
#include <utility>

#include "adapters/windows/Clipboard.h"
#include "adapters/windows/PopupWindow.h"
#include "adapters/windows/Wide.h"
#include "adapters/windows/WinSurface.h"
#include "screens/Palette.h"

namespace adapters::windows {

using screens::Axis;

int PaneView::BarOf(Axis axis) {
  return axis == Axis::kDown ? SB_VERT : SB_HORZ;
}

int PaneView::ThumbOf(Axis axis, const screens::ScrollRange& range) {
  return axis == Axis::kDown ? range.place : std::max(0, range.count - range.page) - range.place;
}

void PaneView::Fill(std::unique_ptr<screens::Pane> pane) {
  pane_ = std::move(pane);
}

void PaneView::AddFrame() {
  if (std::exchange(framed_, true)) return;
  if (Look().Dark()) SetWindowTheme(Handle(), L"DarkMode_Explorer", nullptr);  // its scroll bars
  SetWindowPos(Handle(), nullptr, 0, 0, 0, 0,
               SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void PaneView::Remeasure() {
  if (field_) field_->TakeFont();
  tip_.reset();
  PassSize();
  Invalidate();
}

controls::Colour PaneView::FrameColour(bool focused) const {
  return focused ? screens::palette::kAccent : screens::palette::kLine;
}

int PaneView::TextWidth(std::string_view text, screens::Weight weight) const {
  return windows::TextWidth(Look().Font(weight), text);
}

void PaneView::Repaint(const screens::Rect& area) {
  const RECT place = ToRECT(area);
  if (!area.Empty()) InvalidateRect(Handle(), &place, FALSE);
}

void PaneView::ScrollPart(const screens::Rect& area, int down) {
  const RECT place = ToRECT(area);
  ScrollWindowEx(Handle(), 0, down, &place, &place, nullptr, nullptr, SW_INVALIDATE);
}

void PaneView::SetScrollBar(Axis axis, const screens::ScrollRange& range) {
  screens::ScrollRange& shown = axis == Axis::kDown ? down_ : across_;
  if (shown == range) return;
  shown = range;
  AddFrame();
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = std::max(0, range.count - 1);
  info.nPage = static_cast<UINT>(std::max(1, range.page));
  info.nPos = ThumbOf(axis, range);
  SetScrollInfo(Handle(), BarOf(axis), &info, TRUE);
}

void PaneView::SetTimer(int milliseconds) {
  if (milliseconds == 0) {
    KillTimer(Handle(), kTimer);
  } else {
    ::SetTimer(Handle(), kTimer, static_cast<UINT>(milliseconds), nullptr);
  }
}

void PaneView::CopyToClipboard(const std::string& text) {
  windows::CopyToClipboard(Handle(), Wide(text));
}

screens::TextField& PaneView::Field() {
  if (!field_) field_ = std::make_unique<EditField>(Guard(), Look(), *this);
  return *field_;
}

std::unique_ptr<screens::Popup> PaneView::MakePopup(screens::PopupKind kind,
                                                    const screens::PaneMaker& make) {
  return std::make_unique<PopupWindow>(*this, kind, make);
}

screens::Size PaneView::PopupRoom(screens::PopupKind kind) const {
  const screens::Rect room = RoomOf(kind, Handle());
  return {room.Width(), room.Height()};
}

void PaneView::PassSize() {
  const screens::Rect area = ClientArea(Handle());
  if (pane_) pane_->Resized({area.right, area.bottom});
}

void PaneView::Paint() const {
  PaintSession surface(Handle(), Look());
  pane_->Paint(surface, surface.Dirty());
}

void PaneView::PaintFrame() const {
  if (!framed_) return;
  RECT window{};
  GetWindowRect(Handle(), &window);
  RECT client{};
  GetClientRect(Handle(), &client);
  MapWindowPoints(Handle(), nullptr, reinterpret_cast<POINT*>(&client), 2);
  OffsetRect(&client, -window.left, -window.top);
  OffsetRect(&window, -window.left, -window.top);
  const HDC dc = GetWindowDC(Handle());  // with places from the window's corner
  ExcludeClipRect(dc, client.left, client.top, client.right, client.bottom);
  WinSurface surface(dc, Look());
  // Nobody paints the corner between the two scroll bars.
  surface.Fill(FromRECT({0, client.bottom, client.left, window.bottom}), screens::palette::kFrame);
  surface.Frame(FromRECT(window), FrameColour(focused_));
  ReleaseDC(Handle(), dc);
}

}  // namespace adapters::windows
