#include "adapters/qt/QtScreen.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "adapters/qt/Convert.h"
#include "adapters/qt/QtFixture.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {
namespace {

using controls::Modality;
using platform::RuntimeError;
using testing::HasSubstr;

TEST_F(QtTest, ShowModal_FormUnloadsItselfFromItsButton_SurvivesAndReturns) {
  form.cmdOK.onClick = [&] { form.Unload(); };
  OnModalWindow([&](QWidget&) { WidgetOf<QPushButton>(form.cmdOK).click(); });
  form.Show(Modality::kModal);
  EXPECT_EQ(screen.WindowOf(form), nullptr);
  QCoreApplication::processEvents();
  ShowForm();
  EXPECT_TRUE(screen.WindowOf(form)->isVisible());
}

TEST_F(QtTest, Unload_FormOfTheWidgetThatCalled_WaitsForTheCallToReturn) {
  // The button of one form opens another modally, in whose loop the first is unloaded.
  SampleForm other(screen, cities);
  form.cmdOK.onClick = [&] { other.Show(Modality::kModal); };
  ShowForm();
  OnModalWindow([&](QWidget&) {
    form.Unload();
    Later([&] { other.Hide(); });
  });
  WidgetOf<QPushButton>(form.cmdOK).click();
  EXPECT_FALSE(form.Loaded());
}

TEST_F(QtTest, ShowModeless_WhileAModalFormIsUp_Throws401) {
  SampleForm other(screen, cities);
  std::int32_t number = 0;
  OnModalWindow([&](QWidget&) {
    number = NumberOf([&] { other.Show(Modality::kModeless); });
    form.Hide();
  });
  form.Show(Modality::kModal);
  EXPECT_EQ(number, 401);
  EXPECT_FALSE(other.Visible());
  other.Show(Modality::kModeless);
  EXPECT_TRUE(screen.WindowOf(other)->isVisible());
}

TEST_F(QtTest, UntrappedError_InAButton_IsShownAndTheProgramGoesOn) {
  int clicks = 0;
  form.cmdOK.onClick = [&] {
    screen.SetMousePointer(controls::MousePointer::kHourglass);
    if (++clicks == 1) throw RuntimeError(3704, "Operation is not allowed", "Recordset");
    throw std::out_of_range("no such place");
  };
  ShowForm();
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"3704", "Operation is not allowed"}, {"no such place"}}) {
    std::string shown;
    AnswerDialog("تأييد", &shown);
    WidgetOf<QPushButton>(form.cmdOK).click();
    for (const std::string& each : words) EXPECT_THAT(shown, HasSubstr(each));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  }
  EXPECT_EQ(clicks, 2);
}

TEST_F(QtTest, Window_Form_FollowsItsCaptionAndSizeBothWays) {
  ShowForm();
  QWidget& window = *screen.WindowOf(form);
  EXPECT_EQ(window.minimumSize(), QSize(500, 400));
  form.SetCaption("دیگر");
  form.Resize(12000, 9000);
  EXPECT_EQ(window.windowTitle(), "دیگر");
  EXPECT_EQ(window.size(), QSize(800, 600));
  window.resize(640, 480);
  EXPECT_EQ(form.Width(), 9600);
  EXPECT_EQ(form.Height(), 7200);
  window.close();
  EXPECT_EQ(form.closed, 1) << "the form is asked";
}

TEST_F(QtTest, EnterAndEsc_InALineEdit_PressDefaultAndCancelButton) {
  int ok = 0;
  int cancel = 0;
  int other = 0;
  form.cmdOK.onClick = [&] { ++ok; };
  form.cmdCancel.onClick = [&] { ++cancel; };
  form.cmdOff.onClick = [&] { ++other; };
  ShowForm();
  QWidget& line = *screen.WidgetOf(form.txtName);
  Press(line, Qt::Key_Return);
  EXPECT_EQ(ok, 1);
  Press(line, Qt::Key_Escape);
  EXPECT_EQ(cancel, 1);
  Press(*screen.WidgetOf(form.txtNotes), Qt::Key_Return, Qt::NoModifier, "\r");
  EXPECT_EQ(ok, 1) << "Enter begins a new line in a box of several";
  Press(*screen.WidgetOf(form.cmdOff), Qt::Key_Return);
  EXPECT_EQ(other, 1) << "Enter presses the focused button";
  EXPECT_EQ(ok, 1);
}

TEST_F(QtTest, TabKey_Pressed_VisitsControlsByTabIndexAndPassesOverOthers) {
  ShowForm();
  form.txtNumber.SetFocus();
  std::vector<std::string> visited;
  for (int i = 0; i < 7; ++i) {
    visited.push_back(ToUtf8(QApplication::focusWidget()->objectName()));
    Press(*QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_THAT(visited, testing::ElementsAre("txtNumber", "txtName", "sltCity", "datFrom", "flx",
                                            "cmdOK", "cmdCancel"));
}

TEST_F(QtTest, FormDestroyed_WhileItsWindowIsUp_LeavesNothingThatTouchesIt) {
  auto other = std::make_unique<SampleForm>(screen, cities);
  other->Show(Modality::kModeless);
  QLineEdit& date = dynamic_cast<QLineEdit&>(*screen.WidgetOf(other->datFrom));
  date.setFocus();
  Type(date, "1403");
  other.reset();
  QCoreApplication::processEvents();
  ShowForm();
}

}  // namespace
}  // namespace adapters::qt
