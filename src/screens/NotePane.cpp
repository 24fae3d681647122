#include "screens/NotePane.h"

#include <algorithm>
#include <utility>

#include "screens/Palette.h"
#include "screens/WrapText.h"

namespace screens {

namespace {

constexpr int kMilliseconds = 5000;
constexpr int kPadding = 7;  // at 96 dpi
/// Wider lines are hard to read, however wide the form is.
constexpr int kMostWidth = 420;

}  // namespace

NotePane::NotePane(PaneHost& host, std::string sentence, std::function<void()> onEnd)
    : host_(host), sentence_(std::move(sentence)), onEnd_(std::move(onEnd)) {
  host_.SetTimer(kMilliseconds);
}

int NotePane::Padding() const {
  return host_.GetScale().Design(kPadding);
}

std::vector<std::string> NotePane::Lines(int width) const {
  return WrapText(sentence_, width,
                  [this](std::string_view text) { return host_.TextWidth(text, Weight::kNormal); });
}

Size NotePane::Wanted(Size room) const {
  const int most =
      std::max(1, std::min(room.width, host_.GetScale().Design(kMostWidth)) - 2 * Padding());
  const std::vector<std::string> lines = Lines(most);
  int widest = 0;
  for (const std::string& line : lines) {
    widest = std::max(widest, host_.TextWidth(line, Weight::kNormal));
  }
  return {widest + 2 * Padding(), static_cast<int>(lines.size()) * host_.LineHeight() + Padding()};
}

void NotePane::Paint(Surface& surface, const Rect& dirty) const {
  surface.Fill(dirty, palette::kFrame);
  surface.RoundBox({0, 0, size_.width, size_.height}, host_.GetScale().Design(3),
                   palette::kNoteGround, palette::kRefused);
  int top = Padding() / 2;
  const int right = size_.width - Padding();
  for (const std::string& line : Lines(right - Padding())) {
    surface.Text(line, {Padding(), top, right, top + host_.LineHeight()},
                 {.colour = palette::kRefused});
    top += host_.LineHeight();
  }
}

void NotePane::Tick() {
  host_.SetTimer(0);
  onEnd_();
}

Accessible NotePane::Describe() const {
  return {.role = Role::kNote, .name = sentence_, .place = {0, 0, size_.width, size_.height}};
}

}  // namespace screens
