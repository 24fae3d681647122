#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>

#include "controls/Sheet.h"
#include "platform/RuntimeError.h"
#include "report/Fill.h"

namespace report {

/// A filled text in pieces that are there from the beginning.
class Pieces : public Markup {
 public:
  /// Cuts at `cut`, and then after every `size` bytes.
  Pieces(std::string text, std::size_t cut, std::size_t size)
      : text_(std::move(text)), cut_(cut), size_(size) {}
  bool Next(std::string& text, int& line) override {
    if (at_ >= text_.size()) return false;
    if (at_ == failAt) throw platform::RuntimeError(11, "the line broke");
    const std::size_t count = at_ < cut_ ? cut_ - at_ : size_;
    const auto begin = text_.begin();
    line = 1 + static_cast<int>(std::count(begin, begin + static_cast<std::ptrdiff_t>(at_), '\n'));
    text.append(text_, at_, count);
    at_ += count;
    return true;
  }
  MarkupPlace Where() const override { return {at_, {}}; }
  void GoTo(const MarkupPlace& place) override { at_ = place.node; }

  static inline std::size_t failAt = std::string::npos;

 private:
  std::string text_;
  std::size_t cut_;
  std::size_t size_;
  std::size_t at_ = 0;
};

/// All that stands on a sheet, a line each: "34 68 561 98 #ff0000" is filled; a text has its
/// letters behind the place.
inline std::string Dump(const controls::Sheet& sheet) {
  std::ostringstream out;
  const auto begin = [&out](const controls::SheetBox& box, controls::Colour colour) {
    out << box.left << ' ' << box.top << ' ' << box.right << ' ' << box.bottom << " #" << std::hex
        << colour << std::dec;
  };
  for (const controls::SheetFill& fill : sheet.fills) {
    begin(fill.box, fill.colour);
    out << '\n';
  }
  for (const controls::SheetText& text : sheet.texts) {
    begin(text.box, text.colour);
    constexpr const char* kSides[] = {" right ", " centre ", " left "};
    out << kSides[static_cast<int>(text.side)] << text.font.points;
    if (text.font.bold) out << " bold";
    if (!text.rightToLeft) out << " ltr";
    out << ": " << text.text << '\n';
  }
  return out.str();
}

}  // namespace report
