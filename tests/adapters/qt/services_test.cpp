#include "adapters/qt/Services.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "adapters/qt/Components.h"
#include "adapters/qt/Convert.h"
#include "adapters/qt/Files.h"
#include "adapters/qt/QtFixture.h"

namespace adapters::qt {
namespace {

using platform::AutomationValue;

class ServicesTest : public QtTest, platform::ConnectionFactory {
 protected:
  /// Messages need no database.
  std::unique_ptr<platform::Connection> Create(const std::string& /*text*/) override {
    return nullptr;
  }
  platform::ConnectionFactory& connections = *this;
};

TEST_F(ServicesTest, Notice_Answered_TellsTheResult) {
  const struct {
    std::int32_t type;
    QString button;  // none of this caption: the window is closed
    std::int32_t result;
  } kCases[] = {{1, "بله", 1}, {1, "خير", 0}, {1, "", 0}, {0, "تأييد", 1}};
  for (const auto& each : kCases) {
    auto notice = Components(connections).Create("comNotice.comNTC");
    notice->Put("FormTitle", std::string("خطا"));
    notice->Put("FormMessage", std::string("آیا مطمئن هستید؟"));
    notice->Put("FormType", each.type);
    notice->Put("FormBackColor", std::int32_t{14411760});
    OnModalWindow([&](QWidget& window) {
      EXPECT_EQ(window.grab().toImage().pixelColor(3, 3), QColor(240, 231, 219));
    });
    const auto shown = AnswerDialog(each.button);
    notice->Call("ClearShow");
    EXPECT_THAT(*shown, testing::StartsWith("خطا\n"));
    EXPECT_THAT(*shown, testing::HasSubstr("آیا مطمئن هستید؟\n"));
    EXPECT_EQ(notice->Get("Resualt"), AutomationValue(each.result));
  }
}

TEST_F(ServicesTest, Question_AnsweredByKeys_SaysNoWhereSomethingWouldBeLost) {
  const struct {
    const char* title;
    std::vector<Qt::Key> keys;
    std::int32_t result;
  } kCases[] = {{"پرسش", {Qt::Key_Return}, 1},
                {"حذف", {Qt::Key_Return}, 0},
                {"هشدار", {Qt::Key_Enter}, 0},
                {"هشدار", {Qt::Key_Tab, Qt::Key_Return}, 1},
                {"پرسش", {Qt::Key_Tab, Qt::Key_Space}, 0},
                {"پرسش", {Qt::Key_Escape}, 0}};
  for (const auto& each : kCases) {
    auto notice = Components(connections).Create("comNotice.comNTC");
    notice->Put("FormTitle", std::string(each.title));
    notice->Put("FormType", std::int32_t{1});
    OnModalWindow([&](QWidget& window) {
      ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
      for (const Qt::Key key : each.keys) QTest::keyClick(QApplication::focusWidget(), key);
    });
    notice->Call("ClearShow");
    EXPECT_EQ(notice->Get("Resualt"), AutomationValue(each.result)) << each.title;
  }
}

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
    EXPECT_EQ(QtFileDialog().ShowSave(ToUtf8(begin), "فايل متني"), ToUtf8(path));
  }
}

TEST_F(ServicesTest, Components_UnknownNames_ThrowTheAutomationErrors) {
  Components components(connections);
  EXPECT_EQ(NumberOf([&] { components.Create("Excel.Application"); }), 429);
  auto notice = components.Create("comNotice.comNTC");
  EXPECT_EQ(NumberOf([&] { notice->Put("FormColour", std::int32_t{1}); }), 438);
  EXPECT_EQ(NumberOf([&] { notice->Get("Result"); }), 438);
  EXPECT_EQ(NumberOf([&] { notice->Call("Show"); }), 438);
  EXPECT_EQ(NumberOf([&] { notice->Put("FormType", std::string("one")); }), 13);
}

TEST_F(ServicesTest, SmallOnes_DoAsTheDesktopDoes) {
  EXPECT_EQ(QtFilter("Text (*.txt)|*.txt|All|*.*"), "Text (*.txt);;All (*.*)");
  EXPECT_EQ(QtFilter("Tables|*.csv;*.tsv"), "Tables (*.csv *.tsv)");
  EXPECT_EQ(QtFilter("فايل متني"), "فايل متني (*)");
  EXPECT_EQ(QtFilter(""), "");
  EXPECT_EQ(NumberOf([] { QtLauncher().Start("no-such-program-anywhere /s"); }), 53);
}

TEST_F(ServicesTest, Progress_LongWorkCancelled_SaysStop) {
  QtProgress progress;
  progress.Begin("انتقال به اكسل", 100'000);
  EXPECT_TRUE(progress.Advance(10));
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "short work shows nothing";
  QTest::qSleep(750);
  const QWidget* modal = nullptr;
  QMetaObject::invokeMethod(
      qApp, [&] { modal = QApplication::activeModalWidget(); }, Qt::QueuedConnection);
  ASSERT_TRUE(progress.Advance(40));
  EXPECT_NE(modal, nullptr) << "a click that waited would reach the form";
  QWidget* bar = QApplication::activeModalWidget();
  ASSERT_NE(bar, nullptr);
  bar->findChild<QPushButton*>()->click();
  EXPECT_FALSE(progress.Advance(41));
  progress.End();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace adapters::qt
