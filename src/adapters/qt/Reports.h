#pragma once

#include <memory>

#include "adapters/qt/ErrorGuard.h"
#include "platform/Clock.h"
#include "platform/Connection.h"
#include "platform/ReportEngine.h"

namespace adapters::qt {

/// Report templates (adapters/report) on the desktop: on the screen in a preview, on paper after
/// the desktop's print dialog. Whatever is given outlives the engines.
///
/// LoadReportFile throws RuntimeError 53 when the file cannot be read, 321 when it is no template.
/// Selection formula 1 is the one there is; another number throws 5. Produce shows a failure to
/// the user before it throws it: its caller goes on without a word.
class Reports : public platform::ReportEngineFactory {
 public:
  Reports(platform::ConnectionFactory& connections, const platform::Clock& clock, ErrorGuard& guard)
      : connections_(connections), clock_(clock), guard_(guard) {}
  std::unique_ptr<platform::ReportEngine> Create() override;

 private:
  platform::ConnectionFactory& connections_;
  const platform::Clock& clock_;
  ErrorGuard& guard_;
};

}  // namespace adapters::qt
