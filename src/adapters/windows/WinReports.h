#pragma once

#include <functional>
#include <string>

#include "adapters/windows/PreviewFiles.h"
#include "report/TemplateReports.h"

namespace adapters::windows {

/// The suite's report engine where the suite's installation names one, else report templates
/// (adapters/report) in the user's browser.
///
/// The engine is the component whose programmatic id is the text `ReportEngine` of the registry key
/// `Software\DistPromoterProg`, the user's before the machine's. It is reached late bound, by the
/// methods LoadReportFile(path), SetConnectionString(text), SetSelectionFormula(number, formula)
/// and Produce(output) with 1 for the screen and 0 for the printer. A component that is named but
/// cannot be made throws RuntimeError 429: its templates are not ours to read.
///
/// Otherwise Produce writes the filled template as one HTML file of its own, which is removed with
/// this object (PreviewFiles), and has it opened.
class WinReports : public report::TemplateReports {
 public:
  /// Opens or prints the file at `path`; throws RuntimeError when that fails.
  using Opener = std::function<void(const std::string& path, platform::ReportOutput output)>;
  using ShowFailure = std::function<void(const platform::RuntimeError& failure)>;

  /// Both references outlive this object, which outlives its engines.
  WinReports(platform::ConnectionFactory& connections, const platform::Clock& clock,
             ShowFailure showFailure, const Opener& open = OpenByShell);
  std::unique_ptr<platform::ReportEngine> Create() override;

  /// With the program that the user has for such files. Where that program cannot be told to print,
  /// the file is opened, to be printed from there.
  static void OpenByShell(const std::string& path, platform::ReportOutput output);

 private:
  PreviewFiles files_;
};

}  // namespace adapters::windows
