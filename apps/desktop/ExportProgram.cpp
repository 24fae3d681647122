#include "ExportProgram.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "Export.h"
#include "Office.h"
#include "adapters/qt/Desktop.h"
#include "adapters/qt/Files.h"
#include "adapters/qt/PageLetters.h"
#include "adapters/qt/PageOutlets.h"
#include "adapters/xlsx/Workbook.h"
#include "adapters/xlsx/XlsxExcel.h"
#include "report/TemplateReports.h"
#include "screens/PutPages.h"

namespace desktop {

namespace {

/// Nobody waits, and nobody stops.
class Unwatched : public platform::Progress {
 public:
  void Begin(std::string_view, std::size_t) override {}
  bool Advance(std::size_t) override { return true; }
  void End() override {}
  bool UnderWay() const override { return false; }
};

/// Where a file of that name is written to: a link stays one.
std::filesystem::path BehindLinks(const std::string& file) {
  std::error_code none;
  const std::filesystem::path path = std::filesystem::canonical(file, none);
  return none ? std::filesystem::absolute(file) : path;
}

/// Writes workbooks beside `file`, which the whole one replaces.
adapters::xlsx::XlsxExcel WorkbookAt(const std::filesystem::path& file,
                                     const platform::Desktop& session) {
  const auto replace = [file](const std::string& whole) {
    if (std::rename(whole.c_str(), file.c_str()) == 0) return;
    const int code = errno;
    std::remove(whole.c_str());
    throw adapters::xlsx::SystemError(code, file.string());
  };
  return {{.folder = file.parent_path().string(), .name = file.stem().string()}, session, replace};
}

void ExportPdf(const Options& options, Connections& connections,
               const std::string& connectionString, platform::FileSystem& files,
               const platform::Desktop& session) {
  const std::string path =
      TemplatePath(*connections.Create(connectionString), files, options.exportTemplate);
  const auto write = [&](report::FilledReport filled, platform::ReportOutput) {
    const adapters::qt::PageLetters letters;
    Unwatched progress;
    report::Pages pages(std::move(filled), letters);
    screens::LayOutRest(pages, progress);
    adapters::qt::WritePdfFile(pages, progress, letters, options.exportFile);
  };
  // What fails is told by whoever called.
  report::TemplateReports reports(connections, files, session,
                                  {.show = write, .showFailure = [](const auto&) {}});
  ExportReport(reports, path, connectionString, options.exportProgram);
}

}  // namespace

void ExportProgram(const Options& options) {
  RequirePlace(options.exportFile);
  Connections connections(options);
  const adapters::qt::QtDesktop session;
  adapters::qt::QtFileSystem files;
  const std::string connectionString = OfficeToOpen(options, SampleOfficePath(options));
  const auto connection = connections.Create(connectionString);
  RequireProgram(*connection, options.exportProgram);
  switch (ExportKindOf(options.exportFile).value()) {
    case ExportKind::kPdf:
      return ExportPdf(options, connections, connectionString, files, session);
    case ExportKind::kWorkbook: {
      auto excel = WorkbookAt(BehindLinks(options.exportFile), session);
      return ExportWorkbook(*connection, options.exportProgram, excel);
    }
    case ExportKind::kText:
      return ExportText(*connection, options.exportProgram, files, options.exportFile);
  }
}

}  // namespace desktop
