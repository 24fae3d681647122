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

}  // namespace fuzz
