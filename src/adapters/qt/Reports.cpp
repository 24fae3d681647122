#include "adapters/qt/Reports.h"

#include <utility>

#include "adapters/qt/PageOutlets.h"

namespace adapters::qt {

Reports::Reports(platform::ConnectionFactory& connections, platform::FileSystem& files,
                 const platform::Desktop& desktop, ErrorGuard& guard, QtScreen& screen,
                 platform::Progress& progress)
    : TemplateReports(connections, files, desktop,
                      {.show =
                           [this, &screen, &progress](report::FilledReport filled,
                                                      platform::ReportOutput output) {
                             screens::ShowReport(std::move(filled), output, screen, progress,
                                                 screen.Letters(), outlets_);
                           },
                       .showFailure =
                           [&guard](const platform::RuntimeError& failure) {
                             guard.Run([&failure] { throw platform::RuntimeError(failure); });
                           }}),
      outlets_{
          .print = [&screen, &progress](
                       report::Pages& pages) { PrintPages(pages, progress, screen.Letters()); },
          .savePdf = [&screen, &progress](
                         report::Pages& pages) { SavePdf(pages, progress, screen.Letters()); }} {}

}  // namespace adapters::qt
