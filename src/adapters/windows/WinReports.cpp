#include "adapters/windows/WinReports.h"

#include <windows.h>

#include <shellapi.h>

#include <array>

#include "adapters/server/StatementLimit.h"
#include "adapters/windows/Com.h"
#include "adapters/windows/Wide.h"
#include "report/WholePage.h"

namespace adapters::windows {

namespace {

constexpr std::int32_t kDeviceIo = 57;
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

WinReports::WinReports(platform::ConnectionFactory& connections, const platform::Clock& clock,
                       ShowFailure showFailure, const Opener& open)
    : TemplateReports(
          connections, clock,
          {.show =
               [this, open](const report::FilledReport& filled, platform::ReportOutput output) {
                 const auto path = files_.Write(report::WholePage(filled));
                 open(Utf8(path.wstring()), output);
               },
           .showFailure = std::move(showFailure)}) {}

std::unique_ptr<platform::ReportEngine> WinReports::Create() {
  const std::string name = EngineName();
  if (name.empty()) return TemplateReports::Create();
  return std::make_unique<SuiteEngine>(Dispatch::Create(name));
}

void WinReports::OpenByShell(const std::string& path, platform::ReportOutput output) {
  const std::wstring wide = Wide(path);
  const auto shell = [&](const wchar_t* verb) {
    SHELLEXECUTEINFOW execute{};
    execute.cbSize = sizeof execute;
    execute.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    execute.hwnd = GetActiveWindow();
    execute.lpVerb = verb;
    execute.lpFile = wide.c_str();
    execute.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&execute) != FALSE;
  };
  if (output == platform::ReportOutput::kPrinter && shell(L"print")) return;
  if (shell(L"open")) return;
  const std::string words = SystemText(HRESULT_FROM_WIN32(GetLastError()));
  throw platform::RuntimeError(
      kDeviceIo, "گزارش باز نشد؛ آن را از اين نشاني باز كنيد:\n" + path + "\n" + words, "report");
}

}  // namespace adapters::windows
