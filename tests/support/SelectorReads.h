#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/AllControls.h"
#include "support/ScriptedDatabase.h"

namespace support {

/// Where the selectors of a form read, in painting order: "sltBranch office: vwAccountBranchMajor
/// vwAccountBranchMinor", the connection string before the views. Leaves 9 selected in all of them.
inline std::vector<std::string> SelectorReads(const controls::Container& on,
                                              ScriptedDatabase& database) {
  database.SetDefaultColumns({"ID", "Name"});
  std::vector<std::string> reads;
  for (controls::Control* control : AllControls(on)) {
    auto* selector = dynamic_cast<controls::Selector*>(control);
    if (selector == nullptr) continue;
    selector->Select(9);
    database.ForgetCalls();
    selector->LoadList();
    selector->DisplayText();
    std::string line = selector->Name() + " " + database.Calls().at(0).connectionString + ":";
    for (const std::string& statement : database.Log()) {
      const std::string view = statement.substr(statement.find(" vw"));
      line += view.substr(0, view.find(' ', 1));
    }
    reads.push_back(line);
  }
  return reads;
}

}  // namespace support
