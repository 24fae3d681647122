#pragma once

#include "platform/Excel.h"

namespace adapters::windows {

/// Microsoft Excel, late bound, cell by cell; the workbook stays open with the user.
///
/// A text goes in as a string, and Excel converts it as if it had been typed, so that numbers can
/// be summed. What would be taken for a formula, or lose its first character, goes in as text: a
/// cell that begins with "=", "+", "@", their full-width forms or an apostrophe, or with "-" and is
/// no number, behind blanks or not, gets an apostrophe in front, which Excel takes for "text" and
/// does not show.
///
/// The user watches the cells fill and may edit one meanwhile, when Excel takes none: a cell waits
/// ten seconds for that.
class ComExcel : public platform::Excel {
 public:
  std::unique_ptr<platform::ExcelApplication> CreateApplication() override;
};

}  // namespace adapters::windows
