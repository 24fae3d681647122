#include "adapters/windows/Field.h"

#include <algorithm>

namespace adapters::windows {

RECT InsideField(const RECT& outer, const Theme& theme, bool severalLines) {
  const Scale& scale = theme.GetScale();
  RECT inside = outer;
  InflateRect(&inside, -scale.Design(5), -scale.Design(3));
  if (severalLines) return inside;
  const LONG height = std::min<LONG>(theme.LineHeight(), outer.bottom - outer.top - 2);
  inside.top = outer.top + (outer.bottom - outer.top - height) / 2;
  inside.bottom = inside.top + height;
  return inside;
}

void PaintField(const Canvas& canvas, const RECT& outer, const Theme& theme,
                controls::Colour around, bool enabled, bool focused) {
  canvas.Fill(outer, around);
  controls::Colour line = enabled ? theme::kBorder : theme::kLine;
  if (focused) line = theme::kAccent;
  canvas.RoundBox(outer, theme.GetScale().Design(3),
                  enabled ? theme::kField : controls::palette::kFrame, line);
}

LRESULT FieldColours(HDC dc, bool enabled) {
  const controls::Colour ground = enabled ? theme::kField : controls::palette::kFrame;
  SetTextColor(dc, theme::kText);
  SetBkColor(dc, ground);
  SetDCBrushColor(dc, ground);
  return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
}

}  // namespace adapters::windows
