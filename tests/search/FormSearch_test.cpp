#include "search/FormSearch.h"

#include <gmock/gmock.h>

#include <array>
#include <functional>
#include <map>
#include <numeric>
#include <utility>

#include "support/ScriptedPlatform.h"

namespace search {
namespace {

using support::Answer;
using support::Beginning;
using support::Message;
using support::RowSetOf;
using testing::ElementsAre;
using testing::IsEmpty;

/// What follows "Select " up to the first field, and the condition.
std::string LimitAndCondition(const std::string& statement) {
  const std::size_t where = statement.find("   Where ") + 9;
  return statement.substr(7, statement.find("ID as") - 7) + "|" +
         statement.substr(where, statement.find(" order by ") - where);
}

/// The search, loaded, over a scripted office that finds nothing until told.
class SearchTest : public testing::Test {
 protected:
  SearchTest() {
    module.SetContext(
        {.userId = 1, .positionId = 2, .employeeId = 3, .connectionString = "office"});
    form.Load();
  }

  /// Every search from now on finds these lines: program, promoter, notes; the other columns are
  /// the same in all.
  void Finds(const std::vector<std::array<std::string, 3>>& lines) {
    std::vector<std::vector<support::Cell>> rows;
    for (const auto& [program, promoter, notes] : lines) {
      rows.push_back({program, promoter, "1404/02/01", "C1", "مشتري", "منطقه 1", "مسير 1", notes,
                      "1404/01/12", std::nullopt, "شعبه"});
    }
    outside.database.When(Beginning("Select ID as"))
        .Gives(RowSetOf({"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"}, rows));
  }
  void Search() {
    form.txtID.SetText("1");
    form.cmdSearch.Click();
  }
  /// The messages shown since they were asked for last.
  std::vector<Message> Said() { return std::exchange(outside.components.messages, {}); }
  std::vector<std::string> Row(int row) const {
    std::vector<std::string> texts;
    for (int col = 0; col < form.flxSearch.Cols(); ++col) {
      texts.emplace_back(form.flxSearch.TextMatrix(row, col));
    }
    return texts;
  }

