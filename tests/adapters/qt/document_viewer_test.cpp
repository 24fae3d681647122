#include "adapters/qt/DocumentViewer.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <array>
#include <utility>

#include "adapters/qt/Components.h"
#include "adapters/qt/Convert.h"
#include "adapters/qt/DocumentWindow.h"
#include "adapters/qt/QtFixture.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"

namespace adapters::qt {
namespace {

using platform::AutomationValue;
using testing::ElementsAre;
using testing::HasSubstr;

/// Documents 7 and 8 of an office; 8 has no lines.
class Office : public platform::ConnectionFactory {
 public:
  std::vector<std::string> opened;
  std::vector<std::string> statements;
  /// The statement that names this table first fails.
  std::string failing;
  int lineCount = 3;

  std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override {
    opened.push_back(connectionString);
    return std::make_unique<Connection>(*this);
  }

 private:
  class Connection : public platform::Connection {
   public:
    explicit Connection(Office& office) : office_(office) {}
    platform::RowSet Execute(std::string_view statement) override {
      return office_.Answer(std::string(statement));
    }
    std::int32_t CallProcedure(std::string_view, std::span<const platform::Parameter>) override {
      ADD_FAILURE() << "the viewer calls no procedure";
      return 0;
    }

   private:
    Office& office_;
  };

  static void Append(platform::RowSet& rows, const std::vector<const char*>& cells) {
    for (const char* cell : cells) cell ? rows.Append(cell) : rows.AppendNull();
  }

  platform::RowSet Answer(const std::string& statement) {
    statements.push_back(statement);
    if (!failing.empty() && statement.find("from " + failing) != std::string::npos) {
      throw platform::RuntimeError(-2147217865, "Invalid object name '" + failing + "'.", "server");
    }
    const bool lines = statement.find("=7") != std::string::npos;
    if (statement.starts_with("Select Code")) {
      platform::RowSet rows({"Code", "FarsiDocumentDate", "Description"});
      if (lines) Append(rows, {"1407", "1404/02/15", "حق ويزيت برنامه بازارياب 12"});
      if (statement.ends_with("=8")) Append(rows, {"1408", "1404/02/16", nullptr});
      return rows;
    }
    if (statement.starts_with("Select Sum")) {
      platform::RowSet rows({"Debit", "Credit"});
      lines ? Append(rows, {"54000000.0000", "54000000.5"}) : Append(rows, {nullptr, nullptr});
      return rows;
    }
    platform::RowSet rows(
        {"RowNumber", "Code", "Name", "Branch", "Description", "Debit", "Credit"});
    for (int row = 1; lines && row <= lineCount; ++row) {
      const std::string number = std::to_string(row);
      const bool debit = row % 2 != 0;
      Append(rows, {number.c_str(), debit ? "7101" : "3204",
                    debit ? "هزينه ويزيت بازاريابان" : "حساب پرداختني بازاريابان",
                    row == 1 ? nullptr : "شعبه مشهد", "حق ويزيت برنامه بازارياب 12",
                    debit ? "45000000" : "0", debit ? "0" : "45000000"});
    }
    return rows;
  }
};

class DocumentViewerTest : public QtTest {
 protected:
  std::unique_ptr<platform::AutomationObject> Viewer() {
    auto viewer = Components(office).Create("comVoucherView.comVoucherView1");
    viewer->Put("UserID", std::int32_t{1});
    viewer->Put("PositionID", std::int32_t{-1});
    viewer->Put("OLEConnectionString", std::string("sqlite:office.db"));
    return viewer;
  }

  void View(std::int32_t documentId) {
    const std::array<AutomationValue, 1> arguments{documentId};
    Viewer()->Call("View", arguments);
  }

