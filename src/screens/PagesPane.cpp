#include "screens/PagesPane.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "screens/PaintSheet.h"
#include "screens/Palette.h"

namespace screens {

using controls::Aspect;
using controls::PageView;

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kDesignDpi = 96;
constexpr controls::Colour kPaper = controls::Rgb(255, 255, 255);
constexpr int kStep = 48;  // at 96 dpi
/// What stays in sight when the rest goes on by a page.
constexpr int kOverlap = 32;

int Whole(double pixels) {
  return std::max(1, static_cast<int>(std::lround(pixels)));
}

}  // namespace

double PagesPane::PixelsPerPoint() const {
  return Host().GetScale().Unit() * kDesignDpi / kPointsPerInch * Shown()->Zoom();
}

Rect PagesPane::SheetPlace(int sheet) const {
  const int spare = Area().Width() - sheetWidth_;
  const int left = spare > 2 * Gap() ? spare / 2 : spare - Gap() + across_;
  const int top = Gap() + sheet * Stride() - above_;
  return {left, top, left + sheetWidth_, top + sheetHeight_};
}

PagesPane::Span PagesPane::InSight() const {
  const int last = std::max(0, above_ + Area().Height() - Gap() - 1) / Stride();
  return {above_ / Stride(), std::min(Shown()->Count() - 1, last)};
}

void PagesPane::Changed(const controls::Change& change) {
  if (Shown() == nullptr) return;
  switch (change.aspect) {
    case Aspect::kColumns:
      FitZoom();
      break;
    case Aspect::kRows:
      ShowBars();
      break;
    case Aspect::kSelection:
      ScrollToSheet(Shown()->Current());
      break;
    case Aspect::kCells:
      for (auto& [sheet, kept] : kept_) kept.old = true;
      break;
    case Aspect::kItems:
      break;
    default:
      return ControlPane::Changed(change);
  }
  FetchInSight();
  KeepWorking();
}

void PagesPane::Resized(Size size) {
  ControlPane::Resized(size);
  // A bar that comes makes the sheets smaller, after which it may go again, and so on.
  constexpr int kMostRounds = 3;
  if (Shown() == nullptr || rounds_ == kMostRounds) return;
  ++rounds_;
  FitZoom();
  --rounds_;
  KeepWorking();
}

void PagesPane::FitZoom() {
  const PageView& view = *Shown();
  const double pixels = PixelsPerPoint() / view.Zoom();
  const double wide = (Area().Width() - 2 * Gap()) / (view.SheetWidth() * pixels);
  const double high = (Area().Height() - 2 * Gap()) / (view.SheetHeight() * pixels);
  const int current = view.Current();
  if (view.GetFit() == PageView::Fit::kWidth) Shown()->Fitted(wide);
  if (view.GetFit() == PageView::Fit::kSheet) Shown()->Fitted(std::min(wide, high));
  Measure();
  if (Shown() != nullptr && view.GetFit() == PageView::Fit::kSheet) ScrollToSheet(current);
}

/// What stood at the top of the view stays there in another size.
void PagesPane::Measure() {
  const double place = static_cast<double>(above_) / Stride();
  const double pixels = PixelsPerPoint();
  sheetWidth_ = Whole(Shown()->SheetWidth() * pixels);
  sheetHeight_ = Whole(Shown()->SheetHeight() * pixels);
  above_ = static_cast<int>(std::lround(place * Stride()));
  ScrollTo(above_, across_);
  RepaintAll();
}

int PagesPane::AllHeight() const {
  const std::int64_t height = Gap() + std::int64_t{Shown()->Count()} * Stride();
  return static_cast<int>(std::min<std::int64_t>(height, std::numeric_limits<int>::max()));
}

void PagesPane::ShowBars() {
  // A bar that comes or goes changes the pane's size, which is measured within this call.
  Host().SetScrollBar(Axis::kDown, {AllHeight(), Area().Height(), above_, Design(kStep)});
  Host().SetScrollBar(Axis::kAcross,
                      {sheetWidth_ + 2 * Gap(), Area().Width(), across_, Design(kStep)});
}

