#include "adapters/qt/Services.h"

#include <gmock/gmock.h>

#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>

#include "adapters/qt/Components.h"
#include "adapters/qt/Convert.h"
#include "adapters/qt/QtFixture.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {
namespace {

using platform::AutomationValue;
using platform::RuntimeError;

class ServicesTest : public QtTest {
 protected:
  /// Messages need no database.
  class NoConnections : public platform::ConnectionFactory {
   public:
    std::unique_ptr<platform::Connection> Create(const std::string& /*text*/) override {
      return nullptr;
    }
  };
  NoConnections connections;

  static std::int32_t NumberOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const RuntimeError& error) {
      return error.Number();
    }
    return 0;
  }
};

TEST_F(ServicesTest, Notice_Answered_TellsTheResult) {
  const struct {
    std::int32_t type;
    const char* button;  // null closes the window
    std::int32_t result;
  } kCases[] = {{1, "بله", 1}, {1, "خیر", 0}, {1, nullptr, -1}, {0, "تأیید", 1}};
  for (const auto& each : kCases) {
    auto notice = Components(connections).Create("comNotice.comNTC");
    notice->Put("FormTitle", std::string("خطا"));
    notice->Put("FormMessage", std::string("آیا مطمئن هستید؟"));
    notice->Put("FormType", each.type);
    notice->Put("FormBackColor", std::int32_t{14411760});
    notice->Put("BtmBackColor", std::int32_t{13490407});
    notice->Put("FrameBackColor", std::int32_t{15791353});
    QString shown;
    if (each.button) {
      AnswerDialog(each.button, &shown);
    } else {
      OnModalWindow([&](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "خطا");
        EXPECT_EQ(window.grab().toImage().pixelColor(3, 3), QColor(240, 231, 219));
        window.close();
      });
    }
    notice->Call("ClearShow");
    EXPECT_EQ(notice->Get("Resualt"), AutomationValue(each.result));
    if (each.button) {
      EXPECT_THAT(ToUtf8(shown), testing::HasSubstr("آیا مطمئن هستید؟"));
    }
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

TEST_F(ServicesTest, SaveDialog_Cancelled_Throws32755) {
  OnModalWindow([](QWidget& window) { window.close(); });
  EXPECT_EQ(NumberOf([] { QtFileDialog().ShowSave("visits.txt", "Text (*.txt)|*.txt"); }), 32755);
}

TEST_F(ServicesTest, Filter_OfPairs_BecomesQtsList) {
  EXPECT_EQ(QtFilter("Text (*.txt)|*.txt|All|*.*"), "Text (*.txt);;All (*.*)");
  EXPECT_EQ(QtFilter("Tables|*.csv;*.tsv"), "Tables (*.csv *.tsv)");
  EXPECT_EQ(QtFilter(""), "");
}

TEST_F(ServicesTest, Progress_ShortWork_ShowsNothing) {
  QtProgress progress;
  progress.Begin("خواندن", 1000);
  for (std::size_t done = 0; done <= 1000; ++done) EXPECT_TRUE(progress.Advance(done));
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  progress.End();
}

TEST_F(ServicesTest, Progress_LongWorkCancelled_SaysStop) {
  QtProgress progress;
  progress.Begin("انتقال به اکسل", 100);
  QTest::qSleep(750);
  ASSERT_TRUE(progress.Advance(40));
  QWidget* bar = QApplication::activeModalWidget();
  ASSERT_NE(bar, nullptr);
  SavePicture(*bar, "progress");
  bar->findChild<QPushButton*>()->click();
  EXPECT_FALSE(progress.Advance(41));
  progress.End();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace adapters::qt
