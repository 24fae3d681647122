#include "batch/FormAddBatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ScriptedPlatform.h"

namespace {

using batch::FormAddBatch;
using support::Answer;
using support::Holding;
using support::Message;
using support::RowSetOf;
using testing::ElementsAre;
using testing::EndsWith;

const std::string kRegions = "Select distinct r.Description";
const std::string kPaths = "Select distinct p.Name";
const std::string kCustomers = "Select ID, Code ";

/// The batch form over a scripted office: promoter 7 works in regions 1 and 2, on paths 11 and 12.
class FormAddBatchTest : public testing::Test {
 protected:
  FormAddBatchTest() {
    outside.desktop.today = std::chrono::year{2025} / 4 / 20;  // 1404/01/31
    outside.database.When(Holding(kRegions, " where EmployeeID=7"))
        .Gives(RowSetOf({"RegionName", "ID"}, {{"شمال", "1"}, {"جنوب", "2"}}));
    outside.database.When(Holding(kPaths, " where EmployeeID=7 and p.RegionID in (1"))
        .Gives(RowSetOf({"PathName", "ID"}, {{"الف (شمال)", "11"}, {"ب (جنوب)", "12"}}));
    outside.database.When(Holding(kCustomers))
        .Gives(RowSetOf({"ID", "Code", "Name", "Address", "CellPhone", "Phone1", "Phone2",
                         "Address", "PathName", "RegionName", "WorkActivityName"},
                        {Customer("5"), Customer("9")}));
    module.SetContext(
        {.userId = 1, .positionId = 2, .employeeId = 3, .connectionString = "office"});
  }

  static std::vector<support::Cell> Customer(const std::string& id) {
    return {id,           "C" + id, "نام " + id, "آدرس",  std::nullopt, "021",
            std::nullopt, "آدرس",   "مسير",      "منطقه", std::nullopt};
  }
  /// Calls getProgramDetail with members of this fixture while the user does `action`.
  bool Ask(std::function<void(FormAddBatch&)> action) {
    outside.screen.OnModalForm<FormAddBatch>(std::move(action));
    return form.getProgramDetail(programId, promoterId, dates, customerIds, notes, viewMode,
                                 supervisor);
  }
  static void Press(tools::comFlex& list, int row) {
    list.Flex.MouseDown(row, list.Flex.FixedCols(), 1, 0);
    list.Flex.Click();
  }
  static std::vector<std::string> Column(const tools::comFlex& list, int col) {
    std::vector<std::string> texts;
    for (int row = 0; row < list.Flex.Rows(); ++row) {
      texts.emplace_back(list.Flex.TextMatrix(row, col));
    }
    return texts;
  }
  static void PickEverything(FormAddBatch& f) {
    f.sltPromoter.Select(7);
    Press(f.flxRegion, 1);
    Press(f.flxPath, 1);
    f.cmdSearch.Click();
    f.flxCustomer.cmdSelectAll.Click();
    Press(f.flxDate, 1);
  }

