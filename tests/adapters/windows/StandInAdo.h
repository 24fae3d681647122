#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "adapters/windows/StandIn.h"

namespace adapters::windows {

/// "ADODB.Connection", "ADODB.Recordset" and "ADODB.Command" over written answers, with the
/// members, argument orders, states and errors of the documented ones. One object answers for each,
/// its collections and what was taken from them last.
class StandInAdo {
 public:
  StandInAdo();
  ~StandInAdo();
  StandInAdo(const StandInAdo&) = delete;
  StandInAdo& operator=(const StandInAdo&) = delete;

  struct Result {  // without columns: of a statement that returns no rows
    std::vector<std::string> columns;
    std::vector<std::vector<Variant>> rows;
  };
  /// The state of an error that no provider gave: it is raised and does not join the others.
  static constexpr const char* kAdoAlone = "ADO";
  struct Error {
    std::string state;
    std::int32_t native;
    std::string text;
  };

  std::map<std::string, std::vector<Result>> answers;  // of statements; none: no rows
  std::map<std::string, std::int32_t> affected;        // rows, which an event tells
  std::deque<std::vector<Error>> failures;             // of the next arrivals; empty: none
  std::vector<std::string> log;                        // what arrived
  std::int32_t returned = 0;                           // by a procedure
  /// How often State says that what was begun without waiting is still at work.
  int slow = 0;
  bool heedsCancel = true;

 private:
  class Events;
  Variant MakeConnection();
  Variant MakeRecordset(std::vector<Result> results);
  Variant MakeCommand();
  /// Raises the next failure; of what is not waited for it only joins the errors, and false is
  /// returned.
  bool Arrive(const std::string& what, bool waitedFor = true);
  /// Gives `object` a State and a Cancel: at work as long as `slow` says once `work` was set to it,
  /// then what `otherwise` says.
  using Work = std::shared_ptr<int>;
  void LetWork(StandIn& object, const Work& work, std::int32_t state,
               const std::function<std::int32_t()>& otherwise);

  bool open_ = false;
  std::vector<Error> errors_;
  std::unique_ptr<Events> events_;
  Component connection_{"ADODB.Connection", [this] { return MakeConnection(); }};
  Component recordset_{"ADODB.Recordset", [this] { return MakeRecordset({}); }};
  Component command_{"ADODB.Command", [this] { return MakeCommand(); }};
};

}  // namespace adapters::windows
