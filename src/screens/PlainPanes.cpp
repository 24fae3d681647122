#include "screens/PlainPanes.h"

#include <algorithm>

#include "screens/Palette.h"

namespace screens {

using controls::Label;

void LabelPane::Paint(Surface& surface, const Rect& dirty) const {
  surface.Fill(dirty, Ground());
  if (Shown() == nullptr) return;
  TextStyle style{.colour = Ink()};
  switch (Shown()->GetLook()) {
    case Label::Look::kSign:
      return PaintSign(surface, palette::kAccent);
    case Label::Look::kErrorSign:
      return PaintSign(surface, palette::kRefused);
    case Label::Look::kTechnical: {
      surface.RoundBox(Area(), Design(3), palette::kField, palette::kLine);
      const int margin = Design(6);
      style = {palette::kMutedText, Side::kLeft, Direction::kLeftToRight};
      const Rect inside{margin, margin, Area().right - margin, Area().bottom - margin};
      return PaintCentred(surface, inside, style);
    }
    case Label::Look::kStrong:
      style.weight = Weight::kBold;
      break;
    case Label::Look::kPlain:
      break;
  }
  if (Area().Height() >= 2 * Host().LineHeight()) return PaintCentred(surface, Area(), style);
  PaintCaption(surface, Shown()->Caption(), Area(), style);
}

void LabelPane::PaintSign(Surface& surface, controls::Colour ground) const {
  const int side = std::min(Area().Width(), Area().Height());
  surface.RoundBox({0, 0, side, side}, side / 2, ground, ground);
  surface.Text(Shown()->Caption(), {0, 0, side, side},
               {palette::kOnAccent, Side::kCentre, Direction::kLeftToRight, Weight::kBold});
}

/// All lines of it, from the top where they leave no room.
void LabelPane::PaintCentred(Surface& surface, Rect area, const TextStyle& style) const {
  const auto lines = Wrapped(Shown()->Caption(), area.Width(), style.weight);
  const int height = static_cast<int>(lines.size()) * Host().LineHeight();
  area.top += std::max(0, area.Height() - height) / 2;
  PaintLines(surface, lines, area, style);
}

Accessible LabelPane::Describe() const {
  Accessible described = Described(Role::kLabel);
  if (Shown() == nullptr) return described;
  const Label::Look look = Shown()->GetLook();
  const bool sign = look == Label::Look::kSign || look == Label::Look::kErrorSign;
  if (sign) described.role = Role::kSign;
  return described;
}

void FramePane::Paint(Surface& surface, const Rect& dirty) const {
  surface.Fill(dirty, Ground());
  if (Shown() == nullptr || Shown()->BorderStyle() == controls::Frame::Border::kNone) return;
  const std::string& caption = Shown()->Caption();
  const int lineHeight = Host().LineHeight();
  const int top = caption.empty() ? 0 : lineHeight / 2;
  const Rect box{0, top, Area().right, Area().bottom};
  surface.RoundBox(box, Design(5), palette::kFrame, palette::kLine);
  if (caption.empty()) return;
  const int width = TextWidth(caption);
  const Rect place{box.right - width - Design(20), 0, box.right - Design(8), lineHeight};
  // Above the line the ground around, below it that of the frame.
  surface.Fill({place.left, top, place.right, top + Design(2)}, palette::kFrame);
  surface.Text(caption, place,
               {Host().Enabled() ? palette::kDeepAccent : palette::kMutedText, Side::kCentre});
}

Accessible FramePane::Describe() const {
  return Described(Role::kGroup);
}

void ProgressPane::Changed(const controls::Change& change) {
  ++step_;
  ControlPane::Changed(change);
}

void ProgressPane::Paint(Surface& surface, const Rect& dirty) const {
  surface.Fill(dirty, Ground());
  surface.RoundBox(Area(), Design(4), palette::kField, palette::kLine);
  if (Shown() == nullptr) return;
  const int inset = Design(2);
  Rect done{inset, inset, Area().right - inset, Area().bottom - inset};
  const double share = Shown()->Share();
  if (share < 0) {
    constexpr int kSteps = 20;
    const int piece = done.Width() / 4;
    done.right -= (done.Width() - piece) * (step_ % kSteps) / kSteps;
    done.left = done.right - piece;
  } else {
    done.left = done.right - static_cast<int>(done.Width() * std::min(share, 1.0));
  }
  if (!done.Empty()) surface.RoundBox(done, Design(3), palette::kAccent, palette::kAccent);
}

Accessible ProgressPane::Describe() const {
  Accessible described = Described(Role::kProgressBar);
  if (Shown() != nullptr && Shown()->Share() >= 0) {
    described.value = std::to_string(static_cast<int>(Shown()->Share() * 100)) + "%";
  }
  return described;
}

}  // namespace screens
