#include "screens/NotePane.h"

#include <algorithm>
#include <utility>

#include "screens/Palette.h"

namespace screens {

namespace {

constexpr int kMilliseconds = 5000;
constexpr int kPadding = 7;  // at 96 dpi
/// Wider lines are hard to read, however wide the form is.
constexpr int kMostWidth = 420;

}  // namespace

NotePane::NotePane(PaneHost& host, std::string sentence, std::function<void()> onEnd)
    : SizedPane(host), sentence_(std::move(sentence)), onEnd_(std::move(onEnd)) {
  Host().SetTimer(kMilliseconds);
}

int NotePane::Padding() const {
  return Design(kPadding);
}

Size NotePane::Wanted(Size room) const {
  const int most = std::max(1, std::min(room.width, Design(kMostWidth)) - 2 * Padding());
  const std::vector<std::string> lines = Wrapped(sentence_, most);
  int widest = 0;
  for (const std::string& line : lines) {
    widest = std::max(widest, TextWidth(line));
  }
  return {widest + 2 * Padding(), static_cast<int>(lines.size()) * Host().LineHeight() + Padding()};
}

void NotePane::Paint(Surface& surface, const Rect& dirty) const {
  surface.Fill(dirty, palette::kFrame);
  surface.RoundBox(Area(), Design(3), palette::kNoteGround, palette::kRefused);
  const Rect inside{Padding(), Padding() / 2, Area().right - Padding(), Area().bottom};
  PaintLines(surface, Wrapped(sentence_, inside.Width()), inside, {.colour = palette::kRefused});
}

void NotePane::Tick() {
  Host().SetTimer(0);
  onEnd_();
}

Accessible NotePane::Describe() const {
  return {.role = Role::kNote, .name = sentence_, .place = Area()};
}

}  // namespace screens
