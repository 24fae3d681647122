#include "adapters/windows/FieldNote.h"

#include <algorithm>
#include <utility>

namespace adapters::windows {

namespace {

// Lengths at 96 dpi.
constexpr int kPadding = 7;
constexpr int kGap = 2;
constexpr int kCorner = 3;
constexpr UINT_PTR kTimer = 1;
constexpr UINT kMilliseconds = 5000;

}  // namespace

FieldNote::FieldNote(const Surroundings& surroundings, HWND field, std::wstring text)
    : Window(surroundings.guard), look_(surroundings.theme), text_(std::move(text)) {
  const HWND form = GetAncestor(field, GA_ROOT);
  RECT room{};
  GetClientRect(form, &room);
  RECT below{};
  GetWindowRect(field, &below);
  MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&below), 2);
  WindowPlan plan;
  plan.style = WS_CHILD | WS_CLIPSIBLINGS;
  plan.parent = form;
  plan.place = PlaceFor(below, room);
  Create(plan);
  SetWindowPos(Handle(), HWND_TOP, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  SetTimer(Handle(), kTimer, kMilliseconds, nullptr);
}

int FieldNote::Padding() const {
  return look_.GetScale().Design(kPadding);
}

/// Below the field, above it where there is no room below; as wide as its text, at most the form.
RECT FieldNote::PlaceFor(const RECT& field, const RECT& room) const {
  const Measuring measuring(look_.Font());
  const LONG most = std::max(LONG{1}, room.right - 2 * Padding());
  const LONG text = std::min(LONG{TextWidth(measuring.Dc(), text_)}, most);
  const auto lines = static_cast<LONG>(WrapText(measuring.Dc(), text_, text).size());
  const LONG width = text + 2 * Padding();
  const LONG height = lines * look_.LineHeight() + Padding();
  const LONG gap = look_.GetScale().Design(kGap);
  const LONG left = std::clamp(field.right - width, LONG{0}, std::max(LONG{0}, room.right - width));
  LONG top = field.bottom + gap;
  if (top + height > room.bottom) top = std::max(LONG{0}, field.top - gap - height);
  return {left, top, left + width, top + height};
}

void FieldNote::Paint() const {
  const PaintSession session(Handle());
  session.Fill(session.Area(), controls::palette::kFrame);
  session.RoundBox(session.Area(), look_.GetScale().Design(kCorner), theme::kNoteGround,
                   theme::kRefused);
  TextLook look;
  look.font = look_.Font();
  look.colour = theme::kRefused;
  look.wrapped = true;
  RECT inside = session.Area();
  InflateRect(&inside, -Padding(), 0);
  session.Text(text_, inside, look);
}

LRESULT FieldNote::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      Paint();
      return 0;
    case WM_TIMER:
      KillTimer(Handle(), kTimer);
      ShowWindow(Handle(), SW_HIDE);
      return 0;
    case WM_NCHITTEST:
      return HTTRANSPARENT;
    case WM_ERASEBKGND:
      return 1;
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace adapters::windows
