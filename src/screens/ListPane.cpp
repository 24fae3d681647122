#include "screens/ListPane.h"

#include <algorithm>
#include <utility>

#include "screens/Palette.h"

namespace screens {

namespace {

// Lengths at 96 dpi.
constexpr int kRowPadding = 7;
constexpr int kMargin = 8;
constexpr int kDetailGap = 16;
constexpr int kScrollBar = 20;

constexpr int kMeasuredRows = 200;

}  // namespace

int ListPane::RowHeight() const {
  return Host().LineHeight() + Design(kRowPadding);
}

Size ListPane::Wanted(int least, Size room) const {
  int widest = 0;
  for (int row = 0; row < std::min(Count(), kMeasuredRows); ++row) {
    const ListRow texts = rows_.At(row);
    widest = std::max(widest, TextWidth(texts.name) + TextWidth(texts.detail));
  }
  widest += Design(kDetailGap + 2 * kMargin + kScrollBar);
  return {std::clamp(widest, least, std::max(least, room.width)),
          std::clamp(Count(), 1, kShownRows) * RowHeight() + 2};
}

void ListPane::Reset(int current, bool centred) {
  current_ = current;
  hovered_ = -1;
  ScrollTo(centred && current > 0 ? current - kShownRows / 2 : 0);
  Host().Announce(Tidings::kContent, -1);
  if (current_ >= 0) Host().Announce(Tidings::kFocus, current_);
}

void ListPane::ScrollTo(int top) {
  top_ = std::clamp(top, 0, std::max(0, Count() - kShownRows));
  Host().SetScrollBar(Axis::kDown, {Count(), kShownRows, top_, 1});
  RepaintAll();
}

void ListPane::MoveBy(int rows) {
  if (Count() == 0) return;
  const int from = current_ >= 0 ? current_ : (rows > 0 ? -1 : Count());
  current_ = std::clamp(from + rows, 0, Count() - 1);
  ScrollTo(std::clamp(top_, current_ - kShownRows + 1, current_));
  Host().Announce(Tidings::kFocus, current_);
}

Rect ListPane::RowPlace(int row) const {
  const int top = (row - top_) * RowHeight();
  if (row < top_ || row >= Count() || top >= Area().bottom) return {};
  return {0, top, Area().right, top + RowHeight()};
}

int ListPane::RowAt(Point place) const {
  if (!Area().Contains(place)) return -1;
  const int row = top_ + place.y / RowHeight();
  return row < Count() ? row : -1;
}

void ListPane::Paint(Surface& surface, const Rect& dirty) const {
  surface.Fill(dirty, palette::kField);
  if (Count() == 0) {
    surface.Text("موردي يافت نشد", Area(), {.colour = palette::kMutedText, .side = Side::kCentre});
    return;
  }
  for (int row = top_; !RowPlace(row).Empty(); ++row) PaintRow(surface, row, RowPlace(row));
}

void ListPane::PaintRow(Surface& surface, int row, const Rect& place) const {
  const ListRow texts = rows_.At(row);
  if (row == current_) {
    surface.Fill(place, palette::kAccentGround);
  } else if (row == hovered_) {
    surface.Fill(place, palette::kGridRow);
  }
  Rect inside = place;
  inside.left += Design(kMargin);
  inside.right -= Design(kMargin);
  if (!texts.detail.empty()) {
    // What the name leaves; of a long name, a third of the row.
    const int gap = Design(kDetailGap);
    const int name = TextWidth(texts.name);
    const int width = std::min(TextWidth(texts.detail),
                               std::max(inside.Width() - name - gap, inside.Width() / 3));
    surface.Text(texts.detail, {inside.left, inside.top, inside.left + width, inside.bottom},
                 {.colour = palette::kMutedText, .side = Side::kLeft});
    inside.left += width + gap;
  }
  surface.Text(texts.name, inside, {.colour = palette::kText});
}

void ListPane::Pointer(const PointerEvent& event) {
  const int row = RowAt(event.action == PointerEvent::Action::kLeave ? Point{-1, -1} : event.place);
  if (std::exchange(hovered_, row) != row) RepaintAll();
  if (event.action == PointerEvent::Action::kRelease && event.button == MouseButton::kLeft) {
    Act(row);
  }
}

void ListPane::Wheel(const WheelEvent& event) {
  const int rows = WholeSteps(event.up * (event.lines == 0 ? kShownRows : event.lines));
  if (rows != 0) ScrollTo(top_ - rows);
}

void ListPane::Scrolled(Axis axis, int place) {
  if (axis == Axis::kDown) ScrollTo(place);
}

Accessible ListPane::Describe() const {
  return {.role = Role::kList, .place = Area()};
}

Accessible ListPane::DescribePart(int part) const {
  const ListRow texts = rows_.At(part);
  Accessible described{.role = Role::kListItem, .name = texts.name};
  described.description = texts.detail;
  described.action = "برگزيدن";
  described.place = RowPlace(part);
  described.selectable = true;
  described.selected = described.focused = part == current_;
  return described;
}

void ListPane::Act(int part) {
  if (part < 0 || part >= Count()) return;
  current_ = part;
  onPicked_();
}

}  // namespace screens
