#include "screens/ButtonPanes.h"

#include "screens/Palette.h"

namespace screens {

template <typename Model>
void ClickPane<Model>::Show(bool pressed, bool hovered) {
  if (pressed == pressed_ && hovered == hovered_) return;
  pressed_ = pressed;
  hovered_ = hovered;
  this->RepaintAll();
}

template <typename Model>
void ClickPane<Model>::Pointer(const PointerEvent& event) {
  const bool inside = this->Area().Contains(event.place);
  switch (event.action) {
    case PointerEvent::Action::kPress:
      if (event.button == MouseButton::kLeft) Show(true, inside);
      break;
    case PointerEvent::Action::kMove:
      Show(pressed_, inside);
      break;
    case PointerEvent::Action::kRelease: {
      if (event.button != MouseButton::kLeft) break;
      const bool clicked = pressed_ && inside;
      Show(false, inside);
      if (clicked) Act(-1);
      break;
    }
    case PointerEvent::Action::kLeave:
      Show(pressed_, false);
      break;
  }
}

template <typename Model>
bool ClickPane<Model>::PressKey(const KeyEvent& event) {
  const bool clicks = event.key == Key::kSpace || (event.key == Key::kEnter && TakesEnter());
  if (!clicks || event.modifiers.alt || event.modifiers.control) return false;
  Act(-1);
  return true;
}

template <typename Model>
void ClickPane<Model>::Act(int /*part*/) {
  if (this->Shown() != nullptr && this->Host().Enabled()) this->Shown()->Click();
}

template class ClickPane<controls::Button>;
template class ClickPane<controls::CheckBox>;

void ButtonPane::Paint(Surface& surface, const Rect& dirty) const {
  surface.Fill(dirty, Ground());
  if (Shown() == nullptr) return;
  controls::Colour ground = palette::kButton;
  controls::Colour line = Border();
  if (!Host().Enabled()) {
    ground = Ground();  // no more than its caption and a faint line
  } else if (Pressed()) {
    ground = palette::kLine;
  } else if (Hovered()) {
    ground = palette::kAccentGround;
    line = palette::kAccent;
  }
  surface.RoundBox(Area(), Design(4), ground, line, Focused() ? Design(2) : 1);
  const int margin = Design(3);
  PaintCaption(surface, Shown()->Caption(), {margin, 0, Area().right - margin, Area().bottom},
               {Ink(), Side::kCentre});
}

Accessible ButtonPane::Describe() const {
  Accessible described = Described(Role::kButton);
  described.focusable = true;
  described.action = "فشردن";
  return described;
}

void CheckPane::Paint(Surface& surface, const Rect& dirty) const {
  surface.Fill(dirty, Ground());
  if (Shown() == nullptr) return;
  const bool enabled = Host().Enabled();
  const int side = Design(14);
  const int top = (Area().bottom - side) / 2;
  const Rect box{Area().right - side, top, Area().right, top + side};
  surface.RoundBox(box, Design(3), enabled ? palette::kField : palette::kFrame, Border(),
                   Focused() ? Design(2) : 1);
  if (Shown()->Checked()) {
    const double unit = side / 14.0;
    const auto at = [&](double x, double y) -> Dot {
      return {box.left + x * unit, box.top + y * unit};
    };
    surface.Stroke({at(3.2, 7.2), at(6, 10), at(10.8, 4.2)}, 1.8 * unit,
                   enabled ? palette::kAccent : palette::kMutedText);
  }
  PaintCaption(surface, Shown()->Caption(), {0, 0, box.left - Design(6), Area().bottom},
               {Focused() ? palette::kAccent : Ink()});
}

Accessible CheckPane::Describe() const {
  Accessible described = Described(Role::kCheckBox);
  described.focusable = described.checkable = true;
  described.checked = Shown() != nullptr && Shown()->Checked();
  described.action = described.checked ? "برداشتن علامت" : "علامت زدن";
  return described;
}

}  // namespace screens
