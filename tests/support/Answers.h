#pragma once

#include <utility>
#include <vector>

#include "platform/Connection.h"
#include "support/Approved.h"
#include "support/ErrorNumber.h"
#include "support/Lines.h"
#include "text/Text.h"

namespace support {

/// A file of statements, sent to a database one after the other, and what it answers: behind "=>"
/// the names of the columns, and the rows below; how many rows were affected; or an error. A line
/// of the reader's begins with "--". Gives the statements.
inline std::vector<std::string> ExpectAnswers(
    const std::string& file, platform::Connection& connection,
    const std::function<std::string(std::string)>& readable) {
  std::istringstream approved(Content(file));
  std::string came;
  std::vector<std::string> sent;
  std::string statement;
  for (std::string line; std::getline(approved, line);) {
    if (line.starts_with("   ")) continue;
    if (!line.starts_with("=>")) {
      came += line + "\n";
      if (!line.starts_with("--") && !line.empty()) {
        statement += (statement.empty() ? "" : "\n") + line;
      }
      continue;
    }
    platform::RowSet rows;
    const auto failure = FailureOf([&] { rows = connection.Execute(statement); });
    std::string answer;
    if (failure.Number() != 0) {
      answer = std::to_string(failure.Number()) + " " + readable(failure.Description());
    } else if (rows.ReturnsRows()) {
      for (const std::string& name : rows.Columns()) answer += name + "|";
      answer.pop_back();
      if (rows.RowCount() > 0) answer += "\n" + Lines(rows);
    } else {
      answer = rows.AffectedRows() ? std::to_string(*rows.AffectedRows()) + " affected" : "done";
    }
    came += (answer.empty() || answer[0] == '\n' ? "=>" : "=> ") +
            text::Replace(answer, "\n", "\n   ") + "\n";
    sent.push_back(std::exchange(statement, {}));
  }
  ExpectApproved(file, came);
  return sent;
}

}  // namespace support