  Office office;
};

TEST_F(DocumentViewerTest, View_document_showsHeadLinesAndSums) {
  ShowForm();
  QApplication::setOverrideCursor(Qt::WaitCursor);
  OnModalWindow([](QWidget& window) {
    const auto field = [&](const char* name) { return window.findChild<QLineEdit*>(name)->text(); };
    EXPECT_EQ(window.windowTitle(), "سند حسابداري 1407");
    EXPECT_EQ(field("code"), "1407");
    EXPECT_EQ(field("date"), "1404/02/15");
    EXPECT_EQ(field("description"), "حق ويزيت برنامه بازارياب 12");
    for (const QLineEdit* each : window.findChildren<QLineEdit*>()) {
      EXPECT_TRUE(each->isReadOnly());
    }
    const auto& table = *window.findChild<QTableWidget*>();
    std::vector<std::string> texts;
    texts.reserve(AccountingDocument::kColumns);
    for (int column = 0; column < table.columnCount(); ++column) {
      texts.push_back(ToUtf8(table.item(1, column)->text()));
    }
    EXPECT_EQ(table.rowCount(), 3);
    EXPECT_THAT(texts, ElementsAre("2", "3204", "حساب پرداختني بازاريابان", "شعبه مشهد",
                                   "حق ويزيت برنامه بازارياب 12", "", "45,000,000"));
    EXPECT_EQ(table.item(0, AccountingDocument::kBranch)->text(), "");
    EXPECT_EQ(table.editTriggers(), QAbstractItemView::NoEditTriggers);
    // Right to left: the row number is the column at the right.
    EXPECT_GT(table.visualItemRect(table.item(0, 0)).left(),
              table.visualItemRect(table.item(0, AccountingDocument::kCredit)).right());
    EXPECT_EQ(window.findChild<QLabel*>("debit")->text(), "جمع بدهكار: 54,000,000");
    EXPECT_EQ(window.findChild<QLabel*>("credit")->text(), "جمع بستانكار: 54,000,000.5");
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    SavePicture(window, "document");
    window.findChild<QPushButton*>()->click();
  });
  View(7);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
  QApplication::restoreOverrideCursor();
  EXPECT_THAT(office.opened, ElementsAre("sqlite:office.db"));
}

TEST_F(DocumentViewerTest, View_sampleOffice_readsItsDocument) {
  class Embedded : public platform::ConnectionFactory {
   public:
    std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override {
      return std::make_unique<adapters::sqlite::SqliteConnection>(connectionString);
    }
  };
  const QTemporaryDir folder;
  const std::string path = ToUtf8(folder.filePath("office.db"));
  demo::SampleOptions options;
  options.customers = 50;
  options.today = clock.Today();
  demo::CreateSampleOffice(path, options);
  Embedded embedded;
  DocumentViewer viewer(embedded);
  viewer.Put("OLEConnectionString", "sqlite:" + path);
  OnModalWindow([](QWidget& window) {
    auto* table = window.findChild<QTableWidget*>();
    ASSERT_NE(table, nullptr);
    ASSERT_EQ(table->rowCount(), 2);
    const QString amount = table->item(0, AccountingDocument::kDebit)->text();
    EXPECT_NE(amount, "");
    EXPECT_EQ(table->item(1, AccountingDocument::kCredit)->text(), amount);
    EXPECT_EQ(window.findChild<QLabel*>("credit")->text(), "جمع بستانكار: " + amount);
    window.close();
  });
  const std::array<AutomationValue, 1> arguments{std::int32_t{1}};
  viewer.Call("View", arguments);
}

TEST_F(DocumentViewerTest, View_manyLines_scrollInAWindowThatFits) {
  office.lineCount = 400;
  ShowForm();
  OnModalWindow([](QWidget& window) {
    EXPECT_LT(window.height(), 700);
    SavePicture(window, "document-long");
    Press(window, Qt::Key_Escape);
  });
  View(7);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(DocumentViewerTest, View_withoutDocument_saysSo) {
  for (const std::int32_t id : {-1, 0, 9}) {
    QString shown;
    AnswerDialog("تأیید", &shown);
    View(id);
    EXPECT_THAT(ToUtf8(shown), HasSubstr("سند حسابداري براي اين فرم ثبت نشده")) << id;
  }
  EXPECT_THAT(office.statements, ElementsAre(testing::EndsWith("Where ID=9")));
}

TEST_F(DocumentViewerTest, View_documentWithoutLines_isShownEmpty) {
  OnModalWindow([](QWidget& window) {
    EXPECT_EQ(window.findChild<QTableWidget*>()->rowCount(), 0);
    EXPECT_EQ(window.findChild<QLabel*>("debit")->text(), "جمع بدهكار: 0");
    window.close();
  });
  View(8);
}

TEST_F(DocumentViewerTest, View_databaseFails_isShownAndDoesNotThrow) {
  for (const char* table : {"tblAccountDocument", "tblAccountDocumentDetail"}) {
    office.failing = table;
    OnModalWindow([&](QWidget& window) {
      QString shown;
      for (const QLabel* label : window.findChildren<QLabel*>()) shown += label->text();
      EXPECT_THAT(ToUtf8(shown), HasSubstr("-2147217865"));
      EXPECT_THAT(ToUtf8(shown), HasSubstr(std::string("Invalid object name '") + table));
      SavePicture(window, "document-error");
      window.findChild<QPushButton*>()->click();
    });
    View(7);
  }
}

TEST_F(DocumentViewerTest, Members_unknownOrOfTheWrongKind_throwTheAutomationErrors) {
  const auto viewer = Viewer();
  const auto numberOf = [](const std::function<void()>& action) -> std::int32_t {
    try {
      action();
    } catch (const platform::RuntimeError& error) {
      return error.Number();
    }
    return 0;
  };
  const std::array<AutomationValue, 1> noNumber{std::string("seven")};
  EXPECT_EQ(numberOf([&] { viewer->Put("EmployeeID", std::int32_t{1}); }), 438);
  EXPECT_EQ(numberOf([&] { viewer->Get("UserID"); }), 438);
  EXPECT_EQ(numberOf([&] { viewer->Call("ClearShow", noNumber); }), 438);
  EXPECT_EQ(numberOf([&] { viewer->Call("View", {}); }), 450);
  EXPECT_EQ(numberOf([&] { viewer->Call("View", noNumber); }), 13);
  EXPECT_EQ(numberOf([&] { viewer->Put("UserID", std::string("one")); }), 13);
}

TEST(GroupedAmountTest, AnyText_isGroupedOnlyWhereItIsANumber) {
  const std::pair<const char*, const char*> kCases[] = {
      {"0", "0"},
      {"999", "999"},
      {"1000", "1,000"},
      {"-1234567", "-1,234,567"},
      {"450000.0000", "450,000"},
      {"1234.5000", "1,234.5"},
      {"0.05", "0.05"},
      {"100.", "100"},
      {"", "0"},
      {"12a", "12a"},
      {"99999999999999999999", "99,999,999,999,999,999,999"}};
  for (const auto& [amount, grouped] : kCases) EXPECT_EQ(GroupedAmount(amount), grouped);
}

}  // namespace
}  // namespace adapters::qt
