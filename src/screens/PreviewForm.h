#pragma once

#include <functional>
#include <initializer_list>
#include <optional>

#include "controls/Controls.h"
#include "controls/Form.h"
#include "controls/PageView.h"
#include "platform/Progress.h"
#include "platform/ReportEngine.h"
#include "report/Pages.h"

namespace screens {

/// Where pages go besides the screen. Each is given all of them, asks the user what else there is
/// to know and returns when it is done or the user has stopped it.
struct PageOutlets {
  std::function<void(report::Pages&)> print;
  std::function<void(report::Pages&)> savePdf;  // null where nothing writes such files
};

/// The preview of a report: its pages with what a reader does with them. The pages that nobody has
/// come to yet are counted meanwhile, a few at a time.
class PreviewForm : public controls::Form {
 public:
  /// All of them outlive the form.
  PreviewForm(controls::Screen& screen, platform::Progress& progress, report::Pages& pages,
              const PageOutlets& outlets);

  /// Shows it and waits until it is closed.
  void Run();

  controls::Button cmdPrint;
  controls::Button cmdPdf;
  controls::Button cmdFirst;
  controls::Button cmdPrevious;
  controls::Label lblPosition;
  controls::Button cmdNext;
  controls::Button cmdLast;
  controls::Button cmdSmaller;
  controls::Label lblZoom;
  controls::Button cmdLarger;
  controls::Button cmdWidth;
  controls::Button cmdWhole;
  controls::Button cmdClose;
  controls::PageView view;

 protected:
  void FormResize() override;

 private:
  /// Nothing else is asked of the pages meanwhile: reading them may show windows and let the user
  /// act.
  class Alone;
  void SetUpButtons();
  void SetUpView();
  controls::Twips PlaceGroup(std::initializer_list<controls::Control*> group,
                             controls::Twips right);
  std::optional<controls::Sheet> SheetOf(int page);
  void CountSome();
  bool CountAll();
  void ShowCounted();
  void ShowPosition();
  void GoToLast();
  void Put(const std::function<void(report::Pages&)>& outlet);

  platform::Progress& progress_;
  report::Pages& pages_;
  const PageOutlets& outlets_;
  bool alone_ = false;
  bool stuck_ = false;  // the rest could not be counted
};

/// A report in a preview or straight to the printer. Only its first page is made before the user
/// sees it.
void ShowReport(report::FilledReport report, platform::ReportOutput output,
                controls::Screen& screen, platform::Progress& progress,
                const report::Letters& letters, const PageOutlets& outlets);

}  // namespace screens
