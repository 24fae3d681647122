#include "HiddenLine.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <iostream>

namespace desktop {

namespace {

/// A terminal that does not show what is typed, and a program that no signal of the user's ends
/// before it does again: signals wait until then.
class HiddenInput {
 public:
  HiddenInput() {
    sigset_t held;
    sigemptyset(&held);
    for (const int signal : {SIGINT, SIGQUIT, SIGTERM, SIGHUP, SIGTSTP}) sigaddset(&held, signal);
    sigprocmask(SIG_BLOCK, &held, &signals_);
    arrivals_ = signalfd(-1, &held, SFD_CLOEXEC);
    tcgetattr(STDIN_FILENO, &terminal_);
    termios hidden = terminal_;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    hidden.c_lflag |= ECHONL;
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
  }
  HiddenInput(const HiddenInput&) = delete;
  HiddenInput& operator=(const HiddenInput&) = delete;
  ~HiddenInput() {
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &terminal_);
    close(arrivals_);
    sigprocmask(SIG_SETMASK, &signals_, nullptr);
  }

  /// False when a signal came first.
  bool WaitForLine() const {
    std::array<pollfd, 2> ends{{{STDIN_FILENO, POLLIN, 0}, {arrivals_, POLLIN, 0}}};
    poll(ends.data(), ends.size(), -1);
    return ends[1].revents == 0;
  }

 private:
  termios terminal_{};
  sigset_t signals_{};
  int arrivals_ = -1;
};

std::string ReadLine() {
  std::string line;
  std::getline(std::cin, line);
  return line;
}

}  // namespace

std::string ReadHiddenLine(const char* prompt) {
  if (isatty(STDIN_FILENO) == 0) return ReadLine();
  // After a stop it is asked for again.
  for (;;) {
    const HiddenInput hidden;
    std::fputs(prompt, stderr);
    if (hidden.WaitForLine()) return ReadLine();
    std::fputc('\n', stderr);
  }
}

}  // namespace desktop
