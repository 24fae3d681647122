#include "adapters/windows/FieldFrame.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "adapters/windows/Field.h"
#include "adapters/windows/FieldNote.h"
#include "adapters/windows/PushButton.h"

namespace adapters::windows {

using controls::Colour;

namespace {

// Lengths at 96 dpi.
constexpr int kButtonWidth = 20;

}  // namespace

FieldFrame::FieldFrame(const Surroundings& surroundings, Sign sign, std::function<void()> toggle)
    : surroundings_(surroundings), sign_(sign), toggle_(std::move(toggle)) {}

FieldFrame::~FieldFrame() = default;

WindowPlan FieldFrame::Plan(HWND parent) {
  WindowPlan plan;
  plan.style = WS_CHILD | WS_CLIPSIBLINGS | ES_AUTOHSCROLL | ES_RIGHT;
  plan.extendedStyle = WS_EX_RTLREADING | WS_EX_RIGHT;
  plan.parent = parent;
  return plan;
}

void FieldFrame::Attach(HWND field) {
  field_ = field;
  SendMessageW(field, WM_SETFONT, reinterpret_cast<WPARAM>(surroundings_.theme.Font()), FALSE);
  SendMessageW(field, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
}

RECT FieldFrame::ButtonPlace() const {
  RECT window{};
  GetWindowRect(field_, &window);
  const int edge = surroundings_.theme.GetScale().Design(2);
  return {edge, edge, edge + surroundings_.theme.GetScale().Design(kButtonWidth),
          window.bottom - window.top - edge};
}

/// From the window's place to the client area's: right of the button.
void FieldFrame::LayOut(RECT& area) const {
  const LONG button = area.left + ButtonPlace().right;
  area = InsideField(area, surroundings_.theme, false);
  area.left = std::min(std::max(area.left, button + 2), area.right);
}

void FieldFrame::Redraw() const {
  RedrawWindow(field_, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
}

void FieldFrame::PaintFrame(Colour ground) const {
  const FramePainting frame(field_);
  const Buffer canvas(frame.Dc(), frame.Area());
  const bool enabled = IsWindowEnabled(field_) != FALSE;
  PaintField(canvas, frame.Area(), surroundings_.theme, ground, enabled, GetFocus() == field_);
  if (refused_) {
    const Scale& scale = surroundings_.theme.GetScale();
    canvas.RoundBox(frame.Area(), scale.Design(3), theme::kField, theme::kRefused, scale.Design(2));
  }
  PaintSign(canvas, ButtonPlace());
}

void FieldFrame::PaintSign(const Canvas& canvas, const RECT& button) const {
  const Scale& scale = surroundings_.theme.GetScale();
  const bool enabled = IsWindowEnabled(field_) != FALSE;
  if (enabled) {
    const Colour ground = hovered_ ? theme::kAccentGround : controls::palette::kButton;
    canvas.RoundBox(button, scale.Design(2), ground, ground);
  }
  const Colour ink = enabled ? theme::kText : theme::kLine;
  const POINT centre{(button.left + button.right) / 2, (button.top + button.bottom) / 2};
  if (sign_ == Sign::kArrow) {
    canvas.DropArrow(centre, scale, ink);
    return;
  }
  const double unit = scale.Unit();
  const auto at = [&](double x, double y) -> Canvas::Point {
    return {centre.x + x * unit, centre.y + y * unit};
  };
  const double width = 1.2 * unit;
  canvas.Stroke({at(-5.5, -4.5), at(5.5, -4.5), at(5.5, 5.5), at(-5.5, 5.5), at(-5.5, -4.5)}, width,
                ink);
  canvas.Stroke({at(-5.5, -1.5), at(5.5, -1.5)}, width, ink);
  canvas.Stroke({at(-2.5, -6), at(-2.5, -3.5)}, width, ink);
  canvas.Stroke({at(2.5, -6), at(2.5, -3.5)}, width, ink);
}

/// Windows would show the text of a disabled field too pale to be read, and not every Windows puts
/// Persian and Latin words of an EDIT in the right order; so it paints only what is being edited.
void FieldFrame::PaintText() const {
  const PaintSession session(field_);
  const bool enabled = IsWindowEnabled(field_) != FALSE;
  session.Fill(session.Area(), enabled ? theme::kField : controls::palette::kFrame);
  session.Text(Text(), session.Area(), {.font = surroundings_.theme.Font()});
}

void FieldFrame::Hover(bool hovered) {
  if (std::exchange(hovered_, hovered) != hovered) Redraw();
}

bool FieldFrame::OnColours(UINT message, WPARAM wParam, LRESULT& result) const {
  if (message != WM_CTLCOLOREDIT && message != WM_CTLCOLORSTATIC) return false;
  result = FieldColours(reinterpret_cast<HDC>(wParam), message == WM_CTLCOLOREDIT);
  return true;
}

std::optional<LRESULT> FieldFrame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam,
                                             Colour ground) {
  switch (message) {
    case WM_NCCALCSIZE:
      // Both forms of this message begin with the window's place.
      LayOut(*reinterpret_cast<RECT*>(lParam));
      return 0;
    case WM_NCPAINT:
      PaintFrame(ground);
      return 0;
    case WM_PAINT:
      if (GetFocus() == field_) break;
      PaintText();
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_ENABLE:
      Redraw();
      break;
    case WM_NCHITTEST: {
      POINT place{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
      RECT window{};
      GetWindowRect(field_, &window);
      place = {place.x - window.left, place.y - window.top};
      const RECT button = ButtonPlace();
      return PtInRect(&button, place) != FALSE ? HTBORDER : HTCLIENT;
    }
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK:
      if (wParam != HTBORDER) break;
      SetFocus(field_);
      toggle_();
      return 0;
    case WM_NCMOUSEMOVE: {
      Hover(true);
      TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE | TME_NONCLIENT, field_, 0};
      TrackMouseEvent(&leaving);
      return 0;
    }
    case WM_NCMOUSELEAVE:
      Hover(false);
      return 0;
    case WM_KEYDOWN:
      if (wParam != VK_F4) break;
      toggle_();
      return 0;
    case WM_SYSKEYDOWN:
      if (wParam != VK_DOWN) break;
      toggle_();
      return 0;
    case WM_CHAR:
      if (wParam != 1) break;  // Ctrl+A
      SelectAll();
      return 0;
    default:
      break;
  }
  return std::nullopt;
}

std::wstring FieldFrame::Text() const {
  return TextOf(field_);
}

void FieldFrame::SetText(const std::wstring& text) {
  if (text == Text()) return;
  showing_ = true;
  SetWindowTextW(field_, text.c_str());
  showing_ = false;
}

void FieldFrame::ShowNote(const std::wstring& text) {
  note_.reset();
  if (!text.empty()) note_ = std::make_unique<FieldNote>(surroundings_, field_, text);
}

void FieldFrame::SetRefused(bool refused) {
  if (std::exchange(refused_, refused) != refused) Redraw();
}

}  // namespace adapters::windows
