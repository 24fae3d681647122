#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "search/FormSearch.h"
#include "support/ScriptedPlatform.h"

namespace search {

using support::Answer;
using support::Beginning;
using support::Holding;
using support::Message;
using support::RowSetOf;
using testing::ElementsAre;

/// The search, loaded, over a scripted office that finds nothing until told.
class SearchTest : public testing::Test {
 protected:
  SearchTest() {
    module.SetContext(
        {.userId = 1, .positionId = 2, .employeeId = 3, .connectionString = "office"});
    form.Load();
  }

  /// Lines of a result: program, promoter, notes; the other columns are the same in all.
  using Line = std::array<std::string, 3>;
  static platform::RowSet Lines(const std::vector<Line>& lines) {
    std::vector<std::vector<support::Cell>> rows;
    rows.reserve(lines.size());
    for (const auto& [program, promoter, notes] : lines) {
      rows.push_back({program, promoter, "1404/02/01", "C1", "مشتري", "منطقه 1", "مسير 1", notes,
                      "1404/01/12", std::nullopt, "شعبه"});
    }
    return RowSetOf({"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"}, rows);
  }
  /// Every search from now on finds these.
  void Finds(const std::vector<Line>& lines) {
    outside.database.When(Beginning("Select ID as")).Gives(Lines(lines));
  }
  void Search() {
    form.txtID.SetText("1");
    form.cmdSearch.Click();
  }
  /// The messages shown since they were asked for last.
  std::vector<Message> Said() { return std::exchange(outside.components.messages, {}); }
  std::vector<std::string> Row(int row) const {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(form.flxSearch.Cols()));
    for (int col = 0; col < form.flxSearch.Cols(); ++col) {
      texts.emplace_back(form.flxSearch.TextMatrix(row, col));
    }
    return texts;
  }

  support::ScriptedPlatform outside;
  host::modMain module{outside.Services()};
  FormSearch form{module};
};

}  // namespace search
