#include "screens/PixelPlace.h"

#include "controls/Controls.h"

namespace screens {

using controls::Control;
using controls::Frame;
using controls::Twips;

namespace {

/// That of the forms' other fields: a combo box has no height of its own.
constexpr Twips kComboHeight = 375;

}  // namespace

Rect PlaceInContainer(const Control& control, const std::function<int(Twips)>& pixels) {
  Twips originX = 0;
  Twips originY = 0;
  const auto* frame = dynamic_cast<const Frame*>(&control.Parent());
  while (frame != nullptr) {
    originX += frame->Left();
    originY += frame->Top();
    frame = dynamic_cast<const Frame*>(&frame->Parent());
  }
  const auto edge = [&pixels](Twips origin, Twips place) {
    return pixels(origin + place) - pixels(origin);
  };
  const bool combo = dynamic_cast<const controls::ComboBox*>(&control) != nullptr;
  const Twips height = combo ? kComboHeight : control.Height();
  return {edge(originX, control.Left()), edge(originY, control.Top()),
          edge(originX, control.Left() + control.Width()), edge(originY, control.Top() + height)};
}

}  // namespace screens
