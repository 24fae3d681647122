#include "adapters/qt/Reports.h"

#include "adapters/qt/ReportPages.h"
#include "adapters/qt/ReportPreview.h"

namespace adapters::qt {

Reports::Reports(platform::ConnectionFactory& connections, const platform::Clock& clock,
                 ErrorGuard& guard)
    : TemplateReports(
          connections, clock,
          {.show =
               [&guard](const report::FilledReport& filled, platform::ReportOutput output) {
                 const ReportPages pages(filled);
                 if (output == platform::ReportOutput::kPrinter) return PrintPages(pages);
                 ReportPreview(pages, guard).Run();
               },
           .showFailure =
               [&guard](const platform::RuntimeError& failure) {
                 guard.Run([&failure] { throw platform::RuntimeError(failure); });
               }}) {}

}  // namespace adapters::qt
