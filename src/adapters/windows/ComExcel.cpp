#include "adapters/windows/ComExcel.h"

#include <array>

#include "adapters/windows/Com.h"

namespace adapters::windows {

namespace {

bool IsNegativeNumber(std::string_view cell) {
  const std::string_view digits = cell.substr(1);
  return digits.find_first_not_of("0123456789.") == std::string_view::npos &&
         digits.find_first_of("0123456789") != std::string_view::npos &&
         digits.find('.') == digits.rfind('.');
}

std::string CellText(std::string_view cell) {
  const char first = cell.empty() ? '\0' : cell.front();
  const bool asText = first == '=' || first == '+' || first == '@' || first == '\'' ||
                      (first == '-' && !IsNegativeNumber(cell));
  return (asText ? "'" : "") + std::string(cell);
}

// What Excel answers while the user edits a cell or has a menu open.
constexpr auto kCallRejected = static_cast<std::int32_t>(RPC_E_CALL_REJECTED);
constexpr auto kRetryLater = static_cast<std::int32_t>(RPC_E_SERVERCALL_RETRYLATER);
constexpr std::int32_t kIgnored = 0xC472;
constexpr int kAttempts = 100;
constexpr DWORD kPauseMilliseconds = 100;

/// Runs one step, again and again as long as Excel is busy with its user, for ten seconds.
template <typename Step>
void WithPatience(Step step) {
  for (int attempt = 1;; ++attempt) {
    try {
      return step();
    } catch (const platform::RuntimeError& error) {
      const std::int32_t number = error.Number();
      const bool busy = number == kCallRejected || number == kRetryLater || number == kIgnored;
      if (!busy || attempt == kAttempts) throw;
    }
    Sleep(kPauseMilliseconds);
  }
}

class Application : public platform::ExcelApplication {
 public:
  explicit Application(Dispatch application) : application_(std::move(application)) {}

  void AddWorkbook() override { application_.Child("Workbooks").Call("Add"); }
  void SetVisible(bool visible) override { application_.Put("Visible", visible); }

  // Workbook and sheet are looked up anew: the user, who watches, may close them meanwhile.
  void SetCell(int row, int column, std::string_view text) override {
    const std::array<Variant, 1> first{1};
    const std::array<Variant, 2> place{row, column};
    WithPatience([&] {
      application_.Child("Workbooks", first)
          .Child("Worksheets", first)
          .Child("Cells", place)
          .Put("Value", CellText(text));
    });
  }

  void Finish() override {}

 private:
  Dispatch application_;
};

}  // namespace

std::unique_ptr<platform::ExcelApplication> ComExcel::CreateApplication() {
  return std::make_unique<Application>(Dispatch::Create("Excel.Application"));
}

}  // namespace adapters::windows
