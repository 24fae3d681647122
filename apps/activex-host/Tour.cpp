#include "Tour.h"

namespace activexhost {

namespace {

constexpr UINT kStepDelay = 60;  // milliseconds, for the screen to settle

// A timer's procedure is given nothing of its owner.
Tour* playing = nullptr;

}  // namespace

Tour::Tour(tour::Play play, Hands::Open open, const std::string& folder)
    : hands_(play, std::move(open)), tour_(hands_, folder) {
  playing = this;
}

Tour::~Tour() {
  playing = nullptr;
}

void Tour::Start() {
  if (timer_ != 0) KillTimer(nullptr, timer_);
  timer_ = SetTimer(nullptr, 0, kStepDelay, &Tour::OnTimer);
}

void CALLBACK Tour::OnTimer(HWND /*window*/, UINT /*message*/, UINT_PTR id, DWORD /*time*/) {
  if (playing != nullptr && playing->timer_ == id) playing->Next();
}

void Tour::Next() {
  // Beforehand: the step may open a modal form, in whose loop the next one plays. Afterwards anew:
  // what it has set going comes before the next one.
  Start();
  const UINT_PTR own = timer_;
  const bool more = tour_.Next();
  if (more && timer_ == own) Start();
  if (more) return;
  KillTimer(nullptr, timer_);
  ended_ = true;
  PostQuitMessage(0);
}

}  // namespace activexhost
