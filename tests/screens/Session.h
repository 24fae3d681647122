#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "screens/PaneTrial.h"
#include "support/Approved.h"

namespace screens {

/// A person before a pane, as a file of tests/screens/sessions tells it: a line that begins with
/// ">" is what is done, those below it are what has become another, or was heard, because of it.
/// Other lines are the reader's. What is done:
///
///   Ctrl+Shift+PageDown       a key; "the form's" where the pane has no use for it
///   type TEXT, retype TEXT    letter by letter; in place of the field's text
///   press PLACE, move, release, click, double   a place is "x y", or "row,column" of a grid
///   pick N, hover PLACE       clicks a part of what has dropped down, moves there
///   wheel UP LEFT LINES TIMES the first alone, or more; Shift behind them
///   picture, picture list, picture note   what is painted and told to a screen reader of the pane,
///                             of what has dropped down, of the note; only what is new or gone
///   resize WIDTH HEIGHT, dpi N
///   focus, leave, lost, away, tick, idle, act N, scroll down N, scroll across N, gone
///
/// and what else the test names.
class Session {
 public:
  using Command = std::function<void(const std::string& rest)>;

  Session(controls::Control& control, Size size) : trial(control, size), size_(size) {}

  void Replay(const std::string& name);
  /// One thing that is done.
  void Do(const std::string& line);

  /// What happens elsewhere because of it.
  void Hear(const std::string& what) { heard_.push_back(what); }

  static std::string Bar(const ScrollRange& range);
  /// What the test names: something that is done, and with what stands behind it.
  void On(const std::string& name, std::function<void()> command) {
    commands_[name] = [command = std::move(command)](const std::string&) { command(); };
  }
  void On(const std::string& name, Command command) { commands_[name] = std::move(command); }

  PaneTrial<Pane> trial;
  /// What there is to see besides what every pane has: a word and its text.
  std::function<std::vector<std::pair<std::string, std::string>>()> alsoShown;
  /// Where a cell is.
  std::function<Rect(int row, int col)> cellPlace;

 private:
  using Shown = std::vector<std::pair<std::string, std::string>>;
  bool PressKeys(std::string name);
  void Mouse(const std::string& what, const std::string& at);
  Point PlaceOf(const std::string& text) const;
  void TakePicture(const std::string& of);
  Shown Now();
  void TellChanges(std::string& transcript);

  Size size_;
  std::map<std::string, Command> commands_;
  std::map<std::string, std::vector<std::string>> pictures_;  // the last ones
  Shown before_;
  std::vector<std::string> heard_;
};

}  // namespace screens
