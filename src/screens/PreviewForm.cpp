#include "screens/PreviewForm.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string>
#include <utility>

#include "screens/DialogMetrics.h"
#include "screens/PlainPointer.h"
#include "screens/PutPages.h"

namespace screens {

using controls::Button;
using controls::PageView;
using controls::Twips;
using namespace dialog;

namespace {

constexpr Twips kWidth = 960 * kPixel;
constexpr Twips kHeight = 1000 * kPixel;
constexpr Twips kLeastHeight = 300 * kPixel;
constexpr Twips kEdge = 10 * kPixel;
constexpr Twips kBetween = 6 * kPixel;
constexpr Twips kBarHeight = kButtonHeight + 16 * kPixel;
constexpr Twips kPositionWidth = 112 * kPixel;
constexpr Twips kZoomWidth = 44 * kPixel;
constexpr Twips kLeastWidth = 800 * kPixel;
constexpr int kPagesAtOnce = 8;

}  // namespace

class PreviewForm::Alone {
 public:
  explicit Alone(PreviewForm& form) : form_(form) { form_.alone_ = true; }
  ~Alone() { form_.alone_ = false; }
  Alone(const Alone&) = delete;
  Alone& operator=(const Alone&) = delete;

 private:
  PreviewForm& form_;
};

PreviewForm::PreviewForm(controls::Screen& screen, platform::Progress& progress,
                         report::Pages& pages, const PageOutlets& outlets)
    : Form(screen, "PreviewForm", Border::kSizable),
      cmdPrint(*this, "cmdPrint", "چاپ..."),
      cmdPdf(*this, "cmdPdf", "ذخيره PDF..."),
      cmdFirst(*this, "cmdFirst", "اولين"),
      cmdPrevious(*this, "cmdPrevious", "قبلي"),
      lblPosition(*this, "lblPosition"),
      cmdNext(*this, "cmdNext", "بعدي"),
      cmdLast(*this, "cmdLast", "آخرين"),
      cmdSmaller(*this, "cmdSmaller", "−"),
      lblZoom(*this, "lblZoom"),
      cmdLarger(*this, "cmdLarger", "+"),
      cmdWidth(*this, "cmdWidth", "عرض صفحه"),
      cmdWhole(*this, "cmdWhole", "تمام صفحه"),
      cmdClose(*this, "cmdClose", "بستن"),
      view(*this, "view"),
      progress_(progress),
      pages_(pages),
      outlets_(outlets) {
  SetCaption("پيش‌نمايش چاپ - " + pages.Title());
  SetUpView();
  SetUpButtons();
  SetCancelButton(&cmdClose);
  SetFirstFocus(&view);
  SetMinimumSize(kLeastWidth, kLeastHeight);
  ShowCounted();
  Resize(kWidth, kHeight);
}

void PreviewForm::SetUpView() {
  view.SetAccessibleName("صفحه هاي گزارش");
  view.SetSheetSize(pages_.Width(), pages_.Height());
  view.sheetOf = [this](int page) { return SheetOf(page); };
  view.onMoved = [this] { ShowPosition(); };
  view.onGoLast = [this] { GoToLast(); };
  if (!pages_.Finished()) view.SetWork([this] { CountSome(); });
}

void PreviewForm::SetUpButtons() {
  const auto move = [this](auto action) {
    return [this, action] {
      // The keys that scroll are for the pages.
      view.SetFocus();
      action(view);
    };
  };
  using View = PageView;
  const struct {
    Button& button;
    const char* hint;
    const char* accessKey;
    const char* shortcut;
    std::function<void()> action;
  } kButtons[] = {
      {cmdPrint, "چاپ گزارش (Ctrl+P)", "چ", "P", [this] { Put(outlets_.print); }},
      {cmdPdf, "ذخيره گزارش در فايل PDF (Ctrl+S)", "ذ", "S", [this] { Put(outlets_.savePdf); }},
      {cmdFirst, "صفحه اول (Home)", "ا", "", move([](View& v) { v.GoTo(0); })},
      {cmdPrevious, "صفحه قبلي", "ق", "", move([](View& v) { v.GoTo(v.Current() - 1); })},
      {cmdNext, "صفحه بعدي", "ع", "", move([](View& v) { v.GoTo(v.Current() + 1); })},
      {cmdLast, "صفحه آخر (End)", "خ", "", move([](View& v) { v.GoToLast(); })},
      {cmdSmaller, "كوچك‌تر (Ctrl+-)", "", "-",
       move([](View& v) { v.SetZoom(v.Zoom() / View::kZoomStep); })},
      {cmdLarger, "بزرگ‌تر (Ctrl++)", "", "+",
       move([](View& v) { v.SetZoom(v.Zoom() * View::kZoomStep); })},
      {cmdWidth, "به اندازه عرض پنجره", "ض", "",
       move([](View& v) { v.SetFit(View::Fit::kWidth); })},
      {cmdWhole, "همه صفحه در پنجره", "ت", "", move([](View& v) { v.SetFit(View::Fit::kSheet); })},
      {cmdClose, "بستن پيش‌نمايش (Esc)", "ب", "", [this] { Hide(); }}};
  int index = 0;
  for (const auto& each : kButtons) {
    each.button.SetToolTip(each.hint);
    each.button.SetAccessKey(each.accessKey);
    each.button.SetShortcut(each.shortcut);
    each.button.onClick = each.action;
    each.button.SetTabIndex(index++);
  }
  view.SetTabIndex(index);
  cmdPdf.SetVisible(outlets_.savePdf != nullptr);
}

/// Beside each other from `right` on, as wide as their captions need. Returns where they end.
Twips PreviewForm::PlaceGroup(std::initializer_list<controls::Control*> group, Twips right) {
  constexpr Twips kLeastButton = 32 * kPixel;
  constexpr Twips kPadding = 22 * kPixel;
  for (controls::Control* const control : group) {
    if (!control->Visible()) continue;
    const auto* const button = dynamic_cast<const Button*>(control);
    Twips width = control == &lblZoom ? kZoomWidth : kPositionWidth;
    if (button != nullptr) {
      width = std::max(kLeastButton, GetScreen().TextWidth(button->Caption()) + kPadding);
    }
    control->Move(right - width, (kBarHeight - kButtonHeight) / 2, width, kButtonHeight);
    right -= width + kBetween;
  }
  return right;
}

void PreviewForm::FormResize() {
  // Placed once to see how much room is left, which goes between the groups.
  const auto place = [this](Twips spare) {
    Twips right = Width() - kEdge;
    right = PlaceGroup({&cmdPrint, &cmdPdf}, right) - spare;
    right = PlaceGroup({&cmdFirst, &cmdPrevious, &lblPosition, &cmdNext, &cmdLast}, right) - spare;
    right = PlaceGroup({&cmdSmaller, &lblZoom, &cmdLarger, &cmdWidth, &cmdWhole}, right) - spare;
    return PlaceGroup({&cmdClose}, right) + kBetween - kEdge;
  };
  place(std::max(0.0, place(0) / 3));
  view.Move(0, kBarHeight, Width(), std::max(0.0, Height() - kBarHeight));
}

void PreviewForm::Run() {
  const PlainPointer plain(GetScreen());
  Show(controls::Modality::kModal);
}

std::optional<controls::Sheet> PreviewForm::SheetOf(int page) {
  if (alone_) return std::nullopt;
  const Alone alone(*this);
  return pages_.At(page);
}

void PreviewForm::CountSome() {
  if (alone_) return;
  const Alone alone(*this);
  try {
    for (int page = 0; page < kPagesAtOnce && pages_.LayOutMore();) ++page;
  } catch (...) {
    stuck_ = true;
    ShowCounted();
    throw;
  }
  ShowCounted();
}

/// False when the user stopped it.
bool PreviewForm::CountAll() {
  try {
    const bool all = LayOutRest(pages_, progress_);
    stuck_ = stuck_ && !all;
    ShowCounted();
    return all;
  } catch (...) {
    stuck_ = true;
    ShowCounted();
    throw;
  }
}

void PreviewForm::ShowCounted() {
  view.SetCount(pages_.Count());
  if (pages_.Finished() || stuck_) {
    if (view.HasWork()) view.SetWork(nullptr);
    // Each says of how many it is one.
    if (pages_.Finished()) view.SheetsChanged();
  }
  ShowPosition();
}

void PreviewForm::ShowPosition() {
  const std::string count = std::to_string(pages_.Count());
  const std::string all = pages_.Finished() ? count : stuck_ ? count + "+" : "...";
  lblPosition.SetCaption("صفحه " + std::to_string(view.Current() + 1) + " از " + all);
  lblZoom.SetCaption(std::to_string(std::lround(view.Zoom() * 100)) + "٪");
}

void PreviewForm::GoToLast() {
  if (alone_) return;
  {
    const Alone alone(*this);
    if (!CountAll()) return;
  }
  view.GoTo(pages_.Count() - 1);
}

void PreviewForm::Put(const std::function<void(report::Pages&)>& outlet) {
  if (alone_ || !outlet) return;
  const Alone alone(*this);
  if (CountAll()) outlet(pages_);
}

void ShowReport(report::FilledReport report, platform::ReportOutput output,
                controls::Screen& screen, platform::Progress& progress,
                const report::Letters& letters, const PageOutlets& outlets) {
  report::Pages pages(std::move(report), letters);
  if (output == platform::ReportOutput::kScreen) {
    return PreviewForm(screen, progress, pages, outlets).Run();
  }
  const PlainPointer plain(screen);
  if (LayOutRest(pages, progress)) outlets.print(pages);
}

}  // namespace screens
