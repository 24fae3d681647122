#include "adapters/windows/WinReports.h"

#include <windows.h>

#include <shellapi.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "adapters/report/Fill.h"
#include "adapters/report/ReportError.h"
#include "adapters/report/WholePage.h"
#include "adapters/server/StatementLimit.h"
#include "adapters/windows/Com.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

namespace {

constexpr std::int32_t kFileNotFound = 53;
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

bool IsUtf8(const std::string& text) {
  return text.empty() || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(),
                                             static_cast<int>(text.size()), nullptr, 0) != 0;
}

class TemplateEngine : public platform::ReportEngine {
 public:
  TemplateEngine(platform::ConnectionFactory& connections, const platform::Clock& clock,
                 PreviewFiles& files, WinReports::ShowFailure showFailure, WinReports::Opener open)
      : connections_(connections),
        clock_(clock),
        files_(files),
        showFailure_(std::move(showFailure)),
        open_(std::move(open)) {}

  void LoadReportFile(const std::string& path) override {
    const std::filesystem::path file(Wide(path));
    const std::string name = Utf8(file.filename().wstring());
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    if (!stream.is_open() || !(bytes << stream.rdbuf())) {
      throw report::ReportError(kFileNotFound, "قالب گزارش «" + name + "» خوانده نشد.", path);
    }
    const std::string text = bytes.str();
    if (!IsUtf8(text)) {
      throw report::ReportError(report::kInvalidFileFormat,
                                "قالب گزارش «" + name + "» با UTF-8 نوشته نشده است.",
                                path + ": not UTF-8");
    }
    template_ = report::ReportTemplate::Load(text, name);
  }

  void SetConnectionString(const std::string& connectionString) override {
    connectionString_ = connectionString;
  }

  void SetSelectionFormula(int number, std::string_view formula) override {
    if (number != 1) ThrowInvalidCall();
    formula_ = formula;
  }

  void Produce(platform::ReportOutput output) override {
    try {
      Make(output);
    } catch (const platform::RuntimeError& failure) {
      showFailure_(failure);
      throw;
    }
  }

 private:
  [[noreturn]] static void ThrowInvalidCall() {
    throw platform::RuntimeError(platform::kInvalidProcedureCall,
                                 "Invalid procedure call or argument", "report");
  }

  void Make(platform::ReportOutput output) const {
    if (!template_) ThrowInvalidCall();
    const auto connection = connections_.Create(connectionString_);
    const std::string page =
        report::WholePage(Fill(*template_, *connection, formula_, clock_.Today()));
    const std::filesystem::path path = files_.Write(page);
    open_(Utf8(path.wstring()), output);
  }

  platform::ConnectionFactory& connections_;
  const platform::Clock& clock_;
  PreviewFiles& files_;
  WinReports::ShowFailure showFailure_;
  WinReports::Opener open_;
  std::optional<report::ReportTemplate> template_;
  std::string connectionString_;
  std::string formula_;
};

}  // namespace

WinReports::WinReports(platform::ConnectionFactory& connections, const platform::Clock& clock,
                       ShowFailure showFailure, Opener open)
    : connections_(connections),
      clock_(clock),
      showFailure_(std::move(showFailure)),
      open_(std::move(open)) {}

std::unique_ptr<platform::ReportEngine> WinReports::Create() {
  const std::string name = EngineName();
  if (!name.empty()) return std::make_unique<SuiteEngine>(Dispatch::Create(name));
  return std::make_unique<TemplateEngine>(connections_, clock_, files_, showFailure_, open_);
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
