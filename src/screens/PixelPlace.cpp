#include "screens/PixelPlace.h"

#include "controls/Controls.h"

namespace screens {

using controls::Control;
using controls::Frame;
using controls::Twips;

PixelPlace PlaceInContainer(const Control& control, const std::function<int(Twips)>& pixels) {
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
  return {edge(originX, control.Left()), edge(originY, control.Top()),
          edge(originX, control.Left() + control.Width()),
          edge(originY, control.Top() + control.Height())};
}

}  // namespace screens