  support::ScriptedPlatform outside;
  host::modMain module{outside.Services()};
  FormSearch form{module};
};

TEST_F(SearchTest, Load_GivesTheGridItsColumns) {
  const controls::Twips widths[] = {800,  800,  2000, 1200, 2000, 2000,
                                    2000, 2000, 2000, 1200, 2000, 2000};
  for (int col = 0; col < 12; ++col) {
    EXPECT_EQ(form.flxSearch.ColWidth(col), widths[col]) << col;
    EXPECT_EQ(form.flxSearch.ColAlignment(col), controls::FlexGrid::Alignment::kCentreCentre);
  }
}

TEST_F(SearchTest, Condition_OfEachFilterAlone_AsksNoQuestionAndIsGoneAtANewSearch) {
  const std::pair<std::function<void()>, std::string> cases[] = {
      {[this] { form.txtID.SetText("12"); }, " and ID = 12"},
      {[this] { form.txtID.SetText("1404/05"); }, " and ID = 140405"},
      {[this] { form.txtID.SetText("۱٢3"); }, " and ID = 123"},
      {[this] { form.txtID.SetText("x"); }, " and ID = 0"},
      {[this] { form.txtID.SetText(" "); }, " and ID = -1"},
      {[this] { form.sltCreator.Select(2); }, " and CreatorID = 2"},
      {[this] { form.sltProgram.Select(3); }, " and ProgramID = 3"},
      {[this] { form.sltSupervisor.Select(4); }, " and SupervisorID= 4"},
      {[this] { form.sltCustomer.Select(6); }, " and CustomerID = 6"},
      {[this] { form.sltBranch.Select(8); }, " and BranchID= 8"},
      {[this] { form.txtDescription.SetText("it's"); }, " and p.Notes like '%it's%'"},
      {[this] { form.txtDescription.SetText(" "); }, " and p.Notes like '% %'"},
      {[this] { form.datCreateDate.SetText("1404/02/01"); }, " and CreateDate = '20250421'"},
      {[this] { form.datVisit.SetText("1404/01/01"); }, " and VisitDate = '20250321'"},
      {[this] { form.sltPromoter.Select(7); }, " and PromoterID = 7"},
      {[] {}, " and PromoterID = 7"},  // which stays
  };
  for (const auto& [fill, condition] : cases) {
    form.cmdNewsearch.Click();
    fill();
    form.cmdSearch.Click();
    EXPECT_EQ(LimitAndCondition(outside.database.Log().back()), "|1=1" + condition);
  }
  EXPECT_THAT(Said(), IsEmpty());
}

TEST_F(SearchTest, Search_WithoutFilter_AsksForTheLimit) {
  form.flxSearch.SetTextMatrix(1, 1, "untouched");
  const Message question{
      "هشدار", "فيلدهاي جستجو را پر نشده است. آيا نتيجه جستجو به 1000 رکورد محدود گردد؟", 1};

  outside.components.WillAnswer({Answer::kNo});
  form.cmdSearch.Click();
  EXPECT_THAT(Said(), ElementsAre(question, Message{"اطلاع", "جستجو انجام نشد!", 0}));
  EXPECT_THAT(outside.database.Log(), IsEmpty());
  EXPECT_EQ(form.flxSearch.TextMatrix(1, 1), "untouched");

  // There is no way to search everything without the limit, not by closing the question either.
  outside.components.WillAnswer({Answer::kYes, Answer::kClosed});
  form.cmdSearch.Click();
  form.cmdSearch.Click();
  for (const std::string& sent : outside.database.Log()) {
    EXPECT_EQ(LimitAndCondition(sent), " TOP 1000 |1=1");
  }
  EXPECT_EQ(outside.database.Log().size(), 2U);
}

TEST_F(SearchTest, Search_NumbersAndColoursTheRowsAndLeavesTheHeadAloneWithoutAny) {
  const std::vector<std::string> head = Row(0);
  EXPECT_EQ(head.front(), "رديف");
  Finds({{"5", "p", "n"}, {"5", "q", "n"}, {"6", "r", ""}});
  int drawn = 0;
  const auto subscription = form.flxSearch.Subscribe([&drawn](const controls::Change& change) {
    if (change.aspect == controls::Aspect::kRows) ++drawn;
  });
  Search();
  EXPECT_EQ(drawn, 1) << "drawn once, when all is done";
  EXPECT_EQ(Row(0), head);
  EXPECT_THAT(Row(2), ElementsAre("2", "5", "q", "1404/02/01", "C1", "مشتري", "منطقه 1", "مسير 1",
                                  "n", "1404/01/12", "", "شعبه"));
  EXPECT_EQ(form.flxSearch.FixedRows(), 1);
  EXPECT_EQ(form.flxSearch.FixedCols(), 1);
  const controls::Colour colours[] = {15464446, 13561085, 15464446};
  for (int row = 1; row < 4; ++row) {
    for (int col = 1; col < 12; ++col) {
      form.flxSearch.SetRow(row);
      form.flxSearch.SetCol(col);
      EXPECT_EQ(form.flxSearch.CellBackColor(), colours[row - 1]) << "set, not only shown";
    }
  }
  Finds({});
  Search();
  EXPECT_EQ(form.flxSearch.Rows(), 1);
  EXPECT_EQ(Row(0), head);
  form.cmdNewsearch.Click();
  EXPECT_EQ(form.flxSearch.Rows(), 2);
  EXPECT_EQ(form.flxSearch.FixedRows(), 1);
}

TEST_F(SearchTest, PickProgram_ReturnsTheRowOrMinusOne) {
  Finds({{"5", "p", "n"}, {"1404/06", "q", "n"}});
  const auto pick = [this](const std::function<void(FormSearch&)>& action) {
    outside.screen.OnModalForm<FormSearch>(action);
    return form.PickProgram();
  };
  const auto choose = [&](int row) {
    return pick([row](FormSearch& f) {
      f.flxSearch.SetRow(row);
      f.flxSearch.DblClick();
    });
  };
  Search();
  EXPECT_EQ(choose(2), 140406);
  EXPECT_EQ(pick([](FormSearch& f) { f.cmdExit.Click(); }), -1) << "an earlier choice is forgotten";
  EXPECT_EQ(choose(1), 5) << "the result of before still stands";
  form.cmdNewsearch.Click();
  EXPECT_EQ(choose(1), -1) << "an empty line";
  Finds({});
  Search();
  EXPECT_EQ(choose(0), 0) << "the heading's text";
}

TEST_F(SearchTest, Resize_StretchesTheGridAndSharesWhatIsSpareAmongColumnsWithoutDate) {
  const controls::Twips gridWidth = form.flxSearch.Width();
  const controls::Twips gridHeight = form.flxSearch.Height();
  form.flxSearch.SetColWidth(7, 0);
  form.Resize(form.Width() + 9000, form.Height() + 600);
  EXPECT_EQ(form.flxSearch.Width(), gridWidth + 9000);
  EXPECT_EQ(form.flxSearch.Height(), gridHeight + 600);
  EXPECT_EQ(form.flxSearch.ColWidth(3), 1200);
  EXPECT_EQ(form.flxSearch.ColWidth(7), 0) << "hidden";
  const controls::Twips spare = form.flxSearch.ColWidth(2) - 2000;
  EXPECT_GT(spare, 0);
  EXPECT_DOUBLE_EQ(form.flxSearch.ColWidth(0), 800 + spare);
  Finds({{"5", "p", "n"}});
  Search();
  EXPECT_GT(form.flxSearch.ColWidth(2), 2000) << "a search keeps the columns spread";
  form.Resize(form.Width() - 12000, form.Height() - 600);
  EXPECT_EQ(form.flxSearch.ColWidth(2), 2000) << "never narrower than designed";
}

TEST_F(SearchTest, Resize_AfterColumnsWereDragged_SharesFromWhereTheyStandAndComesBack) {
  const controls::Twips width = form.Width();
  const auto widthsAt = [&](controls::Twips formWidth) {
    form.Resize(formWidth, form.Height());
    std::vector<controls::Twips> widths;
    for (int col = 0; col < 12; ++col) widths.push_back(form.flxSearch.ColWidth(col));
    return widths;
  };
  const auto free = [&](const std::vector<controls::Twips>& widths) {
    return form.flxSearch.Width() - 300 - std::accumulate(widths.begin(), widths.end(), 0.0);
  };
  form.flxSearch.DragColWidth(3, 1500);  // a date
  form.flxSearch.DragColWidth(8, 5000);
  const auto before = widthsAt(width + 15);
  EXPECT_EQ(before[8], 5000) << "no room to share yet";
  const auto wide = widthsAt(width + 12000);
  EXPECT_NEAR(free(wide), 0, 0.01);
  EXPECT_EQ(wide[3], 1500);
  EXPECT_NEAR(wide[8] - wide[2], 3000, 0.01);
  EXPECT_EQ(widthsAt(width), before);

  widthsAt(width + 12000);
  form.flxSearch.DragColWidth(2, 400);
  form.flxSearch.DragColWidth(3, 900);
  const auto shared = widthsAt(width + 12015);
  EXPECT_NEAR(free(shared), 0, 0.01);
  EXPECT_EQ(shared[3], 900);
  EXPECT_NEAR(shared[2] - 400, shared[4] - wide[4], 0.01) << "all got the same";
  EXPECT_NEAR(free(widthsAt(width + 9000)), 0, 0.01);
  const auto narrow = widthsAt(width);
  EXPECT_EQ(narrow[2], 400) << "never narrower than dragged";
  EXPECT_EQ(narrow[4], 2000);
  EXPECT_EQ(widthsAt(width + 12015), shared);
}

TEST_F(SearchTest, Export_Cancelled_OfNoRowsOrOfMany_WritesNothingTheHeadOrRowByRow) {
  outside.desktop.chosen = "/out/list.txt";
  std::map<std::string_view, int> calls;
  outside.fileSystem.beforeCall = [&](std::string_view call) { ++calls[call]; };
  const auto export_to = [&](bool headers, bool confirms) {
    outside.screen.OnModalForm<tools::FormSendToTextFile>([&](tools::FormSendToTextFile& dialog) {
      dialog.txtDelimiter.SetText(";");
      dialog.chkNewLine.SetChecked(true);
      dialog.chkHeader.SetChecked(headers);
      dialog.cmdSave.Click();
      (confirms ? dialog.cmdOk : dialog.cmdCancel).Click();
    });
    form.cmdSentToText.Click();
    return std::exchange(outside.fileSystem.files, {})["/out/list.txt"];
  };
  Finds({});
  Search();
  export_to(true, false);
  EXPECT_FALSE(calls.contains("CreateTextFile")) << "cancelled";
  EXPECT_THAT(Said(), IsEmpty());
  for (int col = 2; col < 12; ++col) form.flxSearch.SetColWidth(col, 0);
  EXPECT_EQ(export_to(false, true), "");
  EXPECT_EQ(export_to(true, true), "شماره رايانه اي;\r\n");
  Finds(std::vector(100, std::array<std::string, 3>{"5", "p", "n"}));
  Search();
  calls.clear();
  export_to(false, true);
  EXPECT_EQ(calls["Write"], 200) << "a row and its end: the whole is never in memory";
}

}  // namespace
}  // namespace search
