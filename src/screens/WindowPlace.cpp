#include "screens/WindowPlace.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace screens {

namespace {

constexpr std::string_view kMaximised = " maximised";
constexpr int kFarthest = 1 << 20;  // no desk is that large; sums of such numbers do not overflow

std::optional<WindowPlace> Parse(std::string_view text) {
  std::array<int, 4> numbers{};
  const char* at = text.data();
  const char* const end = at + text.size();
  for (int& each : numbers) {
    while (at != end && *at == ' ') ++at;
    const auto [next, error] = std::from_chars(at, end, each);
    if (error != std::errc() || each < -kFarthest || each > kFarthest) return std::nullopt;
    at = next;
  }
  const auto [left, top, width, height] = numbers;
  if (width <= 0 || height <= 0) return std::nullopt;
  return WindowPlace{{left, top, left + width, top + height},
                     std::string_view(at, end) == kMaximised};
}

std::int64_t Shared(const Rect& one, const Rect& other) {
  const Rect both = one.Common(other);
  return std::int64_t{both.Width()} * both.Height();
}

Rect Inside(Point corner, Size size, const Rect& area) {
  const int width = std::min(size.width, area.Width());
  const int height = std::min(size.height, area.Height());
  const int left = std::clamp(corner.x, area.left, area.right - width);
  const int top = std::clamp(corner.y, area.top, area.bottom - height);
  return {left, top, left + width, top + height};
}

}  // namespace

std::string PlaceText(const WindowPlace& place) {
  std::string text;
  for (const int each :
       {place.place.left, place.place.top, place.place.Width(), place.place.Height()}) {
    if (!text.empty()) text += ' ';
    text += std::to_string(each);
  }
  if (place.maximised) text += kMaximised;
  return text;
}

std::optional<WindowPlace> PlaceOnDesk(std::string_view text, const std::vector<Rect>& workAreas) {
  std::optional<WindowPlace> found = Parse(text);
  if (!found) return std::nullopt;
  Rect& place = found->place;
  const auto best = std::ranges::max_element(
      workAreas, {}, [&place](const Rect& area) { return Shared(place, area); });
  if (best == workAreas.end() || Shared(place, *best) == 0) return std::nullopt;
  place = Inside({place.left, place.top}, {place.Width(), place.Height()}, *best);
  return found;
}

Rect PlaceOver(const Rect& below, Size window, const Rect& workArea) {
  return Inside({(below.left + below.right - window.width) / 2,
                 (below.top + below.bottom - window.height) / 2},
                window, workArea);
}

}  // namespace screens
