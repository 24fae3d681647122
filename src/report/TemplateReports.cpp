#include "report/TemplateReports.h"

#include <optional>

#include "report/ReportError.h"
#include "text/Utf8.h"

namespace report {

namespace {

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t begin = at;
    // The replacement itself is three bytes long.
    if (text::TakeCharacter(text, at) == text::kReplacement && at == begin + 1) return false;
  }
  return true;
}

[[noreturn]] void ThrowInvalidCall() {
  throw platform::RuntimeError(platform::kInvalidProcedureCall,
                               "Invalid procedure call or argument", "report");
}

}  // namespace

class TemplateReports::Engine : public platform::ReportEngine {
 public:
  explicit Engine(const TemplateReports& reports) : reports_(reports) {}

  void LoadReportFile(const std::string& path) override {
    const std::string name = path.substr(path.find_last_of("/\\") + 1);
    const std::string text = Read(path, name);
    if (!IsUtf8(text)) {
      throw ReportError(kInvalidFileFormat, "قالب گزارش «" + name + "» با UTF-8 نوشته نشده است.",
                        path + ": not UTF-8");
    }
    template_ = ReportTemplate::Load(text, name);
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
      if (!template_) ThrowInvalidCall();
      reports_.outlets_.show(Fill(*template_, reports_.connections_.Create(connectionString_),
                                  formula_, reports_.desktop_.Today()),
                             output);
    } catch (const platform::RuntimeError& failure) {
      reports_.outlets_.showFailure(failure);
      throw;
    }
  }

 private:
  std::string Read(const std::string& path, const std::string& name) const {
    try {
      return reports_.files_.ReadFile(path);
    } catch (const platform::RuntimeError& error) {
      throw ReportError(error.Number(), "قالب گزارش «" + name + "» خوانده نشد.",
                        error.Description());
    }
  }

  const TemplateReports& reports_;
  std::optional<ReportTemplate> template_;
  std::string connectionString_;
  std::string formula_;
};

std::unique_ptr<platform::ReportEngine> TemplateReports::Create() {
  return std::make_unique<Engine>(*this);
}

}  // namespace report
