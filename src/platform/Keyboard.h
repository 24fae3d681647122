#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

/// The keyboard layout of the user's session.
class Keyboard {
 public:
  virtual ~Keyboard() = default;
  /// The operating system's version number: major version in the low byte.
  virtual std::uint32_t GetVersion() const = 0;
  /// Loads and activates a layout by its name, eight hexadecimal digits ("00000429" is Persian).
  virtual void LoadKeyboardLayout(std::string_view layout) = 0;
};

}  // namespace platform
