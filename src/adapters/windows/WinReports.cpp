#include "adapters/windows/WinReports.h"

#include <windows.h>

#include <array>
#include <utility>

#include "adapters/server/StatementLimit.h"
#include "adapters/windows/Com.h"
#include "adapters/windows/PagePrinting.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

namespace {

constexpr const wchar_t* kSettings = L"Software\\DistPromoterProg";

/// The programmatic id of the suite's engine; empty where none is named.
std::string EngineName() {
  std::array<wchar_t, 128> name{};
  for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
    auto bytes = static_cast<DWORD>(sizeof name);
    if (RegGetValueW(root, kSettings, L"ReportEngine", RRF_RT_REG_SZ, nullptr, name.data(),
                     &bytes) == ERROR_SUCCESS &&
        name[0] != L'\0') {
      return Utf8(name.data());
    }
  }
  return {};
}

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
                       const platform::Clock& clock, ErrorGuard& guard, const Theme& theme,
                       controls::Screen& screen, platform::Progress& progress)
    : TemplateReports(connections, files, clock,
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
  const std::string name = EngineName();
  if (name.empty()) return TemplateReports::Create();
  return std::make_unique<SuiteEngine>(Dispatch::Create(name));
}

}  // namespace adapters::windows
