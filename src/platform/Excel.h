#pragma once

#include <memory>
#include <string_view>

namespace platform {

/// One running spreadsheet application, or what stands in for it and writes a workbook file. Every
/// member throws a RuntimeError with the application's own description when it fails. Destroying
/// the object releases it: a running application keeps its workbook open, whole or not; a file that
/// was not finished is gone.
class ExcelApplication {
 public:
  virtual ~ExcelApplication() = default;
  virtual void AddWorkbook() = 0;
  virtual void SetVisible(bool visible) = 0;
  /// Writes a cell of the first sheet of the first workbook; row and column from 1.
  virtual void SetCell(int row, int column, std::string_view text) = 0;
  /// The copy is whole: what writes a file puts it in its place and, made visible, opens it. A
  /// running application has nothing left to do. Nothing is written afterwards.
  virtual void Finish() = 0;
};

class Excel {
 public:
  virtual ~Excel() = default;
  /// Throws RuntimeError 429 when there is no spreadsheet application.
  virtual std::unique_ptr<ExcelApplication> CreateApplication() = 0;
};

}  // namespace platform
