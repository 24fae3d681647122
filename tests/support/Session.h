#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/RuntimeError.h"

namespace support {

/// Something that is worked with, as an approved file tells it: a line that begins with ">" is what
/// is done, those below it are what was heard, or has become another, because of it. Other lines
/// are the reader's.
class Session {
 public:
  using Command = std::function<void(const std::string& rest)>;

  Session() = default;
  virtual ~Session() = default;
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  void Replay(const std::string& file);
  /// One thing that is done; a RuntimeError of it is heard.
  void Do(const std::string& line);
  /// What happens elsewhere because of it.
  virtual void Hear(const std::string& what) { heard_.push_back(what); }

  /// Names something that is done, with or without what stands behind it.
  void On(const std::string& name, std::function<void()> command) {
    commands_[name] = [command = std::move(command)](const std::string&) { command(); };
  }
  void On(const std::string& name, Command command) { commands_[name] = std::move(command); }

 protected:
  /// A word and its text each.
  using Shown = std::vector<std::pair<std::string, std::string>>;
  /// What there is to see.
  virtual Shown Now() = 0;
  virtual void HearError(const platform::RuntimeError& error);
  /// What is not among those named; an error of the session's where nobody knows it.
  virtual void DoOther(const std::string& what, const std::string& rest);

 private:
  std::map<std::string, Command> commands_;
  Shown before_;
  std::vector<std::string> heard_;
};

}  // namespace support
