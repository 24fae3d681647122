#include <algorithm>

#include "adapters/windows/Paint.h"

namespace adapters::windows {

namespace {

// The Semitic scripts and what comes after them.
constexpr wchar_t kFirstJoinedScript = 0x0590;

}  // namespace

void Canvas::Text(std::wstring_view text, const RECT& area, const TextLook& look) const {
  if (text.empty()) return;
  const Selected font(dc_, look.font);
  SetBkMode(dc_, TRANSPARENT);
  SetTextColor(dc_, look.colour);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc_, &metrics);
  const int top = area.top + (area.bottom - area.top - metrics.tmHeight) / 2;
  const std::wstring shown = Shortened(dc_, text, area.right - area.left);
  UINT align = TA_TOP | TA_RIGHT;
  int x = area.right;
  if (look.across == Across::kCentre) {
    align = TA_TOP | TA_CENTER;
    x = (area.left + area.right) / 2;
  } else if (look.across == Across::kLeft) {
    align = TA_TOP | TA_LEFT;
    x = area.left;
  }
  // The device contexts are not mirrored, so right is right; the reading order is told apart.
  const UINT order = look.leftToRight ? 0 : ETO_RTLREADING;
  SetTextAlign(dc_, align | (look.leftToRight ? 0 : TA_RTLREADING));
  ExtTextOutW(dc_, x, top, order | ETO_CLIPPED, &area, shown.data(),
              static_cast<UINT>(shown.size()), nullptr);
  SetTextAlign(dc_, TA_TOP | TA_LEFT);
}

int TextWidth(HDC dc, std::wstring_view text) {
  const int units = static_cast<int>(text.size());
  SIZE size{};
  GetTextExtentPoint32W(dc, text.data(), units, &size);
  if (std::ranges::none_of(text, [](wchar_t unit) { return unit >= kFirstJoinedScript; })) {
    return size.cx;
  }
  // Wine measures letters as they stand alone. Where the pen has come to after drawing tells how
  // wide they are joined; should it not have moved, the measure above holds.
  const HDC memory = CreateCompatibleDC(dc);
  {
    const Selected font(memory, GetCurrentObject(dc, OBJ_FONT));
    SetTextAlign(memory, TA_TOP | TA_LEFT | TA_UPDATECP);
    MoveToEx(memory, 0, 0, nullptr);
    ExtTextOutW(memory, 0, 0, 0, nullptr, text.data(), static_cast<UINT>(units), nullptr);
    POINT pen{};
    GetCurrentPositionEx(memory, &pen);
    if (pen.x > 0) size.cx = std::min(size.cx, pen.x);
  }
  DeleteDC(memory);
  return size.cx;
}

std::wstring Shortened(HDC dc, std::wstring_view text, int width) {
  // Letters that stand alone are the wider ones, and the quicker to measure: most texts end here.
  SIZE apart{};
  GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &apart);
  if (apart.cx <= width || TextWidth(dc, text) <= width) return std::wstring(text);
  // The longest beginning that fits together with the dots.
  std::size_t fits = 0;
  std::size_t tooLong = text.size();
  std::wstring shown;
  while (fits + 1 < tooLong) {
    const std::size_t middle = (fits + tooLong) / 2;
    shown.assign(text.substr(0, middle)).append(L"…");
    (TextWidth(dc, shown) <= width ? fits : tooLong) = middle;
  }
  shown.assign(text.substr(0, fits));
  while (!shown.empty() && shown.back() == L' ') shown.pop_back();
  return shown.append(L"…");
}

}  // namespace adapters::windows
