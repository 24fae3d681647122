#pragma once

#include <memory>

#include "adapters/windows/ErrorGuard.h"
#include "adapters/windows/PageLetters.h"
#include "adapters/windows/Theme.h"
#include "platform/Progress.h"
#include "report/TemplateReports.h"
#include "screens/PreviewForm.h"

namespace adapters::windows {

/// The suite's report engine where the suite's installation names one, else report templates
/// (report/TemplateReports.h).
///
/// The engine is the component whose programmatic id is the text `ReportEngine` of the registry key
/// `Software\DistPromoterProg`, the user's before the machine's. It is reached late bound, by the
/// methods LoadReportFile(path), SetConnectionString(text), SetSelectionFormula(number, formula)
/// and Produce(output) with 1 for the screen and 0 for the printer. A component that is named but
/// cannot be made throws RuntimeError 429: its templates are not ours to read.
///
/// Otherwise reports are shown and printed as on every host (screens/PreviewForm.h).
class WinReports : public report::TemplateReports {
 public:
  /// Whatever is given outlives this object, which outlives its engines.
  WinReports(platform::ConnectionFactory& connections, platform::FileSystem& files,
             const platform::Desktop& desktop, ErrorGuard& guard, const Theme& theme,
             controls::Screen& screen, platform::Progress& progress);
  std::unique_ptr<platform::ReportEngine> Create() override;

 private:
  PageLetters letters_;
  screens::PageOutlets outlets_;
};

}  // namespace adapters::windows
