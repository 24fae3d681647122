#include "adapters/qt/Reports.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <optional>

#include "adapters/qt/Convert.h"
#include "adapters/qt/ReportPages.h"
#include "adapters/qt/ReportPreview.h"
#include "adapters/report/Fill.h"
#include "adapters/report/ReportError.h"

namespace adapters::qt {

namespace {

constexpr std::int32_t kFileNotFound = 53;
constexpr qsizetype kMostBytes = 16 << 20;  // no template is so long

class Engine : public platform::ReportEngine {
 public:
  Engine(platform::ConnectionFactory& connections, const platform::Clock& clock, ErrorGuard& guard)
      : connections_(connections), clock_(clock), guard_(guard) {}

  void LoadReportFile(const std::string& path) override {
    QFile file(ToQString(path));
    const std::string name = ToUtf8(QFileInfo(file).fileName());
    if (!file.open(QIODevice::ReadOnly)) {
      throw report::ReportError(kFileNotFound, "قالب گزارش «" + name + "» خوانده نشد.",
                                path + ": " + ToUtf8(file.errorString()));
    }
    const QByteArray bytes = file.read(kMostBytes);
    QStringDecoder utf8(QStringConverter::Utf8);
    const QString text = utf8(bytes);
    if (utf8.hasError()) {
      throw report::ReportError(report::kInvalidFileFormat,
                                "قالب گزارش «" + name + "» با UTF-8 نوشته نشده است.",
                                path + ": not UTF-8");
    }
    template_ = report::ReportTemplate::Load(ToUtf8(text), name);
  }

  void SetConnectionString(const std::string& connectionString) override {
    connectionString_ = connectionString;
  }

  void SetSelectionFormula(int number, std::string_view formula) override {
    if (number != 1) {
      throw platform::RuntimeError(platform::kInvalidProcedureCall,
                                   "Invalid procedure call or argument", "report");
    }
    formula_ = formula;
  }

  void Produce(platform::ReportOutput output) override {
    std::optional<platform::RuntimeError> failure;
    guard_.Run([&] {
      try {
        Make(output);
      } catch (const platform::RuntimeError& error) {
        failure = error;
        throw;
      }
    });
    if (failure) throw platform::RuntimeError(*failure);
  }

 private:
  void Make(platform::ReportOutput output) {
    if (!template_) {
      throw platform::RuntimeError(platform::kInvalidProcedureCall,
                                   "Invalid procedure call or argument", "report");
    }
    const auto connection = connections_.Create(connectionString_);
    const ReportPages pages(Fill(*template_, *connection, formula_, clock_.Today()));
    if (output == platform::ReportOutput::kScreen) {
      ReportPreview(pages, guard_).Run();
    } else {
      PrintPages(pages);
    }
  }

  platform::ConnectionFactory& connections_;
  const platform::Clock& clock_;
  ErrorGuard& guard_;
  std::optional<report::ReportTemplate> template_;
  std::string connectionString_;
  std::string formula_;
};

}  // namespace

std::unique_ptr<platform::ReportEngine> Reports::Create() {
  return std::make_unique<Engine>(connections_, clock_, guard_);
}

}  // namespace adapters::qt
