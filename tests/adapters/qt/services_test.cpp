#include "adapters/qt/Desktop.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

#include "adapters/qt/Convert.h"
#include "adapters/qt/Files.h"
#include "adapters/qt/QtFixture.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "demo/PlainDatabase.h"
#include "screens/MessageForm.h"
#include "screens/ProgressForm.h"
#include "search/FormSearch.h"
#include "support/ErrorNumber.h"
#include "support/ScriptedPlatform.h"

namespace adapters::qt {
namespace {

using ServicesTest = QtTest;

/// A search of 100,000 lines, as a program puts it together.
class LongSearchTest : public QtOfficeTest {
 protected:
  LongSearchTest() {
    demo::PlainDatabase(connectionString.substr(connectionString.find(':') + 1))
        .Query(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) "
            "INSERT INTO tblDistributionPromoterProgramDetail (ProgramID, PromoterID, "
            "FarsiVisitDate, VisitDate, CustomerID, Sequence) SELECT 14, (SELECT min(EmployeeID) "
            "FROM tblSalePromoter) + i % 20, '1404/09/01', 20251122, 1 + i % 200, 1000 + i FROM n");
    module.SetContext({.userId = 1, .positionId = 1, .connectionString = connectionString});
  }
  std::unique_ptr<platform::Connection> Create(const std::string& text) override {
    return std::make_unique<sqlite::SqliteConnection>(text, sqlite::kBusyTimeout,
                                                      platform::kStatementLimit, &waiting);
  }
  bool Busy() const override { return waiting.UnderWay(); }

  support::ScriptedPlatform outside;
  // Half a second is over soon, however fast the machine.
  screens::ProgressForm waiting{screen, [] {
                                  return std::chrono::duration_cast<std::chrono::milliseconds>(
                                      20 * std::chrono::steady_clock::now().time_since_epoch());
                                }};
  host::modMain module{{.screen = screen,
                        .connections = *this,
                        .components = outside.components,
                        .desktop = outside.desktop,
                        .excel = outside.excel,
                        .progress = outside.progress,
                        .fileSystem = outside.fileSystem,
                        .reports = outside.reports}};
  search::FormSearch searching{module};
};
using support::NumberOf;

TEST_F(ServicesTest, SaveDialog_OfAnExistingFile_BeginsThereAndAsksNothing) {
  QTemporaryDir folder;
  const QString path = folder.filePath("ليست.txt");
  QFile(path).open(QIODevice::WriteOnly);
  for (const QString& begin : {path, folder.path() + "/"}) {
    OnModalWindow([&](QWidget& window) {
      auto& dialog = dynamic_cast<QFileDialog&>(window);
      EXPECT_TRUE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
      EXPECT_EQ(dialog.directory(), QDir(folder.path()));
      dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path);
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(QtDesktop().ShowSave(ToUtf8(begin), "فايل متني"), ToUtf8(path));
  }
}

TEST_F(ServicesTest, SmallOnes_DoAsTheDesktopDoes) {
  EXPECT_EQ(QtFilter("Text (*.txt)|*.txt|All|*.*"), "Text (*.txt);;All (*.*)");
  EXPECT_EQ(QtFilter("Tables|*.csv;*.tsv"), "Tables (*.csv *.tsv)");
  EXPECT_EQ(QtFilter("فايل متني"), "فايل متني (*)");
  EXPECT_EQ(QtFilter(""), "");
  EXPECT_EQ(NumberOf([] { QtDesktop().Start("no-such-program-anywhere /s"); }), 53);
}

TEST_F(ServicesTest, Progress_LongWork_CanBeStoppedWhileTheFormsTakeNoInput) {
  ShowForm();
  form.txtName.SetFocus();
  std::chrono::milliseconds now{0};
  screens::ProgressForm progress(screen, [&now] { return now; });
  progress.Begin("انتقال", 10);
  now += std::chrono::seconds(1);
  ASSERT_TRUE(progress.Advance(1));
  EXPECT_EQ(&ActiveForm(), &progress);
  Later([&] {
    QTest::keyClick(adapter->screen.WindowOf(form)->windowHandle(), 'x');
    Click(progress.cmdStop);
  });
  now += std::chrono::seconds(1);
  EXPECT_FALSE(progress.Advance(2));
  progress.End();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  Settle();
  EXPECT_EQ(form.txtName.Text(), "") << "what was typed meanwhile is dropped";
}

TEST_F(LongSearchTest, Cancelled_ByAClickOnTheBusyBar_LeavesTheFormAsItWas) {
  searching.Show(controls::Modality::kModeless);
  ASSERT_TRUE(QTest::qWaitForWindowActive(adapter->screen.WindowOf(searching)));
  searching.txtID.SetText("13");
  Click(searching.cmdSearch);
  const int lines = searching.flxSearch.Rows();
  ASSERT_GT(lines, 2);
  const std::string first(searching.flxSearch.TextMatrix(1, 3));
  searching.txtID.SetText("14");
  int shown = 0;
  Later([&] {
    EXPECT_EQ(&ActiveForm(), &waiting);
    EXPECT_EQ(waiting.lblWhat.Caption(), "پايگاه داده سرگرم كار است…");
    EXPECT_LT(waiting.bar.Share(), 0);
    EXPECT_EQ(screen.GetMousePointer(), controls::MousePointer::kDefault);
    // Nothing else can be pressed.
    QTest::keyClick(adapter->screen.WindowOf(searching)->windowHandle(), Qt::Key_Escape);
    ++shown;
    Click(waiting.cmdStop);
  });
  std::string told;
  QTimer answer;
  QObject::connect(&answer, &QTimer::timeout, [&] {
    const controls::Form* const up = adapter->screen.FormOf(QApplication::activeModalWidget());
    if (up == nullptr || up->Name() != "MessageForm") return;
    answer.stop();
    told = up->Caption() + "\n" +
           dynamic_cast<controls::Label&>(*up->FindControl("lblMessage")).Caption();
    Click(*up->FindControl("cmdYes"));
  });
  answer.start(1);
  Click(searching.cmdSearch);
  EXPECT_EQ(shown, 1);
  EXPECT_THAT(told, testing::StartsWith("انصراف\nكار پايگاه داده به خواست شما متوقف شد"));
  EXPECT_FALSE(waiting.Visible() || waiting.UnderWay());
  EXPECT_TRUE(searching.Visible());
  EXPECT_EQ(searching.flxSearch.Rows(), lines);
  EXPECT_EQ(searching.flxSearch.TextMatrix(1, 3), first);
  EXPECT_TRUE(searching.cmdSearch.Enabled());
  Click(searching.cmdSearch);
  EXPECT_GT(searching.flxSearch.Rows(), 100000);
}

}  // namespace
}  // namespace adapters::qt
