#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// What the user's session offers besides windows: its time, keyboard, dialogs and programs.
class Desktop {
 public:
  virtual ~Desktop() = default;
  /// The machine's local date.
  virtual std::chrono::sys_days Today() const = 0;
  /// Minutes since local midnight, 0 to 1439.
  virtual int MinutesSinceMidnight() const = 0;
  /// The operating system's version number: major version in the low byte.
  virtual std::uint32_t GetVersion() const = 0;
  /// Loads and activates a keyboard layout by its name, eight hexadecimal digits ("00000429" is
  /// Persian).
  virtual void LoadKeyboardLayout(std::string_view layout) = 0;
  /// Shows the Save As dialog and returns the path that the user chose, as typed. It begins with
  /// the file `begin`, or in the folder `begin` where that ends in a separator. `filter` is pairs
  /// of a description and a pattern, all parted by "|"; a description without a pattern stands for
  /// all files. Whether an existing file may be replaced is the caller's question: the dialog asks
  /// none. Throws RuntimeError 32755 when the user cancels.
  virtual std::string ShowSave(const std::string& begin, std::string_view filter) = 0;
  /// Starts a command line in a normal, focused window and does not wait for it. Throws
  /// RuntimeError 53 when there is no such program.
  virtual void Start(const std::string& commandLine) = 0;
};

}  // namespace platform
