#pragma once

#include <string>

namespace activexhost {

/// Where a program without a console of its own says things: the pipe, file or console of whoever
/// started it, as UTF-8; a message where there is none of them.
class Terminal {
 public:
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  /// What was asked for. `text` ends its lines itself.
  void Say(const std::string& text) const;
  /// What went wrong.
  void Complain(const std::string& text) const;

 private:
  unsigned codePage_ = 0;  // of the console before; 0 where none was joined
};

}  // namespace activexhost
