#include "screens/FindLine.h"

#include <algorithm>
#include <utility>

#include "screens/Palette.h"

namespace screens {

namespace {

// At 96 dpi.
constexpr int kEdge = 3;
constexpr int kGap = 2;
constexpr int kButtonWidth = 24;
constexpr int kBoxRoom = 8;  // of the field's box, beside a line of text
constexpr int kBoxMargin = 5;
constexpr int kFoundMargin = 6;

struct Words {
  const char* name;
  const char* keys;
};

Words WordsOf(FindLine::Button button) {
  switch (button) {
    case FindLine::Button::kPrevious:
      return {"قبلي", "Shift+Enter"};
    case FindLine::Button::kNext:
      return {"بعدي", "Enter"};
    case FindLine::Button::kClose:
      break;
  }
  return {"بستن جستجو", "Esc"};
}

}  // namespace

void FindLine::Open() {
  open_ = true;
  MoveField();
  host_.Field().SelectAll();
}

void FindLine::Close() {
  open_ = pressing_ = false;
  pressed_ = hovered_ = std::nullopt;
  host_.Field().Hide();
}

int FindLine::Height() const {
  if (!open_) return 0;
  return host_.LineHeight() + host_.GetScale().Design(kBoxRoom + 2 * kEdge);
}

void FindLine::Resized(int width) {
  width_ = width;
  if (open_) MoveField();
}

bool FindLine::Show(const std::string& found, bool refused) {
  const bool other = std::exchange(found_, found) != found;
  if (std::exchange(refused_, refused) == refused && !other) return false;
  MoveField();
  host_.Repaint(Place());
  return true;
}

Rect FindLine::ButtonPlace(Button button) const {
  const Scale scale = host_.GetScale();
  const int edge = scale.Design(kEdge);
  const int width = scale.Design(kButtonWidth);
  // From the left: closing, next, previous.
  const int before = 2 - static_cast<int>(button);
  const int left = edge + before * (width + scale.Design(kGap));
  return {left, edge, left + width, Height() - edge};
}

/// As wide as its words, and as those that nothing was found, so that the field stands still.
Rect FindLine::FoundPlace() const {
  const Scale scale = host_.GetScale();
  const int words = std::max(host_.TextWidth(found_, Weight::kNormal),
                             host_.TextWidth(kNothing, Weight::kNormal));
  const int left = ButtonPlace(Button::kPrevious).right;
  const int most = std::max(left, (left + width_) / 2);
  return {left, 0, std::min(most, left + words + 2 * scale.Design(kFoundMargin)), Height()};
}

Rect FindLine::BoxPlace() const {
  const int edge = host_.GetScale().Design(kEdge);
  const int left = FoundPlace().right;
  return {left, edge, std::max(left, width_ - edge), Height() - edge};
}

void FindLine::MoveField() {
  const Rect box = BoxPlace();
  const int margin = host_.GetScale().Design(kBoxMargin);
  const int height = std::min(host_.LineHeight() + 2, box.Height() - 2);
  const int top = (box.top + box.bottom - height) / 2;
  host_.Field().Move(
      {box.left + margin, top, std::max(box.left, box.right - margin), top + height});
}

void FindLine::Paint(Surface& surface, bool focused) const {
  const Scale scale = host_.GetScale();
  const Rect place = Place();
  surface.Fill(place, palette::kFrame);
  surface.Fill({place.left, place.bottom - 1, place.right, place.bottom}, palette::kLine);
  controls::Colour line = focused ? palette::kAccent : palette::kBorder;
  if (refused_) line = palette::kRefused;
  surface.RoundBox(BoxPlace(), scale.Design(3), palette::kField, line,
                   focused || refused_ ? std::max(1, scale.Design(1.5)) : 1);
  surface.Text(found_, FoundPlace(),
               {.colour = refused_ ? palette::kRefused : palette::kText, .side = Side::kCentre});
  for (const Button button : {Button::kPrevious, Button::kNext, Button::kClose}) {
    PaintButton(surface, button);
  }
}

void FindLine::PaintButton(Surface& surface, Button button) const {
  const Scale scale = host_.GetScale();
  const Rect place = ButtonPlace(button);
  controls::Colour ground = palette::kButton;
  controls::Colour line = palette::kBorder;
  if (pressed_ == button && hovered_ == button) {
    ground = palette::kLine;
  } else if (hovered_ == button) {
    ground = palette::kAccentGround;
    line = palette::kAccent;
  }
  surface.RoundBox(place, scale.Design(3), ground, line);
  const double unit = scale.Unit();
  const auto at = Around(place, unit);
  const double width = 1.5 * unit;
  if (button == Button::kClose) {
    surface.Stroke({at(-3.5, -3.5), at(3.5, 3.5)}, width, palette::kText);
    surface.Stroke({at(-3.5, 3.5), at(3.5, -3.5)}, width, palette::kText);
  } else {
    const double tip = button == Button::kNext ? 2 : -2;
    surface.Stroke({at(-4, -tip), at(0, tip), at(4, -tip)}, width, palette::kText);
  }
}

std::optional<FindLine::Button> FindLine::ButtonAt(Point place) const {
  for (const Button button : {Button::kPrevious, Button::kNext, Button::kClose}) {
    if (open_ && ButtonPlace(button).Contains(place)) return button;
  }
  return std::nullopt;
}

bool FindLine::Pointer(const PointerEvent& event) {
  using enum PointerEvent::Action;
  const bool on = event.action != kLeave && Contains(event.place);
  const bool mine = on || pressing_;
  const bool left = event.button == MouseButton::kLeft;
  const auto before = std::pair(pressed_, hovered_);
  hovered_ = on ? ButtonAt(event.place) : std::nullopt;
  std::optional<Button> clicked;
  if (event.action == kPress && left && on) {
    pressing_ = true;
    pressed_ = hovered_;
  } else if (event.action == kRelease && left) {
    if (pressed_ == hovered_) clicked = pressed_;
    pressing_ = false;
    pressed_ = std::nullopt;
  }
  if (before != std::pair(pressed_, hovered_)) host_.Repaint(Place());
  if (clicked && host_.Enabled()) press_(*clicked);
  return mine;
}

void FindLine::PointerLost() {
  pressing_ = false;
  if (std::exchange(pressed_, std::nullopt)) host_.Repaint(Place());
}

Tip FindLine::TipAt(Point place) const {
  const auto button = ButtonAt(place);
  if (!button) return {};
  const auto [name, keys] = WordsOf(*button);
  return {ButtonPlace(*button), std::string(name) + " (" + keys + ")"};
}

Accessible FindLine::DescribePart(int part, const std::string& list, bool focused) const {
  Accessible told{.enabled = host_.Enabled()};
  if (part == kFoundPart) {
    told.role = Role::kLabel;
    told.name = found_;
    told.place = FoundPlace();
  } else if (part == kFieldPart) {
    told.role = Role::kField;
    told.name = list.empty() ? "جستجو در ليست" : "جستجو در " + list;
    told.value = host_.Field().Text();
    told.place = BoxPlace();
    told.focusable = true;
    told.focused = focused;
  } else {
    const auto button = static_cast<Button>(part - 1);
    const auto [name, keys] = WordsOf(button);
    told.role = Role::kButton;
    told.name = name;
    told.keys = keys;
    told.action = "فشردن";
    told.place = ButtonPlace(button);
  }
  return told;
}

int FindLine::PartAt(Point place) const {
  if (const auto button = ButtonAt(place)) return static_cast<int>(*button) + 1;
  return BoxPlace().Contains(place) ? kFieldPart : kFoundPart;
}

void FindLine::Act(int part) {
  if (part == kFieldPart) return host_.TakeFocus();
  if (part != kFoundPart) press_(static_cast<Button>(part - 1));
}

}  // namespace screens
