#include "screens/ProgressForm.h"

#include <algorithm>
#include <utility>

#include "screens/DialogMetrics.h"

namespace screens {

using controls::Twips;
using namespace dialog;

namespace {

constexpr std::chrono::milliseconds kPatience{500};
constexpr std::chrono::milliseconds kRefresh{50};

constexpr Twips kWidth = 360 * kPixel;
constexpr Twips kHeight = 112 * kPixel;

}  // namespace

ProgressForm::ProgressForm(controls::Screen& screen, Now now)
    : Form(screen, "ProgressForm", Border::kFixed),
      lblWhat(*this, "lblWhat"),
      bar(*this, "bar"),
      lblPercent(*this, "lblPercent"),
      cmdStop(*this, "cmdStop", "انصراف"),
      now_(std::move(now)) {
  SetCaption("لطفاً صبر كنيد");
  Resize(kWidth, kHeight);
  const Twips inside = kWidth - 2 * kMargin;
  lblWhat.Move(kMargin, 10 * kPixel, inside, 20 * kPixel);
  lblWhat.SetNamed(&bar);
  bar.Move(kMargin, 36 * kPixel, inside, 18 * kPixel);
  const Twips top = kHeight - kMargin - kButtonHeight;
  lblPercent.Move(kWidth / 2, top, kWidth / 2 - kMargin, kButtonHeight);
  cmdStop.Move(kMargin, top, kButtonWidth, kButtonHeight);
  cmdStop.SetTabIndex(0);
  cmdStop.SetAccessKey("ف");
  cmdStop.onClick = [this] { stopped_ = true; };
  SetCancelButton(&cmdStop);
}

void ProgressForm::Begin(std::string_view what, std::size_t total) {
  End();
  lblWhat.SetCaption(std::string(what));
  total_ = total;
  stopped_ = false;
  begun_ = now_();
}

bool ProgressForm::Advance(std::size_t done) {
  if (!begun_) return true;
  const std::chrono::milliseconds now = now_();
  if (Visible() ? now - shown_ < kRefresh : now - *begun_ < kPatience) return !stopped_;
  shown_ = now;
  ShowShare(done);
  if (!Visible()) {
    plain_.emplace(GetScreen());
    Show(controls::Modality::kWaiting);
  }
  GetScreen().Breathe();
  return !stopped_;
}

void ProgressForm::ShowShare(std::size_t done) {
  if (total_ == 0) {
    bar.SetShare(-1);
    lblPercent.SetCaption({});
    return;
  }
  const double share = static_cast<double>(std::min(done, total_)) / static_cast<double>(total_);
  bar.SetShare(share);
  lblPercent.SetCaption(std::to_string(static_cast<int>(share * 100)) + "%");
}

void ProgressForm::End() {
  begun_.reset();
  if (Visible()) {
    // What was typed or clicked for the other windows goes before they take input again.
    GetScreen().Breathe();
    Hide();
  }
  plain_.reset();
}

}  // namespace screens
