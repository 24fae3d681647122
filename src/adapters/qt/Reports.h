#pragma once

#include "adapters/qt/ErrorGuard.h"
#include "report/TemplateReports.h"

namespace adapters::qt {

/// Report templates on the desktop: on the screen in a preview, on paper after the desktop's print
/// dialog. Whatever is given outlives the engines.
class Reports : public report::TemplateReports {
 public:
  Reports(platform::ConnectionFactory& connections, const platform::Clock& clock,
          ErrorGuard& guard);
};

}  // namespace adapters::qt
