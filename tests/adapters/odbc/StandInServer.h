#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace adapters::odbc {

/// standin_server.py as a child process; tests run in the project's root. It ends with its owner,
/// also when the test program is killed, as its standard input ends then.
class StandInServer {
 public:
  /// What becomes of who connects: "answer", "refuse", "close" or "silent".
  explicit StandInServer(const std::string& behaviour = "answer");
  ~StandInServer();
  StandInServer(const StandInServer&) = delete;
  StandInServer& operator=(const StandInServer&) = delete;

  const std::string& Port() const { return port_; }
  /// An ODBC connection string for it.
  std::string Address() const;
  /// "away" or "back"; returns when it has been done.
  void Command(const std::string& command);
  /// The lines of its record that begin with `kind` ("login", "batch", "call"), without that word.
  std::vector<std::string> Heard(const std::string& kind) const;

 private:
  std::string ReadLine();

  std::filesystem::path record_;
  pid_t process_ = -1;
  int channel_ = -1;  // its standard input and output
  std::string port_;
};

}  // namespace adapters::odbc
