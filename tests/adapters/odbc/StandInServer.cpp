#include "adapters/odbc/StandInServer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <fstream>

namespace adapters::odbc {

namespace {

/// Ends of a pipe that only the child gets, and only where it expects them.
std::array<int, 2> Pipe() {
  std::array<int, 2> ends{-1, -1};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  return ends;
}

}  // namespace

StandInServer::StandInServer(const std::string& behaviour) {
  std::string record = (std::filesystem::temp_directory_path() / "standin-XXXXXX").string();
  close(mkstemp(record.data()));
  record_ = record;

  const auto input = Pipe();
  const auto output = Pipe();
  posix_spawn_file_actions_t actions{};
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
  std::array<std::string, 4> words{"python3", "tests/adapters/odbc/standin_server.py", record,
                                   behaviour};
  std::array<char*, 5> arguments{words[0].data(), words[1].data(), words[2].data(), words[3].data(),
                                 nullptr};
  const int result =
      posix_spawnp(&process_, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(input[0]);
  close(output[1]);
  input_ = input[1];
  output_ = output[0];
  if (result != 0) {
    process_ = -1;
    ADD_FAILURE() << "python3 does not start";
  }
  port_ = ReadLine();
  EXPECT_NE(port_, "") << "the stand-in did not say its port";
}

StandInServer::~StandInServer() {
  close(input_);
  close(output_);
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

void StandInServer::Command(std::string_view command) {
  const std::string line = std::string(command) + "\n";
  ASSERT_EQ(write(input_, line.data(), line.size()), static_cast<ssize_t>(line.size()));
  ASSERT_EQ(ReadLine(), command);
}

std::vector<std::string> StandInServer::Heard(std::string_view kind) const {
  const std::string beginning = std::string(kind) + " ";
  std::vector<std::string> heard;
  std::ifstream record(record_);
  for (std::string line; std::getline(record, line);) {
    if (line.starts_with(beginning)) heard.push_back(line.substr(beginning.size()));
  }
  return heard;
}

std::string StandInServer::ReadLine() {
  std::string line;
  for (char c = 0; read(output_, &c, 1) == 1 && c != '\n';) line += c;
  return line;
}

}  // namespace adapters::odbc
