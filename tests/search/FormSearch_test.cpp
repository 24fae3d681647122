#include "SearchHarness.h"

namespace search {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

const std::string kFields =
    "ID as 'شماره رايانه اي' "
    ", (Select x.Name from vwSalePromoterMajor x where x.ID=PromoterID) as 'بازارياب' "
    ", FarsiVisitDate as 'تاريخ ويزيت' "
    ", (Select x.Code from tblOrganization x where x.ID=CustomerID) as 'كد مشتري' "
    ", (Select ltrim(rtrim(isnull(x.FirstName,'')+' '+isnull(x.Name,''))) from tblOrganization x "
    "where x.ID=CustomerID) as 'نام مشتري' "
    ", (Select r.Description from tblDistributionRegion r inner join tblDistributionPath p on "
    "p.RegionID=r.ID where p.ID in (Select do.PathID from tblDistributionOrganization do where "
    "do.OrganizationID=CustomerID)) as 'منطقه' "
    ", (Select p.Name from tblDistributionPath p where p.ID in (Select do.PathID from "
    "tblDistributionOrganization do where do.OrganizationID=CustomerID)) as 'مسير' "
    ", p.Notes as 'شرح' "
    ", FarsiCreateDate as 'تاريخ ايجاد' "
    ", (Select x.Name from vwEmployeeMajor x Where x.ID=SupervisorID) as 'مدير برنامه' "
    ", (Select x.Name from vwAccountBranchMajor x where x.ID=BranchID) as 'شعبه' ";

const std::vector<std::string> kHeaders = {
    "رديف",     "شماره رايانه اي", "بازارياب",    "تاريخ ويزيت",
    "كد مشتري", "نام مشتري",       "منطقه",       "مسير",
    "شرح",      "تاريخ ايجاد",     "مدير برنامه", "شعبه"};

std::string StatementOf(const std::string& limit, const std::string& condition) {
  return "Select " + limit + kFields +
         " from tblDistributionPromoterProgram p left outer join "
         "tblDistributionPromoterProgramDetail pd on p.ID=pd.ProgramID   Where " +
         condition + " order by pd.VisitDate, 2, 4";
}

TEST_F(SearchTest, Load_GivesTheSelectorsTheirViewsAndAnEmptyGrid) {
  const struct {
    controls::Selector& selector;
    std::string major;
    std::string minor;
  } cases[] = {
      {form.sltCreator, "vwUserMajor", "vwUserMinor"},
      {form.sltProgram, "vwDistributionPromoterProgramMajor", "vwDistributionPromoterProgramMinor"},
      {form.sltSupervisor, "vwSaleSupervisorMajor", "vwSaleSupervisorMinor"},
      {form.sltPromoter, "vwSalePromoterMajor", "vwSalePromoterMinor"},
      {form.sltCustomer, "vwOrganizationMajor", "vwOrganizationMinor"},
      {form.sltBranch, "vwAccountBranchMajor", "vwAccountBranchMinor"},
  };
  outside.database.SetDefaultColumns({"ID", "Name"});
  for (const auto& c : cases) {
    outside.database.ForgetCalls();
    c.selector.LoadList();
    c.selector.Select(9);
    c.selector.DisplayText();
    EXPECT_THAT(outside.database.Log(),
                ElementsAre(testing::HasSubstr(" " + c.major), testing::HasSubstr(" " + c.minor)));
  }
  const controls::Twips widths[] = {800,  800,  2000, 1200, 2000, 2000,
                                    2000, 2000, 2000, 1200, 2000, 2000};
  for (int col = 0; col < 12; ++col) {
    EXPECT_EQ(form.flxSearch.ColWidth(col), widths[col]) << col;
    EXPECT_EQ(form.flxSearch.ColAlignment(col), controls::FlexGrid::Alignment::kCentreCentre);
  }
}

TEST_F(SearchTest, Condition_OfEachFilterAlone_AsksNoQuestion) {
  const struct {
    std::function<void()> fill;
    std::string condition;
  } cases[] = {
      {[this] { form.txtID.SetText("12"); }, " and ID = 12"},
      {[this] { form.txtID.SetText("1404/05"); }, " and ID = 140405"},
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
      {[this] { form.sltPromoter.Select(7); }, " and PromoterID = 7"},  // last: it stays
  };
  for (const auto& c : cases) {
    form.cmdNewsearch.Click();
    c.fill();
    form.cmdSearch.Click();
    EXPECT_EQ(outside.database.Log().back(), StatementOf("", "1=1" + c.condition));
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
  EXPECT_THAT(outside.database.Log(),
              ElementsAre(StatementOf(" TOP 1000 ", "1=1"), StatementOf(" TOP 1000 ", "1=1")));
}

TEST_F(SearchTest, Search_Found_NumbersHeadsAndColoursTheRows) {
  Finds({{"5", "p", "n"}, {"5", "q", "n"}, {"6", "r", ""}});
  form.sltPromoter.Select(7);
  int drawn = 0;
  const auto subscription = form.flxSearch.Subscribe([&drawn](const controls::Change& change) {
    if (change.aspect == controls::Aspect::kRows) ++drawn;
  });
  form.cmdSearch.Click();
  EXPECT_EQ(drawn, 1) << "drawn once, when all is done";
  EXPECT_THAT(Row(0), ElementsAreArray(kHeaders));
  EXPECT_THAT(Row(2), ElementsAre("2", "5", "q", "1404/02/01", "C1", "مشتري", "منطقه 1", "مسير 1",
                                  "n", "1404/01/12", "", "شعبه"));
  EXPECT_EQ(form.flxSearch.FixedRows(), 1);
  EXPECT_EQ(form.flxSearch.FixedCols(), 1);
  EXPECT_EQ(outside.screen.pointer, controls::MousePointer::kDefault);
  const controls::Colour colours[] = {15464446, 13561085, 15464446};
  for (int row = 1; row < 4; ++row) {
    for (int col = 1; col < 12; ++col) {
      form.flxSearch.SetRow(row);
      form.flxSearch.SetCol(col);
      EXPECT_EQ(form.flxSearch.CellBackColor(), colours[row - 1]) << "set, not only shown";
    }
  }
}

TEST_F(SearchTest, Search_FindingNothing_LeavesTheHeaderRowAndCanGoOn) {
  Finds({{"5", "p", "n"}});
  Search();
  Finds({});
  Search();
  EXPECT_EQ(form.flxSearch.Rows(), 1);
  EXPECT_THAT(Row(0), ElementsAreArray(kHeaders));
  EXPECT_TRUE(form.flxSearch.Redraw());
  form.cmdNewsearch.Click();
  EXPECT_EQ(form.flxSearch.Rows(), 2);
  EXPECT_EQ(form.flxSearch.FixedRows(), 1);
}

TEST_F(SearchTest, Search_RefusedByTheServer_TravelsOutWithDrawingAndPointerRestored) {
  outside.database.When(Beginning("Select ID as")).Fails(platform::RuntimeError(105, "quote"));
  EXPECT_THROW(Search(), platform::RuntimeError);
  EXPECT_TRUE(form.flxSearch.Redraw());
  EXPECT_EQ(outside.screen.pointer, controls::MousePointer::kDefault);
}

TEST_F(SearchTest, NewSearch_KeepsThePromoterAlone) {
  const std::vector<controls::Selector*> selectors = {&form.sltBranch,   &form.sltCreator,
                                                      &form.sltProgram,  &form.sltSupervisor,
                                                      &form.sltCustomer, &form.sltPromoter};
  for (controls::Selector* selector : selectors) selector->Select(7);
  form.cmdNewsearch.Click();
  for (const controls::Selector* selector : selectors) {
    EXPECT_EQ(selector->HasSelection(), selector == &form.sltPromoter) << selector->Name();
  }
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
  form.Resize(form.Width() - 9000, form.Height() - 600);
  EXPECT_EQ(form.flxSearch.ColWidth(2), 2000) << "never narrower than designed";
}

}  // namespace
}  // namespace search
