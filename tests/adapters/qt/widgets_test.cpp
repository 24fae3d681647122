#include <gmock/gmock.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "adapters/qt/BasicWidgets.h"
#include "adapters/qt/Convert.h"
#include "adapters/qt/DateBoxWidget.h"
#include "adapters/qt/MonthPopup.h"
#include "adapters/qt/QtFixture.h"
#include "adapters/qt/SelectorWidget.h"

namespace adapters::qt {
namespace {

using WidgetTest = QtTest;

TEST_F(WidgetTest, AnyControl_MovedDisabledHidden_IsFollowedInPixels) {
  ShowForm();
  QWidget& button = *screen.WidgetOf(form.cmdOK);
  form.cmdOK.Move(150, 300, 1500, 420);
  EXPECT_EQ(button.geometry(), QRect(10, 20, 100, 28));
  form.cmdOK.SetEnabled(false);
  EXPECT_FALSE(button.isEnabled());
  form.cmdOK.SetVisible(false);
  EXPECT_FALSE(button.isVisible());
  EXPECT_EQ(screen.WidgetOf(form.sltCity)->parentWidget(), screen.WidgetOf(form.frame));
}

TEST_F(WidgetTest, TextBox_ChangedByItsOwnHandler_ShowsThatAndKeepsTheCursor) {
  form.txtName.onChange = [&] {
    std::string text = form.txtName.Text();
    for (char& letter : text) {
      if (letter == 'x') letter = 'y';
    }
    form.txtName.SetText(text);
  };
  ShowForm();
  auto& line = WidgetOf<QLineEdit>(form.txtName);
  line.setFocus();
  form.txtName.SetText("ab");
  line.setCursorPosition(1);
  Type(line, "x");
  EXPECT_EQ(form.txtName.Text(), "ayb");
  EXPECT_EQ(line.text(), "ayb");
  EXPECT_EQ(line.cursorPosition(), 2);
  Type(line, "س");
  EXPECT_EQ(form.txtName.Text(), "ayسb");
}

TEST_F(WidgetTest, SeveralLines_TypedBeyondMaxLength_AreCut) {
  form.txtNotes.SetMaxLength(4);
  ShowForm();
  auto& memo = WidgetOf<QPlainTextEdit>(form.txtNotes);
  Type(memo, "شرح تازه");
  EXPECT_EQ(form.txtNotes.Text(), "شرح ");
  form.txtNotes.SetText("a\r\nb");
  EXPECT_EQ(memo.toPlainText(), "a\nb");
  EXPECT_EQ(form.txtNotes.Text(), "a\r\nb") << "showing a text does not write it back";
}

TEST_F(WidgetTest, CheckBox_Clicked_ShowsWhatTheModelSays) {
  form.chkActive.onClick = [&] { form.chkActive.SetChecked(false); };
  ShowForm();
  auto& box = WidgetOf<QCheckBox>(form.chkActive);
  box.click();
  EXPECT_FALSE(box.isChecked());
  form.chkActive.onClick = nullptr;
  box.click();
  EXPECT_TRUE(box.isChecked());
  EXPECT_TRUE(form.chkActive.Checked());
}

TEST_F(WidgetTest, ComboBox_FilledAndChosen_FollowsBothWays) {
  int clicks = 0;
  form.cmbReport.onClick = [&] { ++clicks; };
  ShowForm();
  auto& combo = WidgetOf<QComboBox>(form.cmbReport);
  EXPECT_EQ(combo.count(), 3);
  EXPECT_EQ(combo.currentIndex(), -1);
  combo.setFocus();
  Press(combo, Qt::Key_Down);
  EXPECT_EQ(form.cmbReport.ListIndex(), 0);
  EXPECT_EQ(clicks, 1);
  form.cmbReport.SetListIndex(2);
  EXPECT_EQ(combo.currentText(), "قالب با تلفن");
  form.cmbReport.Clear();
  EXPECT_EQ(combo.count(), 0);
}

class SelectorWidgetTest : public QtTest {
 protected:
  void SetUp() override {
    ShowForm();
    box = &WidgetOf<SelectorWidget>(form.sltCity);
    box->setFocus();
  }
  std::vector<std::string> Shown() const {
    std::vector<std::string> names;
    const QAbstractItemModel& rows = *box->Popup().model();
    for (int i = 0; i < rows.rowCount(); ++i) {
      names.push_back(ToUtf8(rows.index(i, 0).data().toString()));
    }
    return names;
  }
  SelectorWidget* box = nullptr;
};

TEST_F(SelectorWidgetTest, Typing_NarrowsWithYehFolded_AndEnterChooses) {
  Type(*box, "شهر ری");
  ASSERT_TRUE(box->Popup().isVisible());
  EXPECT_THAT(Shown(), testing::ElementsAre("شهر ري"));
  const std::size_t lookups = cities.statements.size();
  Press(box->Popup(), Qt::Key_Backspace);
  EXPECT_EQ(box->text(), "شهر ر");
  const int narrow = box->Popup().height();
  for (int i = 0; i < 5; ++i) Press(box->Popup(), Qt::Key_Backspace);
  EXPECT_EQ(Shown().size(), 6U);
  EXPECT_GT(box->Popup().height(), narrow);
  Type(box->Popup(), "ري");
  EXPECT_EQ(cities.statements.size(), lookups) << "the list is read when it opens, not by each key";
  Press(box->Popup(), Qt::Key_Return);
  EXPECT_FALSE(box->Popup().isVisible());
  EXPECT_EQ(form.sltCity.SelectedID(), 6);
  EXPECT_EQ(box->text(), "شهر ري");
}

TEST_F(SelectorWidgetTest, ArrowKeys_InTheOpenList_MoveFromTheSelectedRow) {
  form.sltCity.Select(1);
  Press(*box, Qt::Key_F4);
  EXPECT_EQ(box->Popup().currentIndex().data().toString(), "مشهد");
  Press(box->Popup(), Qt::Key_Down);
  Press(box->Popup(), Qt::Key_Return);
  EXPECT_EQ(form.sltCity.SelectedID(), 2);
}

TEST_F(SelectorWidgetTest, Esc_AfterTyping_KeepsTheSelection) {
  form.sltCity.Select(3);
  box->selectAll();
  Type(*box, "ته");
  Press(box->Popup(), Qt::Key_Escape);
  EXPECT_EQ(form.sltCity.SelectedID(), 3);
  EXPECT_EQ(box->text(), "سبزوار");
  EXPECT_TRUE(form.Visible()) << "Esc was for the list, not for the form";
}

TEST_F(SelectorWidgetTest, Emptied_ThenLeft_SelectsNothing) {
  form.sltCity.Select(3);
  box->selectAll();
  Press(*box, Qt::Key_Delete);
  EXPECT_EQ(form.sltCity.SelectedID(), 3) << "not before the box is left";
  form.txtName.SetFocus();
  EXPECT_EQ(form.sltCity.SelectedID(), -1);
}

TEST_F(SelectorWidgetTest, UnknownText_ThenLeft_GivesWayToTheSelectedName) {
  form.sltCity.Select(4);
  box->selectAll();
  Type(*box, "zzz");
  EXPECT_TRUE(Shown().empty());
  SavePicture(box->Popup(), "selector-empty");
  Press(box->Popup(), Qt::Key_Tab);
  EXPECT_EQ(form.sltCity.SelectedID(), 4);
  EXPECT_EQ(box->text(), "تهران");
  EXPECT_FALSE(box->hasFocus());
}

TEST_F(SelectorWidgetTest, ServerSilent_OpenedOrShown_ErrorIsShownAndTheListStaysClosed) {
  cities.failing = true;
  QString shown;
  AnswerDialog("تأیید", &shown);
  Press(*box, Qt::Key_F4);
  EXPECT_THAT(ToUtf8(shown), testing::HasSubstr("The server does not answer"));
  EXPECT_FALSE(box->Popup().isVisible());
}

TEST_F(SelectorWidgetTest, Disabled_Keys_DoNothing) {
  form.sltCity.Select(1);
  form.sltCity.SetEnabled(false);
  Press(*box, Qt::Key_F4);
  EXPECT_FALSE(box->Popup().isVisible());
  EXPECT_EQ(form.sltCity.SelectedID(), 1);
}

class DateBoxWidgetTest : public QtTest {
 protected:
  void SetUp() override {
    form.datFrom.SetText("1404/02/15");
    ShowForm();
    box = &WidgetOf<DateBoxWidget>(form.datFrom);
    box->setFocus();
    box->selectAll();
  }
  bool Noted() const { return screen.WindowOf(form_)->findChild<QLabel*>("note") != nullptr; }
  controls::Form& form_ = form;
  DateBoxWidget* box = nullptr;
};

TEST_F(DateBoxWidgetTest, Typed_InAnyDigits_IsUnderstoodOnEnter) {
  int pressed = 0;
  form.cmdOK.onClick = [&] { ++pressed; };
  for (const char* typed : {"1403/1/5", "۱۴۰۳/۱/۵", "١٤٠٣/١/٥", "14030105"}) {
    form.datFrom.SetText("1404/02/15");
    box->selectAll();
    Type(*box, typed);
    Press(*box, Qt::Key_Return);
    EXPECT_EQ(form.datFrom.Text(), "1403/01/05") << typed;
    EXPECT_EQ(box->text(), "1403/01/05") << typed;
  }
  EXPECT_EQ(pressed, 0) << "this Enter was for the date";
  Press(*box, Qt::Key_Return);
  EXPECT_EQ(pressed, 1);
}

TEST_F(DateBoxWidgetTest, NoSuchDay_Typed_IsRefusedAndTheOldDateComesBackOnLeaving) {
  Type(*box, "1403/13/40");
  Press(*box, Qt::Key_Return);
  EXPECT_EQ(box->text(), "1403/13/40");
  EXPECT_TRUE(box->property("refused").toBool());
  EXPECT_TRUE(Noted());
  SavePicture(*screen.WindowOf(form), "date-refused");
  form.txtName.SetFocus();
  EXPECT_EQ(box->text(), "1404/02/15");
  EXPECT_FALSE(box->property("refused").toBool());
  EXPECT_EQ(form.datFrom.Text(), "1404/02/15");
}

TEST_F(DateBoxWidgetTest, Keys_StepDaysAndMonths) {
  const struct {
    int key;
    const char* date;
  } kCases[] = {{Qt::Key_Up, "1404/02/16"},
                {Qt::Key_Down, "1404/02/15"},
                {Qt::Key_PageUp, "1404/03/15"},
                {Qt::Key_PageDown, "1404/02/15"}};
  for (const auto& each : kCases) {
    Press(*box, each.key);
    EXPECT_EQ(ToUtf8(box->text()), each.date);
  }
  form.datFrom.Clear();
  Press(*box, Qt::Key_Up);
  EXPECT_EQ(box->text(), "1404/02/15") << "an empty box begins at today";
}

TEST_F(DateBoxWidgetTest, MonthPage_DayClicked_IsChosen) {
  Press(*box, Qt::Key_F4);
  MonthPopup& popup = box->Popup();
  ASSERT_TRUE(popup.isVisible());
  // Saturday at the right: 1404/02/01 is a Monday, so the first Saturday is of the month before.
  EXPECT_GT(popup.DayPlace(0, 0).left(), popup.DayPlace(0, 6).left());
  QTest::mouseClick(&popup, Qt::LeftButton, {}, popup.DayPlace(1, 0).center());
  EXPECT_EQ(form.datFrom.Text(), "1404/02/06");
  EXPECT_EQ(form.datFrom.WeekdayName(), "شنبه");
  EXPECT_FALSE(popup.isVisible());
}

TEST_F(DateBoxWidgetTest, MonthPage_Keys_MoveAndPick) {
  Press(*box, Qt::Key_F4);
  MonthPopup& popup = box->Popup();
  Press(popup, Qt::Key_PageDown);
  EXPECT_EQ(popup.Page().Month(), 3);
  Press(popup, Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(popup.Page().Year(), 1403);
  Press(popup, Qt::Key_Left);
  Press(popup, Qt::Key_Return);
  EXPECT_EQ(form.datFrom.Text(), "1403/03/16");
}

}  // namespace
}  // namespace adapters::qt
