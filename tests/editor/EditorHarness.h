#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "editor/EditorState.h"
#include "support/ScriptedPlatform.h"

namespace editor {

using support::Answer;
using support::Beginning;
using support::Exact;
using support::Holding;
using support::Message;
using support::RowSetOf;
using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;

inline const Message kRefused{"خطا", "شما به انجام اين عمليات مجاز نيستيد.", 0};

/// The call that logs what happened to program 40.
inline std::string Logs(const std::string& event, const std::string& whatHappened) {
  return "dbo.spZomirInsertFormAction(@EventID=" + event +
         ", @FormCode='40', @FormTypeID=3308, @Description='فرم برنامه بازارياب به ش.ر. ”40“ " +
         whatHappened +
         "', @UserID=1, @EventDate=2025-04-21, @FarsiEventDate='1404/02/01', @EventTime=510)";
}
inline std::vector<std::string> First(std::size_t count, std::vector<std::string> calls) {
  calls.resize(count);
  return calls;
}

/// The editor over a scripted office: user 1, employee 3; program 40 is temporary with the groups
/// a, b, c, d, program 41 is final and has no visits; the server's day is 1404/02/01.
class EditorTest : public testing::Test {
 protected:
  EditorTest() {
    outside.database.When(Exact("Select getdate() as today"))
        .Gives(RowSetOf({"today"}, {{"2025-04-21 10:11:12"}}));
    ScriptHeader("40", std::nullopt);
    ScriptHeader("41", "41");
    outside.database.When(Holding(" Where ProgramID=40 group by"))
        .Gives(Groups({{"7", "1404/02/01", "a"},
                       {"8", "1404/02/02", "b"},
                       {"9", "1404/02/03", "c"},
                       {"10", "1404/02/04", "d"}}));
    module.SetContext(
        {.userId = 1, .positionId = 2, .employeeId = 3, .connectionString = "office"});
  }

  void ScriptHeader(const std::string& id, const support::Cell& code,
                    const std::array<support::Cell, 6>& rest = {"1", "2025-04-01", "1404/01/12",
                                                                "4", "6", "يادداشت"}) {
    std::vector<support::Cell> row(rest.begin(), rest.end());
    row.insert(row.begin(), id);
    row.push_back(code);
    outside.database.When(Exact("select * from tblDistributionPromoterProgram Where ID=" + id))
        .Gives(RowSetOf({"ID", "CreatorID", "CreateDate", "FarsiCreateDate", "BranchID",
                         "SupervisorID", "Notes", "Code"},
                        {row}));
  }
  static platform::RowSet Groups(const std::vector<std::array<std::string, 3>>& groups) {
    std::vector<std::vector<support::Cell>> rows;
    rows.reserve(groups.size());
    for (const auto& [promoter, day, notes] : groups) {
      rows.push_back({promoter, "نام " + promoter, "2025-04-21", day, notes, "25"});
    }
    return RowSetOf({"PromoterID", "PromoterName", "VisitDate", "FarsiVisitDate", "Notes", "cnt"},
                    rows);
  }
  /// The messages shown since they were asked for last.
  std::vector<Message> Said() { return std::exchange(outside.components.messages, {}); }
  std::vector<std::string> Column(int col) {
    std::vector<std::string> texts;
    for (int row = 1; row < form.flxDetail.Rows(); ++row) {
      texts.emplace_back(form.flxDetail.TextMatrix(row, col));
    }
    return texts;
  }
  std::vector<int> MarkedRows() const {
    std::vector<int> rows;
    for (int row = 0; row < form.flxDetail.Rows(); ++row) {
      if (tools::IsMarked(form.flxDetail, row)) rows.push_back(row);
    }
    return rows;
  }
  void Press(int row, int col = 2) {
    form.flxDetail.MouseDown(row, col, 1, 0);
    form.flxDetail.Click();
  }

  support::ScriptedPlatform outside;
  host::modMain module{outside.Services()};
  FormMain form{module};
};

}  // namespace editor
