#pragma once

#include <string_view>

#include "controls/Sheet.h"

namespace report {

/// How large letters are on paper, in points. A toolkit brings one; the same text is asked for
/// again and again, so it remembers.
class Letters {
 public:
  virtual ~Letters() = default;
  virtual double Width(std::string_view text, const controls::SheetFont& font) const = 0;
  /// From the top of a line to that of the next.
  virtual double LineHeight(const controls::SheetFont& font) const = 0;
};

}  // namespace report
