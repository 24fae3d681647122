#include "adapters/windows/ComExcel.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "adapters/windows/Com.h"

namespace adapters::windows {

namespace {

bool IsNegativeNumber(std::string_view cell) {
  const std::string_view digits = cell.substr(1);
  return digits.find_first_not_of("0123456789.") == std::string_view::npos &&
         digits.find_first_of("0123456789") != std::string_view::npos &&
         digits.find('.') == digits.rfind('.');
}

/// Without the blanks, breaks and signs of direction that it begins with: typed ones are passed
/// over by who looks for a formula.
std::string_view WithoutInvisible(std::string_view cell) {
  constexpr std::string_view kInvisible[] = {"\u00A0", "\u200B", "\u200C", "\u200D",
                                             "\u200E", "\u200F", "\u3000", "\uFEFF"};
  for (;;) {
    const auto begins = [&](std::string_view each) { return cell.starts_with(each); };
    const auto* const found = std::ranges::find_if(kInvisible, begins);
    if (found != std::end(kInvisible)) {
      cell.remove_prefix(found->size());
    } else if (!cell.empty() && static_cast<unsigned char>(cell.front()) <= ' ') {
      cell.remove_prefix(1);
    } else {
      return cell;
    }
  }
}

std::string CellText(std::string_view cell) {
  constexpr std::string_view kSigns[] = {"=", "+", "@", "＝", "＋", "－", "＠"};
  const std::string_view seen = WithoutInvisible(cell);
  const bool isFormula =
      std::ranges::any_of(kSigns, [&](std::string_view sign) { return seen.starts_with(sign); }) ||
      (seen.starts_with('-') && !IsNegativeNumber(seen));
  return (isFormula || cell.starts_with('\'') ? "'" : "") + std::string(cell);
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
