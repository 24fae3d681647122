// A connection string that is typed, and who gets to see it.

#include <gmock/gmock.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>

#include "desktop/Host.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;

/// The host on a terminal of its own, asking for the string.
class Terminal {
 public:
  Terminal() {
    process_ = forkpty(&terminal_, nullptr, nullptr, nullptr);
    if (process_ == 0) {
      std::signal(SIGINT, SIG_DFL);  // which a job in the background ignores
      execl(PROMOTER_DESKTOP, "host", "--replay", "/dev/null", "--connect", "-", nullptr);
      _exit(127);
    }
    while (output.find("string: ") == std::string::npos && ReadMore()) {
    }
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal() { close(terminal_); }

  bool ShowsWhatIsTyped() const {
    termios state{};
    EXPECT_EQ(tcgetattr(terminal_, &state), 0);
    return (state.c_lflag & ECHO) != 0;
  }
  /// The status that the host ends with.
  int Type(const std::string& text) {
    EXPECT_EQ(write(terminal_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    int status = 0;
    while (ReadMore()) {
    }
    waitpid(process_, &status, 0);
    return status;
  }

  std::string output;

 private:
  bool ReadMore() {
    char c = 0;
    if (read(terminal_, &c, 1) != 1) return false;
    output += c;
    return true;
  }

  int terminal_ = -1;
  pid_t process_ = -1;
};

TEST(Connecting, WhatIsTyped_IsNotShownAndTheTerminalIsLeftAsItWas) {
  Terminal typed;
  EXPECT_FALSE(typed.ShowsWhatIsTyped());
  EXPECT_TRUE(WIFEXITED(typed.Type("sqlite:/typed\n")));
  EXPECT_THAT(typed.output, AllOf(HasSubstr(": \r\n"), HasSubstr("/typed")));
  EXPECT_TRUE(typed.ShowsWhatIsTyped());

  Terminal left;
  EXPECT_FALSE(left.ShowsWhatIsTyped());
  const int status = left.Type("sqlite:/ty\x03");
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << status;
  EXPECT_TRUE(left.ShowsWhatIsTyped());
}

}  // namespace
