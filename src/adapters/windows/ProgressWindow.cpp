#include "adapters/windows/ProgressWindow.h"

#include <algorithm>
#include <utility>

#include "adapters/windows/ModalLoop.h"
#include "adapters/windows/PushButton.h"
#include "adapters/windows/Surroundings.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

namespace {

constexpr unsigned long long kPatienceMilliseconds = 500;
constexpr unsigned long long kPaintMilliseconds = 50;
// In design pixels.
constexpr int kWidth = 360;
constexpr int kHeight = 112;
constexpr int kMargin = 14;

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle =
    WS_EX_RTLREADING | WS_EX_RIGHT | WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

}  // namespace

class ProgressWindow::Bar : public Window {
 public:
  Bar(ErrorGuard& guard, const Theme& theme, std::wstring what)
      : Window(guard),
        theme_(theme),
        what_(std::move(what)),
        before_(GetFocus()),
        others_(nullptr) {
    RECT place{0, 0, Px(kWidth), Px(kHeight)};
    AdjustWindowRectEx(&place, kStyle, FALSE, kExtendedStyle);
    OffsetRect(&place, -place.left, -place.top);
    const HWND owner = before_ == nullptr ? DialogOwner() : GetAncestor(before_, GA_ROOT);
    Create({.style = kStyle,
            .extendedStyle = kExtendedStyle,
            .parent = owner,
            .place = place,
            .text = L"لطفاً صبر كنيد"});
    SetName(kFormProperty, "ProgressWindow");
    const RECT stop{Px(kMargin), Px(kHeight - kMargin - 28), Px(kMargin + 88),
                    Px(kHeight - kMargin)};
    stop_ = std::make_unique<PushButton>(guard, theme_, Handle(), stop, L"انصراف",
                                         [this] { stopped_ = true; });
    CentreOver(owner, Handle());
    // The others get no messages from here on: let them look right meanwhile.
    RedrawWindow(owner, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    ShowWindow(Handle(), SW_SHOW);
    SetFocus(stop_->Handle());
  }
  ~Bar() override {
    Pump();
    others_.End();
    ShowWindow(Handle(), SW_HIDE);
    if (before_ != nullptr) SetFocus(before_);
  }

  bool Stopped() const { return stopped_; }
  void Show(double share) {
    share_ = share;
    Invalidate();
    Pump();
  }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    switch (message) {
      case WM_PAINT:
        Paint();
        return 0;
      case WM_ERASEBKGND:
        return 1;
      case WM_CLOSE:
        stopped_ = true;
        return 0;
      case kFormKeyDown:
        if (wParam == VK_ESCAPE) stopped_ = true;
        return wParam == VK_TAB || wParam == VK_ESCAPE;
      default:
        return Default(message, wParam, lParam);
    }
  }

 private:
  int Px(int design) const { return theme_.GetScale().Design(design); }

  void Paint() const {
    const PaintSession canvas(Handle());
    canvas.Fill(canvas.Area(), controls::palette::kFormGround);
    canvas.Text(what_, {Px(kMargin), Px(10), Px(kWidth - kMargin), Px(30)},
                {.font = theme_.Font()});
    const RECT groove{Px(kMargin), Px(36), Px(kWidth - kMargin), Px(54)};
    canvas.RoundBox(groove, Px(4), theme::kField, theme::kLine);
    RECT done = groove;
    InflateRect(&done, -2, -2);
    // It fills from the right, as one reads.
    done.left = done.right - static_cast<LONG>((done.right - done.left) * share_);
    if (done.right > done.left) canvas.RoundBox(done, Px(3), theme::kAccent, theme::kAccent);
    const std::wstring percent = std::to_wstring(static_cast<int>(share_ * 100)) + L"%";
    canvas.Text(percent, {Px(kWidth / 2), Px(60), Px(kWidth - kMargin), Px(kHeight - kMargin)},
                {.font = theme_.Font(), .colour = theme::kMutedText, .leftToRight = true});
  }

  void Pump() const { ModalLoop::Breathe(Handle()); }

  const Theme& theme_;
  std::wstring what_;
  HWND before_;
  ModalLoop others_;
  std::unique_ptr<PushButton> stop_;
  double share_ = 0;
  bool stopped_ = false;
};

ProgressWindow::ProgressWindow(ErrorGuard& guard, const Theme& theme)
    : guard_(guard), theme_(theme) {}

ProgressWindow::~ProgressWindow() = default;

void ProgressWindow::Begin(std::string_view what, std::size_t total) {
  End();
  what_ = Wide(what);
  total_ = total;
  begun_ = GetTickCount64();
}

bool ProgressWindow::Advance(std::size_t done) {
  const unsigned long long now = GetTickCount64();
  if (!bar_) {
    if (begun_ == 0 || now - begun_ < kPatienceMilliseconds) return true;
    bar_ = std::make_unique<Bar>(guard_, theme_, what_);
  } else if (now - painted_ < kPaintMilliseconds) {
    return !bar_->Stopped();
  }
  painted_ = now;
  bar_->Show(total_ == 0
                 ? 0.0
                 : static_cast<double>(std::min(done, total_)) / static_cast<double>(total_));
  return !bar_->Stopped();
}

void ProgressWindow::End() {
  bar_.reset();
  begun_ = 0;
}

}  // namespace adapters::windows
