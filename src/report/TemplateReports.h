#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "platform/Connection.h"
#include "platform/Desktop.h"
#include "platform/FileSystem.h"
#include "platform/ReportEngine.h"
#include "platform/RuntimeError.h"
#include "report/Fill.h"

namespace report {

/// Report templates as a report engine; how a filled one is shown or printed is the screen's work.
///
/// LoadReportFile throws RuntimeError 53 when the file cannot be read, 321 when it is no template.
/// Selection formula 1 is the one there is; another number throws 5. Produce has a failure shown to
/// the user before it throws it: its caller goes on without a word.
class TemplateReports : public platform::ReportEngineFactory {
 public:
  struct Outlets {
    std::function<void(FilledReport report, platform::ReportOutput output)> show;
    std::function<void(const platform::RuntimeError& failure)> showFailure;
  };
  /// The references outlive this object, which outlives its engines.
  TemplateReports(platform::ConnectionFactory& connections, platform::FileSystem& files,
                  const platform::Desktop& desktop, Outlets outlets)
      : connections_(connections), files_(files), desktop_(desktop), outlets_(std::move(outlets)) {}
  std::unique_ptr<platform::ReportEngine> Create() override;

 private:
  class Engine;
  platform::ConnectionFactory& connections_;
  platform::FileSystem& files_;
  const platform::Desktop& desktop_;
  Outlets outlets_;
};

}  // namespace report
