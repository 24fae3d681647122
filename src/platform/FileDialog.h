#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The desktop's Save As dialog.
class FileDialog {
 public:
  virtual ~FileDialog() = default;
  /// Shows the dialog with a file name to begin with and a filter text; returns the chosen path.
  /// Throws RuntimeError 32755 when the user cancels.
  virtual std::string ShowSave(const std::string& fileName, std::string_view filter) = 0;
};

}  // namespace platform
