#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "screens/Rect.h"

namespace screens {

/// Where a window stood on the desk, in pixels: the corner and size that the toolkit puts it to, as
/// they are when it is not maximised.
struct WindowPlace {
  Rect place;
  bool maximised = false;
  friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};

/// Keeps texts about windows from one run of the program to the next, by the names of their forms.
class PlaceStore {
 public:
  virtual ~PlaceStore() = default;
  /// Empty where nothing is kept.
  virtual std::string Read(const std::string& form) const = 0;
  /// What cannot be kept is forgotten without a word: a window opens where forms open.
  virtual void Write(const std::string& form, const std::string& text) = 0;
};

/// "left top width height" and " maximised" where it is so.
std::string PlaceText(const WindowPlace& place);

/// The place that a text of PlaceText tells, brought onto the desk: no larger than the work area
/// that holds most of it, and inside of that. None for another text, and for a place that lies on
/// no work area: its monitor is gone.
std::optional<WindowPlace> PlaceOnDesk(std::string_view text, const std::vector<Rect>& workAreas);

/// A window of this size over the middle of `below`, likewise brought into the work area.
Rect PlaceOver(const Rect& below, Size window, const Rect& workArea);

}  // namespace screens
