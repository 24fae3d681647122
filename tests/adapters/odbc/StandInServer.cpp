#include "adapters/odbc/StandInServer.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <fstream>

namespace adapters::odbc {

StandInServer::StandInServer(const std::string& behaviour) {
  std::string record = (std::filesystem::temp_directory_path() / "standin-XXXXXX").string();
  close(mkstemp(record.data()));
  record_ = record;
  std::array<int, 2> ends{-1, -1};
  EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
  process_ = fork();
  if (process_ == 0) {
    dup2(ends[1], STDIN_FILENO);
    dup2(ends[1], STDOUT_FILENO);
    execlp("python3", "python3", "tests/adapters/odbc/standin_server.py", record_.c_str(),
           behaviour.c_str(), nullptr);
    _exit(127);
  }
  close(ends[1]);
  channel_ = ends[0];
  port_ = ReadLine();
  EXPECT_NE(port_, "") << "python3 does not start the stand-in, or it did not say its port";
}

StandInServer::~StandInServer() {
  close(channel_);
  if (process_ > 0) {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  std::error_code ignored;
  std::filesystem::remove(record_, ignored);
}

std::string StandInServer::Address() const {
  return "Driver=FreeTDS;Server=127.0.0.1;Port=" + port_ + ";Database=suite;UID=sa;PWD=s3cret;";
}

void StandInServer::Command(const std::string& command) {
  const std::string line = command + "\n";
  ASSERT_EQ(write(channel_, line.data(), line.size()), static_cast<ssize_t>(line.size()));
  ASSERT_EQ(ReadLine(), command);
}

std::vector<std::string> StandInServer::Heard(const std::string& kind) const {
  std::vector<std::string> heard;
  std::ifstream record(record_);
  for (std::string line; std::getline(record, line);) {
    if (line.starts_with(kind + " ")) heard.push_back(line.substr(kind.size() + 1));
  }
  return heard;
}

std::string StandInServer::ReadLine() {
  std::string line;
  for (char c = 0; read(channel_, &c, 1) == 1 && c != '\n';) line += c;
  return line;
}

}  // namespace adapters::odbc
