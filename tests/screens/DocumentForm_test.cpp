#include "screens/DocumentForm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "screens/DocumentComponent.h"
#include "screens/MessageForm.h"
#include "support/ErrorNumber.h"
#include "support/FakeScreen.h"
#include "support/ScriptedDatabase.h"

namespace screens {
namespace {

using platform::AutomationValue;
using support::NumberOf;
using testing::HasSubstr;

class DocumentFormTest : public testing::Test {
 protected:
  DocumentFormTest() { guard.SetScreen(&screen); }
  void View(std::int32_t documentId) {
    DocumentComponent viewer(guard, screen, database);
    viewer.Put("UserID", std::int32_t{1});
    viewer.Put("OLEConnectionString", std::string("server=office"));
    const std::array<AutomationValue, 1> arguments{documentId};
    viewer.Call("View", arguments);
  }
  support::Events events;
  support::FakeScreen screen{events};
  support::ScriptedDatabase database{events};
  ErrorGuard guard{{.note = [](const std::string&) {}, .lastResort = [](const ErrorTexts&) {}}};
};

TEST_F(DocumentFormTest, View_Document_ShowsHeadLinesAndSums) {
  database
      .When(support::Exact("Select Code, FarsiDocumentDate, Description from tblAccountDocument "
                           "Where ID=8"))
      .Gives(support::RowSetOf({"Code", "FarsiDocumentDate", "Description"},
                               {{"70407", "1404/02/15", "برنامه 12"}}));
  database
      .When(support::Exact(
          "Select d.RowNumber, a.Code, a.Name, b.Name as Branch, d.Description, d.Debit, d.Credit"
          " from tblAccountDocumentDetail d"
          " inner join tblAccount a on a.ID=d.AccountID"
          " left outer join tblAccountBranch b on b.ID=d.BranchID"
          " Where d.DocumentID=8 order by d.RowNumber"))
      .Gives(support::RowSetOf(
          {"RowNumber", "Code", "Name", "Branch", "Description", "Debit", "Credit"},
          {{"1", "7190", "هزينه", "تهران", "بدهي", "45000000.00", "0.00"},
           {"2", "3291", "طلب", std::nullopt, "الف", "0", "9000000"}}));
  database
      .When(support::Exact("Select Sum(Debit) as Debit, Sum(Credit) as Credit from "
                           "tblAccountDocumentDetail Where DocumentID=8"))
      .Gives(support::RowSetOf({"Debit", "Credit"}, {{"45000000.00", std::nullopt}}));
  screen.OnModalForm<DocumentForm>([&](DocumentForm& form) {
    EXPECT_EQ(form.Caption(), "سند حسابداري 70407");
    EXPECT_EQ(form.txtCode.Text() + form.txtDate.Text() + form.txtDescription.Text(),
              "704071404/02/15برنامه 12");
    EXPECT_TRUE(form.txtCode.Locked() && form.txtDate.Locked() && form.txtDescription.Locked());
    controls::FlexGrid& grid = form.flxLines;
    ASSERT_EQ(grid.Rows(), 3);
    ASSERT_EQ(grid.FixedRows(), 1);
    grid.SetRow(0);
    grid.SetCol(0);
    grid.SetRowSel(2);
    grid.SetColSel(AccountingDocument::kCredit);
    EXPECT_EQ(grid.BlockText(),
              "رديف\tكد حساب\tنام حساب\tشعبه\tشرح\tبدهكار\tبستانكار\r\n"
              "1\t7190\tهزينه\tتهران\tبدهي\t45,000,000\t\r\n"
              "2\t3291\tطلب\t\tالف\t\t9,000,000");
    EXPECT_EQ(form.lblDebit.Caption(), "جمع بدهكار: 45,000,000");
    EXPECT_EQ(form.lblCredit.Caption(), "جمع بستانكار: 0");
    // An amount needs ten letters and the cell's edges, a short text the least width.
    EXPECT_DOUBLE_EQ(grid.ColWidth(AccountingDocument::kDebit), 10 * 90 + 16 * 15);
    EXPECT_DOUBLE_EQ(grid.ColWidth(AccountingDocument::kRow), 48 * 15);
    EXPECT_EQ(grid.StretchCol(), AccountingDocument::kDescription);
    EXPECT_EQ(form.FirstFocus(), &form.cmdClose);
    form.PressEscape();
    EXPECT_FALSE(form.Visible());
  });
  View(8);
}

TEST_F(DocumentFormTest, View_NothingToShow_SaysSoAndDoesNotThrow) {
  for (const std::int32_t id : {-1, 999}) {
    screen.OnModalForm<MessageForm>([](MessageForm& form) {
      EXPECT_EQ(form.Caption(), "سند حسابداري");
      EXPECT_THAT(form.lblMessage.Caption(), HasSubstr("سند حسابداري براي اين فرم ثبت نشده"));
    });
    View(id);
  }
  database.When(support::Holding("tblAccountDocument")).Fails({4060, "No such database"});
  screen.OnModalForm<MessageForm>(
      [](MessageForm& form) { EXPECT_THAT(form.lblTechnical.Caption(), HasSubstr("4060")); });
  View(8);
}

TEST_F(DocumentFormTest, Members_UnknownOrOfTheWrongKind_ThrowTheAutomationErrors) {
  DocumentComponent viewer(guard, screen, database);
  const std::array<AutomationValue, 1> noNumber{std::string("seven")};
  EXPECT_EQ(NumberOf([&] { viewer.Put("EmployeeID", std::int32_t{1}); }), 438);
  EXPECT_EQ(NumberOf([&] { viewer.Get("UserID"); }), 438);
  EXPECT_EQ(NumberOf([&] { viewer.Call("ClearShow", noNumber); }), 438);
  EXPECT_EQ(NumberOf([&] { viewer.Call("View", {}); }), 450);
  EXPECT_EQ(NumberOf([&] { viewer.Call("View", noNumber); }), 13);
}

TEST(GroupedAmountTest, AnyText_IsGroupedOnlyWhereItIsANumber) {
  const std::pair<const char*, const char*> kCases[] = {
      {"1000", "1,000"},
      {"999", "999"},
      {"-1234567", "-1,234,567"},
      {"-123456", "-123,456"},
      {"450000.0000", "450,000"},
      {"1234.5000", "1,234.5"},
      {"12.", "12"},
      {"", "0"},
      {"-", "-"},
      {".5", ".5"},
      {"1.2.3", "1.2.3"},
      {"12a", "12a"},
      {"99999999999999999999", "99,999,999,999,999,999,999"}};
  for (const auto& [amount, grouped] : kCases) EXPECT_EQ(GroupedAmount(amount), grouped);
}

}  // namespace
}  // namespace screens
