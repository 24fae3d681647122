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

TEST_F(WidgetTest, Choices_FollowBothWays) {
  form.chkActive.onClick = [&] { form.chkActive.SetChecked(false); };
  ShowForm();
  auto& box = WidgetOf<QCheckBox>(form.chkActive);
  box.click();
  EXPECT_FALSE(box.isChecked()) << "what the model says";
  auto& combo = WidgetOf<QComboBox>(form.cmbReport);
  EXPECT_EQ(combo.currentIndex(), -1);
  Press(combo, Qt::Key_Down);
  EXPECT_EQ(form.cmbReport.ListIndex(), 0);
  form.cmbReport.SetListIndex(2);
  EXPECT_EQ(combo.currentText(), "قالب با تلفن");
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

TEST_F(SelectorWidgetTest, TypedAndLeft_WithoutAChoice_KeepsOrEmptiesTheSelection) {
  const struct {
    const char* typed;  // empty deletes the text
    int leavingKey;
    int selected;
    const char* shown;
  } kCases[] = {{"ته", Qt::Key_Escape, 3, "سبزوار"},
                {"zzz", Qt::Key_Tab, 3, "سبزوار"},
                {"", Qt::Key_Tab, -1, ""}};
  for (const auto& each : kCases) {
    form.sltCity.Select(3);
    form.sltCity.SetFocus();
    box->selectAll();
    Type(*box, each.typed);
    if (!*each.typed) Press(*box, Qt::Key_Delete);
    EXPECT_EQ(form.sltCity.SelectedID(), 3) << "not before the box is left";
    Press(box->Popup().isVisible() ? static_cast<QWidget&>(box->Popup()) : *box, each.leavingKey);
    EXPECT_EQ(form.sltCity.SelectedID(), each.selected) << each.typed;
    EXPECT_EQ(ToUtf8(box->text()), each.shown);
    EXPECT_TRUE(form.Visible()) << "Esc was for the list, not for the form";
  }
}

TEST_F(SelectorWidgetTest, ServerSilent_OpenedOrShown_ErrorIsShownAndTheListStaysClosed) {
  cities.failing = true;
  std::string shown;
  AnswerDialog("تأييد", &shown);
  Press(*box, Qt::Key_F4);
  EXPECT_THAT(shown, testing::HasSubstr("The server does not answer"));
  EXPECT_FALSE(box->Popup().isVisible());
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
  DateBoxWidget* box = nullptr;
};

TEST_F(DateBoxWidgetTest, Typed_InAnyDigits_IsUnderstoodOnEnter) {
  int pressed = 0;
  form.cmdOK.onClick = [&] { ++pressed; };
  for (const char* typed : {"۱۴۰۳/۱/۵", "١٤٠٣/١/٥", "14030105"}) {
    form.datFrom.SetText("1404/02/15");
    box->selectAll();
    Type(*box, typed);
    Press(*box, Qt::Key_Return);
    EXPECT_EQ(form.datFrom.Text(), "1403/01/05") << typed;
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
  EXPECT_NE(screen.WindowOf(form)->findChild<QLabel*>("note"), nullptr);
  form.txtName.SetFocus();
  EXPECT_EQ(box->text(), "1404/02/15");
  EXPECT_FALSE(box->property("refused").toBool());
  EXPECT_EQ(form.datFrom.Text(), "1404/02/15");
}

TEST_F(DateBoxWidgetTest, Keys_StepDaysAndMonths) {
  for (const auto& [key, date] : {std::pair{Qt::Key_Up, "1404/02/16"},
                                  {Qt::Key_PageUp, "1404/03/16"},
                                  {Qt::Key_Down, "1404/03/15"},
                                  {Qt::Key_PageDown, "1404/02/15"}}) {
    Press(*box, key);
    EXPECT_EQ(ToUtf8(box->text()), date);
  }
}

TEST_F(DateBoxWidgetTest, MonthPage_ClickedAndMovedByKeys_GivesTheDay) {
  Press(*box, Qt::Key_F4);
  MonthPopup& popup = box->Popup();
  // Saturday at the right: 1404/02/01 is a Monday, so the first Saturday is of the month before.
  EXPECT_GT(popup.DayPlace(0, 0).left(), popup.DayPlace(0, 6).left());
  QTest::mouseClick(&popup, Qt::LeftButton, {}, popup.DayPlace(1, 0).center());
  EXPECT_EQ(form.datFrom.Text(), "1404/02/06");
  EXPECT_FALSE(popup.isVisible());
  Press(*box, Qt::Key_F4);
  Press(popup, Qt::Key_PageUp, Qt::ControlModifier);
  Press(popup, Qt::Key_Return);
  EXPECT_EQ(form.datFrom.Text(), "1403/02/06");
}

}  // namespace
}  // namespace adapters::qt
