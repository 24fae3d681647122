#include "controls/PageView.h"

#include <algorithm>

#include "controls/Controls.h"

namespace controls {

namespace {

constexpr double kLeastZoom = 0.2;
constexpr double kMostZoom = 5;

}  // namespace

void PageView::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void PageView::SetSheetSize(double width, double height) {
  sheetWidth_ = width;
  sheetHeight_ = height;
  Notify(Aspect::kColumns);
}

void PageView::SetCount(int count) {
  if (count_ == count) return;
  count_ = count;
  Notify(Aspect::kRows);
}

int PageView::Within(int sheet) const {
  return std::clamp(sheet, 0, std::max(0, count_ - 1));
}

void PageView::GoTo(int sheet) {
  current_ = Within(sheet);
  Notify(Aspect::kSelection);
  TellMoved();
}

void PageView::GoToLast() {
  if (onGoLast) return onGoLast();
  GoTo(count_ - 1);
}

void PageView::Reached(int sheet) {
  if (Within(sheet) == current_) return;
  current_ = Within(sheet);
  TellMoved();
}

bool PageView::TakeZoom(double zoom) {
  return std::exchange(zoom_, std::clamp(zoom, kLeastZoom, kMostZoom)) != zoom_;
}

void PageView::SetZoom(double zoom) {
  fit_ = Fit::kNone;
  if (!TakeZoom(zoom)) return;
  Notify(Aspect::kColumns);
  TellMoved();
}

void PageView::SetFit(Fit fit) {
  fit_ = fit;
  Notify(Aspect::kColumns);
}

void PageView::Fitted(double zoom) {
  if (TakeZoom(zoom)) TellMoved();
}

void PageView::SetWork(std::function<void()> work) {
  work_ = std::move(work);
  Notify(Aspect::kItems);
}

void PageView::Work() {
  // It may set another one.
  if (const auto work = work_) work();
}

void PageView::TellMoved() const {
  if (onMoved) onMoved();
}

}  // namespace controls
