#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "module/Office.h"
#include "support/Session.h"

namespace module {

/// A planner before the module, as a file of tests/module/sessions tells it. On the form that is
/// up, the editor while no dialog is:
///
///   BUTTON, CHECKBOX     clicks it
///   FIELD TEXT           types, in quotes where blanks count; a selector takes an id, a combo box
///                        an index, and nothing empties it
///   GRID HOW NUMBERS     press ROW COL, double ROW COL, block ROW COL ROW COL, drag COL WIDTH,
///                        width COL WIDTH, selected ROW, undo, redo, colours
///   close, gone          the close box; the window is taken away
///   resize WIDTH HEIGHT
///   place CONTROL        where it is
///   lists, tabs          opens every list; goes through by the tab key
///   listen GRID          to the marks of a selectable one
///   enable, disable CONTROL
///
/// and around the form:
///
///   open, view PROGRAM, paint            what the host asks for
///   user, employee, position ID, connect STRING, init, write, read, empty    lets and keeps
///   post IDS, account GROUP              what other modules ask for
///   answer yes no closed                 the questions that will come
///   asked STEP, started STEP             while the next question is up; when a program is started
///   chosen PATH, file PATH, modal, clock DATE, viewer, refuse PERMISSION, stop ROWS
///   fails N NUMBER WORDS                 the n-th call of the database from now on; 18: cancelled
///   breaks CALL NUMBER WORDS, mend       every such call of another thing outside; "up": a dialog
///   sql STATEMENT                        past the module
///
/// Told is who was asked what, where a SELECT is its tables and conditions; rows of the database
/// that came (+) and went (-); and what is shown anew.
class Session : public support::Session, public Office {
 public:
  Session();
  ~Session() override;
  void Replay(const std::string& name);
  void Do(const std::string& line) override;

  /// By steps what the database was asked, in whole texts, and "calls PROCEDURE NUMBERS".
  std::vector<std::pair<std::string, std::vector<std::string>>> sent;

 private:
  platform::RowSet Execute(platform::Connection& database, std::string_view statement) override;
  std::int32_t CallProcedure(platform::Connection& database, std::string_view name,
                             std::span<const platform::Parameter> parameters) override;
  void Connecting(const std::string& connectionString) override;
  void FailInTurn(bool reads);
  /// Those of a selectable list stand behind its name, which by itself is its rows.
  using Controls = std::vector<std::pair<std::string, controls::Control*>>;
  static Controls Named(const controls::Form& form);
  support::BeforeCall Watch();
  controls::Control& Find(const std::string& name);

  void LearnTheHost();
  void LearnTheOffice();
  void LearnTheForms();
  void DoOther(const std::string& what, const std::string& rest) override;
  void UseGrid(controls::FlexGrid& grid, const std::string& how);
  void TellColours(controls::FlexGrid& grid);
  void ReadLists();
  void Follow(controls::Form& form);
  void StayOn(controls::Form& form);
  support::Answer Answered();
  void AddViewer();

  std::vector<controls::Form*> Forms();
  void HearMore() override;
  Shown Now() override;
  void See(Shown& shown, controls::Form& form);
  void SeeGrid(Shown& shown, const std::string& name, controls::FlexGrid& grid);
  void HearOfDesktop();
  void HearOfRows();

  std::vector<controls::Form*> up_;
  std::deque<support::Answer> answers_;
  std::string whenAsked_;
  std::map<std::string, platform::RuntimeError, std::less<>> broken_;
  std::map<int, platform::RuntimeError> failures_;  // by how many calls from now
  std::int32_t refused_ = 0;
  std::vector<std::string> viewerTold_;
  std::map<std::string, std::string> files_;
  std::vector<std::string> rows_ = AllRows();
  std::map<const controls::FlexGrid*, controls::Subscription> drawing_;
  std::map<const controls::FlexGrid*, int> drawn_;
  std::string marked_;    // and unmarked, of what is listened to
  bool looking_ = false;  // what a look at the forms reads is not told
  bool wrote_ = false;
  bool meddled_ = false;  // what is enabled is not what the mode says
  int writes_ = 0;        // to a file
};

}  // namespace module