void PagesPane::ScrollTo(int above, int across) {
  const int mostAcross = std::max(0, sheetWidth_ + 2 * Gap() - Area().Width());
  const int before = above_;
  above_ = std::clamp(above, 0, std::max(0, AllHeight() - Area().Height()));
  const bool moved = std::exchange(across_, std::clamp(across, 0, mostAcross)) != across_;
  if (moved) {
    RepaintAll();
  } else if (above_ != before) {
    Host().ScrollPart(Area(), before - above_);
  }
  ShowBars();
}

void PagesPane::ScrollToSheet(int sheet) {
  ScrollTo(sheet * Stride(), across_);
}

void PagesPane::Scrolled(Axis axis, int place) {
  if (Shown() == nullptr) return;
  const bool down = axis == Axis::kDown;
  ScrollTo(down ? place : above_, down ? across_ : place);
  Shown()->Reached((above_ + Area().Height() / 2 - Gap()) / Stride());
  FetchInSight();
}

void PagesPane::Wheel(const WheelEvent& event) {
  if (Shown() == nullptr) return;
  if (event.modifiers.control) {
    Shown()->SetZoom(Shown()->Zoom() * std::pow(PageView::kZoomStep, event.up));
    return;
  }
  const int step = Design(kStep);
  if (event.left != 0 || event.modifiers.shift) {
    const double notches = event.left != 0 ? event.left : event.up;
    return Scrolled(Axis::kAcross, across_ + static_cast<int>(std::lround(notches * step)));
  }
  const int notch = event.lines > 0 ? event.lines * step * 2 / 3 : Area().Height();
  Scrolled(Axis::kDown, above_ - WholeSteps(event.up * notch));
}

bool PagesPane::PressKey(const KeyEvent& event) {
  if (Shown() == nullptr || event.modifiers.alt) return false;
  switch (event.key) {
    case Key::kHome:
      Shown()->GoTo(0);
      return true;
    case Key::kEnd:
      Shown()->GoToLast();
      return true;
    default:
      return !event.modifiers.control && Walk(event);
  }
}

bool PagesPane::Walk(const KeyEvent& event) {
  const int step = Design(kStep);
  const bool whole = Stride() <= Area().Height();
  const int page = whole ? Stride() : std::max(1, Area().Height() - Design(kOverlap));
  switch (event.key) {
    case Key::kUp:
      Scrolled(Axis::kDown, above_ - step);
      return true;
    case Key::kDown:
      Scrolled(Axis::kDown, above_ + step);
      return true;
    case Key::kLeft:
      Scrolled(Axis::kAcross, across_ + step);
      return true;
    case Key::kRight:
      Scrolled(Axis::kAcross, across_ - step);
      return true;
    case Key::kPageUp:
      Scrolled(Axis::kDown, above_ - page);
      return true;
    case Key::kPageDown:
      Scrolled(Axis::kDown, above_ + page);
      return true;
    case Key::kSpace:
      Scrolled(Axis::kDown, event.modifiers.shift ? above_ - page : above_ + page);
      return true;
    default:
      return false;
  }
}

void PagesPane::Paint(Surface& surface, const Rect& dirty) const {
  surface.Fill(dirty, palette::kFaintLine);
  if (Shown() == nullptr) return;
  const Span seen = InSight();
  for (int sheet = seen.first; sheet <= seen.last; ++sheet) {
    const Rect place = SheetPlace(sheet);
    const Rect edge{place.left - 1, place.top - 1, place.right + 1, place.bottom + 1};
    if (edge.Common(dirty).Empty()) continue;
    surface.Frame(edge, palette::kLine);
    const OnPaper paper(surface);
    surface.Fill(place, kPaper);
    const auto kept = kept_.find(sheet);
    if (kept == kept_.end()) continue;
    const Clipped clipped(surface, place);
    PaintSheet(kept->second.sheet, surface, {place.left, place.top}, PixelsPerPoint(), dirty);
  }
}

}  // namespace screens
