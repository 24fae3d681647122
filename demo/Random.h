#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace demo {

/// The same numbers on every machine for the same seed (splitmix64), which the distributions of the
/// standard library do not promise.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
  }

  /// 0 to limit - 1; limit is at least 1.
  int Below(int limit) { return static_cast<int>(Next() % static_cast<std::uint64_t>(limit)); }
  /// Both ends included.
  int Between(int low, int high) { return low + Below(high - low + 1); }
  bool Chance(int percent) { return Below(100) < percent; }

  template <typename T>
  const T& Pick(std::span<const T> list) {
    return list[static_cast<std::size_t>(Below(static_cast<int>(list.size())))];
  }

 private:
  std::uint64_t state_;
};

}  // namespace demo
