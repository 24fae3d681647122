#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The desktop's Save As dialog.
class FileDialog {
 public:
  virtual ~FileDialog() = default;
  /// Shows the dialog and returns the path that the user chose, as typed. It begins with the file
  /// `begin`, or in the folder `begin` where that ends in a separator. `filter` is pairs of a
  /// description and a pattern, all parted by "|"; a description without a pattern stands for all
  /// files. Whether an existing file may be replaced is the caller's question: the dialog asks
  /// none. Throws RuntimeError 32755 when the user cancels.
  virtual std::string ShowSave(const std::string& begin, std::string_view filter) = 0;
};

}  // namespace platform
