#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "screens/PaneTrial.h"
#include "support/Session.h"

namespace screens {

/// A person before a pane, as a file of tests/screens/sessions tells it. What is done:
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
class Session final : public support::Session {
 public:
  Session(controls::Control& control, Size size) : trial(control, size), size_(size) {}

  void Replay(const std::string& name) {
    support::Session::Replay("tests/screens/sessions/" + name + ".txt");
  }
  static std::string Bar(const ScrollRange& range);

  PaneTrial<Pane> trial;
  /// What there is to see besides what every pane has: a word and its text.
  std::function<Shown()> alsoShown;
  /// Where a cell is.
  std::function<Rect(int row, int col)> cellPlace;

 private:
  void DoOther(const std::string& what, const std::string& rest) override;
  bool PressKeys(std::string name);
  void Mouse(const std::string& what, const std::string& at);
  Point PlaceOf(const std::string& text) const;
  void DoBelow(const std::string& what);
  void TakePicture(const std::string& of);
  Shown Now() override;

  Size size_;
  std::map<std::string, std::vector<std::string>> pictures_;  // the last ones
};

}  // namespace screens
