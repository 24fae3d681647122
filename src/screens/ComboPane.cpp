#include "screens/ComboPane.h"

#include <algorithm>

#include "text/Fold.h"

namespace screens {

using controls::Aspect;

ComboPane::ComboPane(controls::ComboBox& box, PaneHost& host)
    : PaneOfKind(box, host, Sign::kArrow, Holds::kPaintedText),
      drop_(host, *this, [this] { Choose(drop_.Current()); }) {}

void ComboPane::Detach() {
  drop_.Close();
  PaneOfKind::Detach();
}

void ComboPane::Changed(const controls::Change& change) {
  FieldPane::Changed(change);
  const bool disabled = change.aspect == Aspect::kEnabled && !Host().Enabled();
  if (disabled || change.aspect == Aspect::kItems) drop_.Close();
}

std::string ComboPane::Text() const {
  return Shown() == nullptr || Shown()->ListIndex() < 0 ? std::string()
                                                        : Shown()->List(Shown()->ListIndex());
}

void ComboPane::PaintInside(Surface& surface, const Rect& room) const {
  surface.Text(Text(), room, {.colour = Ink()});
}

void ComboPane::Choose(int index) {
  drop_.Close();
  if (index >= 0 && index < Count()) Shown()->SetListIndex(index);
}

void ComboPane::Toggle() {
  if (drop_.Open()) {
    drop_.Close();
  } else if (Shown() != nullptr && Host().Enabled()) {
    drop_.Show(Shown()->ListIndex(), Area().Width());
  }
}

void ComboPane::Wheel(const WheelEvent& event) {
  if (drop_.Open()) drop_.Wheel(event);
}

bool ComboPane::PressKey(const KeyEvent& event) {
  if (Shown() == nullptr || !Host().Enabled()) return false;
  if (drop_.Open()) return PressKeyInList(event) || FieldPane::PressKey(event);
  if (FieldPane::PressKey(event)) return true;
  if (event.modifiers.alt || event.modifiers.control) return false;
  const int now = Shown()->ListIndex();
  switch (event.key) {
    case Key::kDown:
      Choose(std::min(now + 1, Count() - 1));
      return true;
    case Key::kUp:
      Choose(now < 0 ? Count() - 1 : std::max(now - 1, 0));
      return true;
    case Key::kHome:
      Choose(0);
      return true;
    case Key::kEnd:
      Choose(Count() - 1);
      return true;
    case Key::kSpace:
      Toggle();
      return true;
    case Key::kText:
      return ChooseByLetter(event.text);
    default:
      return false;
  }
}

bool ComboPane::PressKeyInList(const KeyEvent& event) {
  switch (event.key) {
    case Key::kEnter:
    case Key::kSpace:
      Choose(drop_.Current());
      return true;
    case Key::kEscape:
      drop_.Close();
      return true;
    case Key::kTab:
      Choose(drop_.Current());
      return false;  // the form moves on
    default:
      return drop_.PressKey(event);
  }
}

/// The next item that begins with it, from the chosen one round to it.
bool ComboPane::ChooseByLetter(const std::string& letter) {
  const std::string sought = text::FoldForLookup(letter);
  for (int step = 1; step <= Count(); ++step) {
    const int index = (std::max(Shown()->ListIndex(), -1) + step) % Count();
    if (!text::FoldForLookup(Shown()->List(index)).starts_with(sought)) continue;
    Choose(index);
    break;
  }
  return true;
}

void ComboPane::FocusChanged(bool focused) {
  FieldPane::FocusChanged(focused);
  if (!focused) drop_.Close();
}

Accessible ComboPane::Describe() const {
  return DescribedOpener(drop_.Open(), Text());
}

}  // namespace screens
