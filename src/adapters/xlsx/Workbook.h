#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/RuntimeError.h"

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

namespace adapters::xlsx {

/// The system's error `code` (an errno) on `path`: 70 no right, 76 no such folder, 61 disk full, 57
/// anything else, in Persian with the path and the system's words.
platform::RuntimeError SystemError(int code, const std::string& path);

/// A workbook file with one sheet from right to left, written row by row in constant memory: the
/// rows wait in a nameless file in the workbook's folder. Its first row is the heading, bold and
/// always in sight. Every member throws RuntimeError; an object that was not closed leaves its file
/// empty.
class Workbook {
 public:
  /// `path` is a file that is there already and may be written.
  explicit Workbook(const std::string& path);
  ~Workbook();
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;

  /// Row and column from 1; no row after a later one. A plain number below the heading becomes a
  /// number, anything else stays the text that it is, also what looks like a formula or a date.
  void SetCell(int row, int column, std::string_view text);

  /// Writes the file. Nothing can be set afterwards.
  void Close();

 private:
  void WriteCell(std::uint32_t row, std::uint16_t column, std::string_view text);
  void FlushRows();
  void SetColumnWidths();

  std::string path_;
  lxw_workbook* workbook_;
  lxw_worksheet* sheet_;
  lxw_format* heading_;
  lxw_format* text_;
  lxw_format* longNumber_;
  std::vector<std::size_t> longest_;  // characters, for each column
  int lastRow_ = 0;
  std::string buffer_;
};

}  // namespace adapters::xlsx
