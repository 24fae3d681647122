#pragma once

#include <map>
#include <vector>

#include "platform/Connection.h"
#include "support/Approved.h"
#include "support/ErrorNumber.h"
#include "support/Lines.h"
#include "text/Text.h"

namespace support {

/// "\x06" for the byte.
inline std::string Unescaped(std::string text) {
  for (std::size_t at = 0; (at = text.find("\\x", at)) != text.npos; ++at) {
    text.replace(at, 4, 1, static_cast<char>(std::stoi(text.substr(at + 2, 2), nullptr, 16)));
  }
  return text;
}

/// "a | b" in parts.
inline std::vector<std::string> Parts(const std::string& text) {
  std::vector<std::string> parts;
  for (std::size_t at = 0, end = 0; end < text.size(); at = end + 3) {
    end = std::min(text.find(" | ", at), text.size());
    parts.push_back(text.substr(at, end - at));
  }
  parts.resize(std::max<std::size_t>(parts.size(), 1));
  return parts;
}

using Function = std::function<std::string(const std::vector<std::string>& parts)>;

/// A file of what goes into functions and what comes out of them:
///
///   == NAME            the function that the lines below go through
///   INPUT => OUTPUT    \x06 is a byte that nobody could see, " | " parts an input
///
/// and lines of the reader's, which begin with "#", or are empty.
inline void ExpectTable(const std::string& file, const std::map<std::string, Function>& functions) {
  std::istringstream approved(Content(file));
  std::string came;
  Function function;
  for (std::string line; std::getline(approved, line);) {
    const std::size_t arrow = line.find("=>");
    if (line.starts_with("== ")) function = functions.at(line.substr(3));
    if (arrow != line.npos && !line.starts_with("#")) {
      auto parts = Parts(Unescaped(line.substr(0, arrow == 0 ? 0 : arrow - 1)));
      std::string output = function(parts);
      for (const char* byte : {"\t", "\n", "\r"}) {
        output = text::Replace(output, byte, byte[0] == '\t'   ? "\\x09"
                                             : byte[0] == '\n' ? "\\x0A"
                                                               : "\\x0D");
      }
      line = line.substr(0, arrow) + "=>" + (output.empty() ? "" : " " + output);
    }
    came += line + "\n";
  }
  ExpectApproved(file, came);
}

/// A file of statements, sent to a database one after the other, and what it answers: behind "=>"
/// the names of the columns, and the rows below; how many rows were affected; or an error. A line
/// of the reader's begins with "--".
inline void ExpectAnswers(const std::string& file, platform::Connection& connection,
                          const std::function<std::string(std::string)>& readable) {
  std::istringstream approved(Content(file));
  std::string came;
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
    came += (answer.empty() || answer[0] == '\n' ? "=>" : "=> ") + text::Replace(answer, "\n", "\n   ") + "\n";
    statement.clear();
  }
  ExpectApproved(file, came);
}

}  // namespace support