  support::ScriptedPlatform outside;
  host::modMain module{outside.Services()};
  FormAddBatch form{module};
  std::int32_t programId = 40;
  std::int32_t promoterId = 0;
  std::string dates;
  std::string customerIds;
  std::string notes;
  bool viewMode = false;
  std::int32_t supervisor = 3;
};

TEST_F(FormAddBatchTest, Load_EndsTheRangeWithTheMonthAndListsEveryDay) {
  form.Load();
  EXPECT_THAT(Column(form.flxDate, 0), ElementsAre("روز", "1404/01/31"));
  form.datDateFrom.SetText("1404/01/30");
  form.datDateTo.SetText("1404/02/02");
  EXPECT_THAT(Column(form.flxDate, 0),
              ElementsAre("روز", "1404/01/30", "1404/01/31", "1404/02/01", "1404/02/02"));
  EXPECT_THAT(Column(form.flxDate, 2),
              ElementsAre("ماه", "فروردين", "فروردين", "ارديبهشت", "ارديبهشت"));
  EXPECT_EQ(form.flxDate.Flex.TextMatrix(1, 1), calendar::WeekdayName(0));  // a Saturday
  form.datDateFrom.SetText("1404/02/05");  // inverted, then empty: the days stay
  form.datDateTo.Clear();
  EXPECT_EQ(form.flxDate.Flex.Rows(), 5);
  form.datDateTo.SetText("1404/02/05");
  EXPECT_THAT(Column(form.flxDate, 0), ElementsAre("روز", "1404/02/05"));
  form.datDateFrom.SetText("9377/12/28");  // beyond the range, then up to the calendar's end
  form.datDateTo.SetText("9377/12/29");
  EXPECT_THAT(Column(form.flxDate, 0), ElementsAre("روز", "9377/12/28", "9377/12/29"));
}

TEST_F(FormAddBatchTest, Weekday_TurnsAllItsDaysAndTheCountGoesAlong) {
  form.Load();
  EXPECT_EQ(form.lblCount.Caption(), "0 روز × 0 مشتري = 0 ويزيت");
  form.datDateFrom.SetText("1404/02/01");
  form.datDateTo.SetText("1404/02/31");
  PickEverything(form);  // 1404/02/01 is a Monday
  EXPECT_EQ(form.lblCount.Caption(), "1 روز × 2 مشتري = 2 ويزيت");
  std::vector<int> raised;
  form.flxDate.Selected = [&](std::int32_t row) { raised.push_back(row); };
  form.flxDate.UnSelected = [&](std::int32_t row) { raised.push_back(-row); };
  controls::Button& monday = form.cmdWeekday[2];
  monday.Click();  // one of them is marked already
  EXPECT_THAT(raised, ElementsAre(8, 15, 22, 29));
  EXPECT_EQ(form.lblCount.Caption(), "5 روز × 2 مشتري = 10 ويزيت");
  Press(form.flxCustomer, 1);
  form.cmdWeekday[6].Click();
  EXPECT_EQ(form.lblCount.Caption(), "9 روز × 1 مشتري = 9 ويزيت");
  raised.clear();
  monday.Click();
  EXPECT_THAT(raised, ElementsAre(-1, -8, -15, -22, -29));
  EXPECT_EQ(form.lblCount.Caption(), "4 روز × 1 مشتري = 4 ويزيت");
  EXPECT_EQ(form.flxDate.Flex.rowTextColour(5), controls::palette::kHoliday);
  EXPECT_EQ(form.flxDate.Flex.rowTextColour(6), 0U);
  form.cmdNewsearch.Click();
  EXPECT_EQ(form.lblCount.Caption(), "4 روز × 0 مشتري = 0 ويزيت");
}

TEST_F(FormAddBatchTest, Commit_ReturnsPickedDaysCustomersAndNotes) {
  outside.components.WillAnswer({Answer::kNo, Answer::kYes});
  const bool committed = Ask([](FormAddBatch& f) {
    PickEverything(f);
    f.datDateFrom.SetText("1404/02/01");
    f.datDateTo.SetText("1404/02/03");
    Press(f.flxDate, 3);
    Press(f.flxDate, 1);
    f.txtNotes.SetText("  a'b  ");
    f.cmdAdd.Click();
    EXPECT_TRUE(f.Visible()) << "the answer was no";
    f.cmdAdd.Click();
  });
  EXPECT_TRUE(committed);
  EXPECT_EQ(promoterId, 7);
  EXPECT_EQ(dates, "14040201,14040203");
  EXPECT_EQ(customerIds, "5,9");
  EXPECT_EQ(notes, "a''b");
  EXPECT_THAT(outside.components.messages,
              testing::Each(Message{
                  "اطلاع", "اگر برنامه اي تکراري باشد، بازنويسي نخواهد شد. آيا ادامه ميدهيد؟", 1}));
  outside.database.SetDefaultColumns({"ID", "Name"});
  form.sltPromoter.LoadList();
  EXPECT_THAT(outside.database.Log().back(),
              EndsWith(" where ID in (select x.PromoterID from tblSaleSupervisorPromoter "
                       "x where x.SupervisorID=3)"));
}

TEST_F(FormAddBatchTest, Commit_NamesOnlyTheFirstThingMissing) {
  outside.components.WillAnswer({Answer::kNo, Answer::kYes});
  const bool committed = Ask([](FormAddBatch& f) {
    f.cmdAdd.Click();
    f.sltPromoter.Select(7);
    f.cmdAdd.Click();
    Press(f.flxDate, 1);
    f.cmdAdd.Click();
    PickEverything(f);
    Press(f.flxDate, 1);  // PickEverything took the day's mark away
    f.cmdNewsearch.Click();
    f.cmdAdd.Click();
    f.cmdCancel.Click();
    EXPECT_TRUE(f.Visible()) << "the answer was no";
    f.CloseBox();
    EXPECT_FALSE(f.Visible());
  });
  EXPECT_FALSE(committed);
  const Message leave{"پرسش", "آيا براي انصراف مطمئن هستيد؟", 1};
  const Message nobody{"اشکال", "مشتري انتخاب نشده است!", 0};
  EXPECT_THAT(
      outside.components.messages,
      ElementsAre(Message{"اشکال", "بازارياب مشخص نشده است!", 0},
                  Message{"اشکال", "روز انتخاب نشده است!", 0}, nobody, nobody, leave, leave));
  EXPECT_THAT(outside.screen.log, testing::IsSupersetOf({"focus sltPromoter", "focus Flex"}));
}

TEST_F(FormAddBatchTest, Promoter_ChangedEmptiesWhatDependsOnIt) {
  form.Load();
  PickEverything(form);
  ASSERT_EQ(form.flxCustomer.Flex.Rows(), 3);
  form.sltPromoter.Select(8);
  EXPECT_THAT(Column(form.flxRegion, 0), ElementsAre("عنوان منطقه"));
  EXPECT_EQ(form.flxPath.Flex.Rows(), 1);
  EXPECT_EQ(form.flxCustomer.Flex.Rows(), 1);

  outside.database.FailAtCall(1, platform::RuntimeError(11, "lost"));
  EXPECT_THROW(form.sltPromoter.Select(7), platform::RuntimeError);
  EXPECT_EQ(form.flxRegion.Flex.Rows(), 1) << "none of promoter 8's";
  outside.database.ForgetCalls();
  for (int again = 0; again < 2; ++again) form.sltPromoter.Select(7);
  EXPECT_EQ(outside.database.Log().size(), 1U) << "read again, once";
  EXPECT_THAT(Column(form.flxRegion, 0), ElementsAre("عنوان منطقه", "شمال", "جنوب"));
}

TEST_F(FormAddBatchTest, RegionPicks_AskForThePathsOfExactlyThose) {
  form.Load();
  form.sltPromoter.Select(7);
  outside.database.ForgetCalls();
  for (const int row : {1, 2, 1, 2}) Press(form.flxRegion, row);
  EXPECT_THAT(outside.database.Log(),
              ElementsAre(EndsWith(" in (1)"), EndsWith(" in (1,2)"), EndsWith(" in (2)"),
                          EndsWith(" where EmployeeID=7 and p.RegionID in (-1)")));
  EXPECT_THAT(Column(form.flxPath, 0), ElementsAre("عنوان مسير"));
}

TEST_F(FormAddBatchTest, Search_ByEveryFilter_PutsEachIntoItsPlace) {
  form.Load();
  form.sltPromoter.Select(7);
  Press(form.flxRegion, 1);
  form.cmdSearch.Click();
  EXPECT_THAT(outside.components.messages,
              ElementsAre(Message{"اشکال", "مسيري انتخاب نشده است!", 0}));

  form.flxPath.cmdSelectAll.Click();
  outside.database.ForgetCalls();
  form.cmdSearch.Click();
  form.txtCodeFrom.SetText(" ۱٠0 ");
  form.txtCodeTo.SetText("۲00");
  form.sltBranch.Select(4);
  form.txtName.SetText(" o'k ");
  form.sltCustomer.Select(5);
  form.sltWorkActivity.Select(6);
  form.cmdSearch.Click();
  const std::string onPaths = " where  do.PathID in (11,12)  and 1=1";
  EXPECT_THAT(
      outside.database.Log(),
      ElementsAre(
          EndsWith(onPaths),
          EndsWith(onPaths + " and  Code >= '100' and  Code <= '200' and  do.BranchID = 4 and  "
                             "ltrim(rtrim(isnull(FirstName,'')+' '+isnull(Name,''))) like "
                             "'%o'k%' and  ID = 5 and  WorkActivityID = 6")));
  EXPECT_THAT(Column(form.flxCustomer, 0), ElementsAre("رديف", "1", "2"));
  EXPECT_THAT(Column(form.flxCustomer, 10), ElementsAre("", "5", "9"));
}

TEST_F(FormAddBatchTest, Group_OpensOnItsDayAndCustomersWithNothingMarked) {
  promoterId = 7;
  dates = "1404/02/05";
  notes = "يادداشت";
  outside.database.When(Holding("fnZomirStringToTable('14040205')"))
      .Gives(RowSetOf({"ID"}, {{"14040205"}}));
  outside.database
      .When(Holding("pd.ProgramID=40 and FarsiVisitDate='1404/02/05' and pd.PromoterID=7"))
      .Gives(RowSetOf({"CustomerID"}, {{"9"}, {"5"}}));
  EXPECT_FALSE(Ask([](FormAddBatch& f) {
    EXPECT_THAT(Column(f.flxDate, 0), ElementsAre("روز", "1404/02/05"));
    EXPECT_EQ(f.flxCustomer.Flex.Rows(), 3);
    EXPECT_FALSE(f.flxCustomer.IsSelected(1));
    EXPECT_EQ(f.txtNotes.Text(), "يادداشت");
  }));
  EXPECT_THAT(outside.database.Log().back(), EndsWith(" where ID in (9,5)"));
  EXPECT_EQ(dates, "14040205") << "the slashes go even when nothing is committed";
}

TEST_F(FormAddBatchTest, ViewMode_CanOnlyBeCancelled_AndTheFormKeepsItsContents) {
  viewMode = true;
  EXPECT_FALSE(Ask([](FormAddBatch& f) {
    for (const auto* off : {&f.cmdAdd, &f.cmdSearch, &f.cmdNewsearch}) EXPECT_FALSE(off->Enabled());
    EXPECT_TRUE(f.cmdCancel.Enabled());
    f.sltPromoter.Select(7);
    Press(f.flxRegion, 1);
  }));
  viewMode = false;
  EXPECT_FALSE(Ask([](FormAddBatch& f) {
    EXPECT_TRUE(f.cmdAdd.Enabled());
    EXPECT_TRUE(f.flxRegion.IsSelected(1));
  }));
  EXPECT_THAT(outside.desktop.loaded, ElementsAre("00000429")) << "loaded once";
}

TEST_F(FormAddBatchTest, Resize_BelowTheLimit_MovesNothing) {
  const double top = form.cmdAdd.Top();
  form.Resize(1999, 9000);
  form.Resize(15600, 1999);
  EXPECT_EQ(form.cmdAdd.Top(), top);
  form.Resize(2000, 9000);
  EXPECT_EQ(form.cmdAdd.Top(), top - 600);
}

}  // namespace
