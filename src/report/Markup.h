#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace report {

/// Where a template that is being filled in stands between two pieces: small, since each page of a
/// report keeps one.
struct MarkupPlace {
  /// One section that is open, and its item under way.
  struct Turn {
    std::size_t node = 0;     // the section's own
    std::size_t row = 0;      // first of the item
    std::size_t end = 0;      // after the item's last; 0 while that is not known
    std::int64_t number = 0;  // of the item, from 1
    std::int64_t day = 0;     // of an item that is a day, week or month: its first
  };
  std::size_t node = 0;
  std::vector<Turn> turns;
};

/// HTML that comes in pieces, and can be taken up again at any place where it stood before.
class Markup {
 public:
  virtual ~Markup() = default;
  /// Appends the next piece to `text` and says from which line of the template it is. False, and
  /// nothing appended, at the end. Data are escaped (&amp; &lt; &gt; &quot;). What reads them may
  /// throw RuntimeError.
  virtual bool Next(std::string& text, int& line) = 0;
  virtual MarkupPlace Where() const = 0;
  virtual void GoTo(const MarkupPlace& place) = 0;
};

}  // namespace report
