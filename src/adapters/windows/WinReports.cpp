#include "adapters/windows/WinReports.h"

#include <windows.h>

#include <utility>

#include "adapters/server/StatementLimit.h"
#include "adapters/windows/Com.h"
#include "adapters/windows/PagePrinting.h"
#include "adapters/windows/Settings.h"

namespace adapters::windows {

namespace {

class SuiteEngine : public platform::ReportEngine {
 public:
  explicit SuiteEngine(Dispatch engine) : engine_(std::move(engine)) {}

  void LoadReportFile(const std::string& path) override { engine_.Call("LoadReportFile", {path}); }
  void SetConnectionString(const std::string& connectionString) override {
    engine_.Call("SetConnectionString", {server::TakeStatementLimit(connectionString).rest});
  }
  void SetSelectionFormula(int number, std::string_view formula) override {
    engine_.Call("SetSelectionFormula", {number, formula});
  }
  void Produce(platform::ReportOutput output) override {
    engine_.Call("Produce", {static_cast<std::int32_t>(output)});
  }

 private:
  Dispatch engine_;
};

}  // namespace

WinReports::WinReports(platform::ConnectionFactory& connections, platform::FileSystem& files,
                       const platform::Desktop& desktop, ErrorGuard& guard, const Theme& theme,
                       controls::Screen& screen, platform::Progress& progress)
    : TemplateReports(connections, files, desktop,
                      {.show =
                           [this, &screen, &progress](report::FilledReport filled,
                                                      platform::ReportOutput output) {
                             screens::ShowReport(std::move(filled), output, screen, progress,
                                                 letters_, outlets_);
                           },
                       .showFailure =
                           [&guard](const platform::RuntimeError& failure) {
                             guard.Run([&failure] { throw platform::RuntimeError(failure); });
                           }}),
      outlets_{.print = [&theme,
                         &progress](report::Pages& pages) { PrintPages(pages, progress, theme); },
               .savePdf = nullptr} {}

std::unique_ptr<platform::ReportEngine> WinReports::Create() {
  const std::string name = Setting(L"ReportEngine");
  if (name.empty()) return TemplateReports::Create();
  return std::make_unique<SuiteEngine>(Dispatch::Create(name));
}

}  // namespace adapters::windows
