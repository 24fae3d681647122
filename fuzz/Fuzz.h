#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

/// What each target defines: one input, tried out. It ends the process when something that must
/// hold does not.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

inline std::string_view Text(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

inline void Require(bool holds, std::string_view what, std::string_view where = {}) {
  if (holds) return;
  std::cerr << "does not hold: " << what << '\n' << where << std::endl;
  std::abort();
}

/// An input read as a row of choices; without end, all zeros behind the last byte.
class Choices {
 public:
  Choices(const std::uint8_t* data, std::size_t size) : rest_(Text(data, size)) {}
  bool AtEnd() const { return rest_.empty(); }
  int Upto(int most) {
    int value = 0;
    for (int bytes = most; bytes > 0; bytes /= 256) value = value * 256 + Byte();
    return value % (most + 1);
  }
  /// A text that says its own length, of at most 255 bytes.
  std::string Piece() {
    std::string piece(rest_.substr(0, static_cast<std::size_t>(Upto(255))));
    rest_.remove_prefix(piece.size());
    return piece;
  }

 private:
  int Byte() {
    if (rest_.empty()) return 0;
    const auto byte = static_cast<std::uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
  }
  std::string_view rest_;
};

}  // namespace fuzz
