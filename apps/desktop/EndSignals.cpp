#include "EndSignals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <cstdint>

namespace desktop {

namespace {

constexpr std::array kSignals{SIGTERM, SIGHUP, SIGINT};

/// A handler may do hardly more than write to a descriptor, and finds it by this alone.
volatile std::sig_atomic_t asked = -1;

void Note(int) {
  const std::uint64_t once = 1;
  // Full only when it was asked before.
  [[maybe_unused]] const auto written = write(asked, &once, sizeof once);
}

}  // namespace

EndSignals::EndSignals()
    : notifier_(new QSocketNotifier(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK), QSocketNotifier::Read,
                                    this)) {
  connect(notifier_, &QSocketNotifier::activated, this, [] { QCoreApplication::exit(); });
  asked = static_cast<std::sig_atomic_t>(notifier_->socket());
  for (const int signal : kSignals) std::signal(signal, Note);
}

EndSignals::~EndSignals() {
  for (const int signal : kSignals) std::signal(signal, SIG_DFL);
  close(asked);
}

}  // namespace desktop
