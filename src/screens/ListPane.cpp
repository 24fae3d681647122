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

ListPane::ListPane(PaneHost& host, const ListRows& rows, std::function<void()> onPicked)
    : host_(host), rows_(&rows), onPicked_(std::move(onPicked)) {}

int ListPane::RowHeight() const {
  return host_.LineHeight() + host_.GetScale().Design(kRowPadding);
}

Size ListPane::Wanted(int least, Size room) const {
  int widest = 0;
  for (int row = 0; row < std::min(Count(), kMeasuredRows); ++row) {
    const ListRow texts = rows_->At(row);
    widest = std::max(widest, host_.TextWidth(texts.name, Weight::kNormal) +
                                  host_.TextWidth(texts.detail, Weight::kNormal));
  }
  const Scale scale = host_.GetScale();
  widest += scale.Design(kDetailGap + 2 * kMargin + kScrollBar);
  return {std::clamp(widest, least, std::max(least, room.width)),
          std::clamp(Count(), 1, kShownRows) * RowHeight() + 2};
}

void ListPane::Reset(int current, bool centred) {
  current_ = current;
  hovered_ = -1;
  ScrollTo(centred && current > 0 ? current - kShownRows / 2 : 0);
  host_.Announce(Tidings::kContent, -1);
  if (current_ >= 0) host_.Announce(Tidings::kFocus, current_);
}

void ListPane::Resized(Size size) {
  size_ = size;
  RepaintAll();
}

void ListPane::ScrollTo(int top) {
  top_ = std::clamp(top, 0, std::max(0, Count() - kShownRows));
  host_.SetScrollBar(Axis::kDown, {Count(), kShownRows, top_, 1});
  RepaintAll();
}

void ListPane::MoveBy(int rows) {
  if (Count() == 0) return;
  const int from = current_ >= 0 ? current_ : (rows > 0 ? -1 : Count());
  current_ = std::clamp(from + rows, 0, Count() - 1);
  ScrollTo(std::clamp(top_, current_ - kShownRows + 1, current_));
  host_.Announce(Tidings::kFocus, current_);
}

Rect ListPane::RowPlace(int row) const {
  const int top = (row - top_) * RowHeight();
  if (row < top_ || row >= Count() || top >= size_.height) return {};
  return {0, top, size_.width, top + RowHeight()};
}

int ListPane::RowAt(Point place) const {
  if (!Rect{0, 0, size_.width, size_.height}.Contains(place)) return -1;
  const int row = top_ + place.y / RowHeight();
  return row < Count() ? row : -1;
}

void ListPane::Paint(Surface& surface, const Rect& dirty) const {
  surface.Fill(dirty, palette::kField);
  if (Count() == 0) {
    surface.Text("موردي يافت نشد", {0, 0, size_.width, size_.height},
                 {.colour = palette::kMutedText, .side = Side::kCentre});
    return;
  }
  for (int row = top_; !RowPlace(row).Empty(); ++row) PaintRow(surface, row, RowPlace(row));
}

void ListPane::PaintRow(Surface& surface, int row, const Rect& place) const {
  const ListRow texts = rows_->At(row);
  if (row == current_) {
    surface.Fill(place, palette::kAccentGround);
  } else if (row == hovered_) {
    surface.Fill(place, palette::kGridRow);
  }
  const Scale scale = host_.GetScale();
  Rect inside = place;
  inside.left += scale.Design(kMargin);
  inside.right -= scale.Design(kMargin);
  if (!texts.detail.empty()) {
    // What the name leaves; of a long name, a third of the row.
    const int gap = scale.Design(kDetailGap);
    const int name = host_.TextWidth(texts.name, Weight::kNormal);
    const int width = std::min(host_.TextWidth(texts.detail, Weight::kNormal),
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
  wheelRest_ += event.up * (event.lines == 0 ? kShownRows : event.lines);
  const int rows = static_cast<int>(wheelRest_);
  wheelRest_ -= rows;
  if (rows != 0) ScrollTo(top_ - rows);
}

void ListPane::Scrolled(Axis axis, int place) {
  if (axis == Axis::kDown) ScrollTo(place);
}

Accessible ListPane::Describe() const {
  return {.role = Role::kList, .place = {0, 0, size_.width, size_.height}};
}

Accessible ListPane::DescribePart(int part) const {
  const ListRow texts = rows_->At(part);
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
