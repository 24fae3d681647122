#pragma once

#include <functional>
#include <string>

#include "platform/Desktop.h"
#include "platform/Excel.h"

namespace adapters::xlsx {

/// Stands in for a spreadsheet program where none can be driven: writes the cells into a workbook
/// file, "<name> <year-month-day> <n>.xlsx" with the Solar Hijri date and the first free n.
///
/// Cells must come row by row. Until Finish the file is a nameless or a ".part" one, which goes
/// away with the application; so a copy that failed or was stopped leaves nothing behind. Errors
/// are 70 no right, 76 no such folder, 61 disk full, 57 another error of the system, 1004 what a
/// sheet cannot hold, in Persian with the path and the words of the system or the library.
class XlsxExcel : public platform::Excel {
 public:
  struct Place {
    std::string folder;  // made where it is missing
    std::string name;    // the beginning of each file's name
  };
  /// Called with a finished workbook's path when the application was made visible. What it throws
  /// leaves Finish; the workbook stays. May be empty.
  using Opener = std::function<void(const std::string& path)>;

  /// `desktop` outlives this object.
  XlsxExcel(Place place, const platform::Desktop& desktop, Opener open);

  /// Never throws: the folder is touched by AddWorkbook.
  std::unique_ptr<platform::ExcelApplication> CreateApplication() override;

 private:
  Place place_;
  const platform::Desktop& desktop_;
  Opener open_;
};

}  // namespace adapters::xlsx
