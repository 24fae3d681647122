#pragma once

#include <memory>
#include <string_view>

namespace platform {

/// One running spreadsheet application. Every member throws a RuntimeError with the application's
/// own description when it fails. Destroying the object releases it; the workbook stays open.
class ExcelApplication {
 public:
  virtual ~ExcelApplication() = default;
  virtual void AddWorkbook() = 0;
  virtual void SetVisible(bool visible) = 0;
  /// Writes a cell of the first sheet of the first workbook; row and column from 1.
  virtual void SetCell(int row, int column, std::string_view text) = 0;
};

class Excel {
 public:
  virtual ~Excel() = default;
  /// Throws RuntimeError 429 when there is no spreadsheet application.
  virtual std::unique_ptr<ExcelApplication> CreateApplication() = 0;
};

}  // namespace platform
