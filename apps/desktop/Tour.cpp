#include "Tour.h"

#include <QApplication>

#include "adapters/qt/Convert.h"

namespace desktop {

namespace {

constexpr int kStepDelay = 40;  // milliseconds, for the screen to settle
constexpr int kMostWaiting = 100;

std::string Made(const QDir& folder) {
  std::string path = adapters::qt::ToUtf8(folder.absolutePath());
  if (!folder.mkpath(".")) throw tour::Failure("cannot make the folder " + path);
  return path;
}

}  // namespace

Tour::Tour(tour::Play play, Hands::Open open, const QDir& folder)
    : hands_(play, std::move(open)), tour_(hands_, Made(folder)) {
  timer_.setSingleShot(true);
  timer_.setInterval(kStepDelay);
  QObject::connect(&timer_, &QTimer::timeout, [this] { Next(); });
}

void Tour::Next() {
  // Beforehand: the step may open a modal window, in whose loop the next one plays.
  timer_.start();
  if (!hands_.Settled() && waited_++ < kMostWaiting) return;
  waited_ = 0;
  if (tour_.Next()) return;
  timer_.stop();
  ended_ = true;
  QApplication::exit();
}

}  // namespace desktop
