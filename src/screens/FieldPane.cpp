#include "screens/FieldPane.h"

#include <algorithm>
#include <utility>

#include "screens/NotePane.h"
#include "screens/Palette.h"

namespace screens {

namespace {

// Lengths at 96 dpi.
constexpr int kButtonWidth = 20;
constexpr int kEdge = 2;
constexpr int kMargin = 5;

}  // namespace

FieldPane::FieldPane(controls::Control& control, PaneHost& host, Sign sign, Holds holds)
    : ControlPane(control, host), sign_(sign), holds_(holds) {
  if (holds_ == Holds::kField) host.Field();
}

void FieldPane::Changed(const controls::Change& change) {
  ControlPane::Changed(change);
  if (change.aspect == controls::Aspect::kEnabled && !Host().Enabled()) ShowNote({});
}

void FieldPane::Resized(Size size) {
  ControlPane::Resized(size);
  ShowNote({});
  if (holds_ == Holds::kField) Host().Field().Move(Inside());
}

Rect FieldPane::ButtonPlace() const {
  if (sign_ == Sign::kNone) return {};
  const int edge = Design(kEdge);
  return {edge, edge, edge + Design(kButtonWidth), Area().bottom - edge};
}

Rect FieldPane::Inside() const {
  const int height = std::min(Host().LineHeight() + 2, std::max(0, Area().Height() - 2));
  const int top = (Area().Height() - height) / 2;
  const int left = sign_ == Sign::kNone ? Design(kMargin) : ButtonPlace().right + Design(kEdge);
  return {left, top, std::max(left, Area().right - Design(kMargin)), top + height};
}

void FieldPane::Paint(Surface& surface, const Rect& dirty) const {
  surface.Fill(dirty, Ground());
  surface.RoundBox(Area(), Design(3), Host().Enabled() ? palette::kField : palette::kFrame,
                   refused_ ? palette::kRefused : Border(),
                   refused_ || Focused() ? std::max(1, Design(1.5)) : 1);
  PaintInside(surface, Inside());
  if (sign_ != Sign::kNone) PaintSign(surface);
}

void FieldPane::PaintSign(Surface& surface) const {
  const bool enabled = Host().Enabled();
  const Rect button = ButtonPlace();
  if (enabled) {
    const controls::Colour ground = hovered_ ? palette::kAccentGround : palette::kButton;
    surface.RoundBox(button, Design(2), ground, ground);
  }
  const controls::Colour ink = enabled ? palette::kText : palette::kLine;
  const double unit = Host().GetScale().Unit();
  const auto at = Around(button, unit);
  if (sign_ == Sign::kArrow) {
    surface.Stroke({at(-4, -2), at(0, 2), at(4, -2)}, 1.5 * unit, ink);
    return;
  }
  const double width = 1.2 * unit;
  surface.Stroke({at(-5.5, -4.5), at(5.5, -4.5), at(5.5, 5.5), at(-5.5, 5.5), at(-5.5, -4.5)},
                 width, ink);
  surface.Stroke({at(-5.5, -1.5), at(5.5, -1.5)}, width, ink);
  surface.Stroke({at(-2.5, -6), at(-2.5, -3.5)}, width, ink);
  surface.Stroke({at(2.5, -6), at(2.5, -3.5)}, width, ink);
}

void FieldPane::Pointer(const PointerEvent& event) {
  const bool onButton =
      event.action != PointerEvent::Action::kLeave && ButtonPlace().Contains(event.place);
  const bool left = event.button == MouseButton::kLeft;
  const bool pressed = event.action == PointerEvent::Action::kPress && left && Host().Enabled();
  // What opens takes the mouse, and nobody tells when the pointer leaves.
  Hover(onButton && !pressed);
  if (!pressed) return;
  onButton ? Act(-1) : PressInside();
}

void FieldPane::Hover(bool hovered) {
  if (std::exchange(hovered_, hovered) != hovered) Host().Repaint(ButtonPlace());
}

bool FieldPane::PressKey(const KeyEvent& event) {
  if (sign_ == Sign::kNone) return false;
  const bool vertical = event.key == Key::kDown || event.key == Key::kUp;
  if (event.key != Key::kF4 && !(vertical && event.modifiers.alt)) return false;
  Toggle();
  return true;
}

void FieldPane::Act(int /*part*/) {
  if (sign_ == Sign::kNone) return;
  Host().TakeFocus();
  Toggle();
}

Accessible FieldPane::DescribedOpener(bool open, std::string value) const {
  Accessible described = Described(Role::kComboBox);
  described.focusable = described.expandable = true;
  described.expanded = open;
  described.action = open ? "بستن" : "باز كردن";
  described.value = std::move(value);
  return described;
}

void FieldPane::ShowNote(const std::string& sentence) {
  note_.reset();
  if (sentence.empty()) return;
  NotePane* note = nullptr;
  note_ = Host().MakePopup(PopupKind::kNote, [&](PaneHost& host) {
    auto made = std::make_unique<NotePane>(host, sentence, [this] { note_->Hide(); });
    note = made.get();
    return made;
  });
  note_->Show(note->Wanted(Host().PopupRoom(PopupKind::kNote)));
}

void FieldPane::SetRefused(bool refused) {
  if (std::exchange(refused_, refused) != refused) RepaintAll();
}

}  // namespace screens
