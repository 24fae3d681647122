#pragma once

#include "adapters/qt/QtScreen.h"
#include "platform/Progress.h"
#include "report/TemplateReports.h"
#include "screens/PreviewForm.h"

namespace adapters::qt {

/// Report templates on the desktop: on the screen in a preview, on paper after the desktop's print
/// dialog. Whatever is given outlives the engines.
class Reports : public report::TemplateReports {
 public:
  Reports(platform::ConnectionFactory& connections, platform::FileSystem& files,
          const platform::Desktop& desktop, ErrorGuard& guard, QtScreen& screen,
          platform::Progress& progress);

 private:
  screens::PageOutlets outlets_;
};

}  // namespace adapters::qt
