#include "adapters/qt/Desktop.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

#include "adapters/qt/Convert.h"
#include "adapters/qt/Files.h"
#include "adapters/qt/QtFixture.h"
#include "screens/ProgressForm.h"
#include "support/ErrorNumber.h"

namespace adapters::qt {
namespace {

using ServicesTest = QtTest;

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

}  // namespace
}  // namespace adapters::qt
