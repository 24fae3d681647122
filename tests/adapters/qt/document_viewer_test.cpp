#include "adapters/qt/DocumentViewer.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <array>
#include <utility>

#include "adapters/qt/DocumentWindow.h"
#include "adapters/qt/QtFixture.h"

namespace adapters::qt {
namespace {

using platform::AutomationValue;
using testing::HasSubstr;

/// The office has a document more, its eighth.
class DocumentViewerTest : public QtOfficeTest {
 protected:
  void SetUp() override {
    const auto office = Create(connectionString);
    for (const char* statement :
         {"insert into tblAccount (Code, Name) values ('7190','هزينه'), ('3291','طلب')",
          "insert into tblAccountDocument (Code, DocumentDate, FarsiDocumentDate, Description) "
          "values (70407, '20250505', '1404/02/15', 'برنامه 12')",
          "insert into tblAccountDocumentDetail (DocumentID, RowNumber, AccountID, Description, "
          "Debit, Credit) values (8, 1, 6, 'بدهي', 45000000, 0), (8, 2, 7, 'الف', 0, 9000000), "
          "(8, 3, 7, 'ب', 0, 36000000)"}) {
      office->Execute(statement);
    }
  }
  void View(std::int32_t documentId) {
    DocumentViewer viewer(*this);
    viewer.Put("OLEConnectionString", connectionString);
    const std::array<AutomationValue, 1> arguments{documentId};
    viewer.Call("View", arguments);
  }
};

TEST_F(DocumentViewerTest, View_document_showsHeadLinesAndSums) {
  OnModalWindow([](QWidget& window) {
    const auto field = [&](const char* name) { return window.findChild<QLineEdit*>(name)->text(); };
    EXPECT_EQ(window.windowTitle(), "سند حسابداري 70407");
    EXPECT_EQ(field("code") + field("date") + field("description"), "704071404/02/15برنامه 12");
    const auto& table = *window.findChild<QTableWidget*>();
    ASSERT_EQ(table.rowCount(), 3);
    QStringList texts;
    for (int column = 0; column < table.columnCount(); ++column) {
      texts += table.item(1, column)->text();
    }
    EXPECT_EQ(texts.join("|"), "2|3291|طلب||الف||9,000,000");
    // Right to left: the row number is the column at the right.
    EXPECT_GT(table.visualItemRect(table.item(0, 0)).left(),
              table.visualItemRect(table.item(0, AccountingDocument::kCredit)).right());
    EXPECT_EQ(window.findChild<QLabel*>("debit")->text(), "جمع بدهكار: 45,000,000");
    EXPECT_EQ(window.findChild<QLabel*>("credit")->text(), "جمع بستانكار: 45,000,000");
    window.findChild<QPushButton*>()->click();
  });
  View(8);
}

TEST_F(DocumentViewerTest, View_nothingToShow_saysSoAndDoesNotThrow) {
  for (const std::int32_t id : {-1, 999}) {
    const auto shown = AnswerDialog();
    View(id);
    EXPECT_THAT(*shown, HasSubstr("سند حسابداري براي اين فرم ثبت نشده")) << id;
  }
  connectionString += ".missing";
  const auto shown = AnswerDialog();
  View(8);
  EXPECT_THAT(*shown, HasSubstr("4060"));
}

TEST_F(DocumentViewerTest, Members_unknownOrOfTheWrongKind_throwTheAutomationErrors) {
  DocumentViewer viewer(*this);
  const std::array<AutomationValue, 1> noNumber{std::string("seven")};
  EXPECT_EQ(NumberOf([&] { viewer.Put("EmployeeID", std::int32_t{1}); }), 438);
  EXPECT_EQ(NumberOf([&] { viewer.Call("ClearShow", noNumber); }), 438);
  EXPECT_EQ(NumberOf([&] { viewer.Call("View", {}); }), 450);
  EXPECT_EQ(NumberOf([&] { viewer.Call("View", noNumber); }), 13);
}

TEST(GroupedAmountTest, AnyText_isGroupedOnlyWhereItIsANumber) {
  const std::pair<const char*, const char*> kCases[] = {
      {"1000", "1,000"},
      {"-1234567", "-1,234,567"},
      {"450000.0000", "450,000"},
      {"1234.5000", "1,234.5"},
      {"", "0"},
      {"12a", "12a"},
      {"99999999999999999999", "99,999,999,999,999,999,999"}};
  for (const auto& [amount, grouped] : kCases) EXPECT_EQ(GroupedAmount(amount), grouped);
}

}  // namespace
}  // namespace adapters::qt
