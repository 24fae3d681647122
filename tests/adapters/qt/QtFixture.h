#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "adapters/qt/QtScreen.h"
#include "controls/Controls.h"
#include "controls/DateBox.h"
#include "controls/FlexGrid.h"
#include "controls/Form.h"
#include "controls/Selector.h"
#include "platform/Connection.h"

namespace adapters::qt {

/// 1404/02/15, a Monday.
class FixedClock : public platform::Clock {
 public:
  std::chrono::sys_days Today() const override {
    return calendar::SolarHijriDate::FromYearMonthDay(1404, 2, 15)->Days();
  }
  int MinutesSinceMidnight() const override { return 600; }
};

/// A few cities; the minor view asks for one of them by "ID=".
class CitySource : public controls::LookupSource {
 public:
  platform::RowSet Lookup(const std::string& /*connectionString*/,
                          const std::string& statement) override {
    statements.push_back(statement);
    if (failing) throw platform::RuntimeError(-2147467259, "The server does not answer");
    platform::RowSet rows({"ID", "Name", "Code"});
    int id = 0;
    for (const char* name : {"مشهد", "نیشابور", "سبزوار", "تهران", "کرج", "شهر ري"}) {
      const std::string number = std::to_string(++id);
      if (statement.find("ID=") != std::string::npos && !statement.ends_with("ID=" + number)) {
        continue;
      }
      rows.Append(number);
      rows.Append(name);
      rows.Append("10" + number);
    }
    return rows;
  }
  std::vector<std::string> statements;
  bool failing = false;
};

/// One control of every kind that acts.
class SampleForm : public controls::Form {
 public:
  SampleForm(controls::Screen& screen, controls::LookupSource& source);

  controls::TextBox txtName{*this, "txtName"};
  controls::TextBox txtNumber{*this, "txtNumber"};
  controls::Frame frame{*this, "frame", "مشخصات برنامه"};
  controls::Selector sltCity;
  controls::DateBox datFrom{frame, "datFrom"};
  controls::ComboBox cmbReport{frame, "cmbReport"};
  controls::CheckBox chkActive{frame, "chkActive", "فقط مشتريان فعال"};
  controls::TextBox txtNotes{*this, "txtNotes", controls::TextBox::Lines::kSeveral};
  controls::FlexGrid flx{*this, "flx"};
  controls::Button cmdOK{*this, "cmdOK", "تاييد"};
  controls::Button cmdOff{*this, "cmdOff", "ثبت نهايي"};
  controls::Button cmdCancel{*this, "cmdCancel", "انصراف"};

  int closed = 0;

 protected:
  void FormClose() override {
    ++closed;
    Hide();
  }
};

class QtTest : public testing::Test {
 protected:
  /// Shows the form modeless and waits until it is active.
  void ShowForm();
  template <typename Widget>
  Widget& WidgetOf(controls::Control& control) {
    return dynamic_cast<Widget&>(*screen.WidgetOf(control));
  }
  static void Press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                    const QString& text = {});
  /// Types character by character.
  static void Type(QWidget& widget, const QString& text);
  /// Runs `action` from the event loop.
  static void Later(std::function<void()> action);
  /// Runs `action` on the modal window that comes up next.
  static void OnModalWindow(std::function<void(QWidget&)> action);
  /// Presses the button with this caption in the modal window that comes up next.
  static void AnswerDialog(const QString& caption, std::string* message = nullptr);
  /// The number of the error that `action` throws; 0 when there was none.
  static std::int32_t NumberOf(const std::function<void()>& action);

  ErrorGuard guard;
  FixedClock clock;
  CitySource cities;
  QtScreen screen{guard, clock};
  SampleForm form{screen, cities};
};

/// With the embedded database of a small sample office.
class QtOfficeTest : public QtTest, public platform::ConnectionFactory {
 protected:
  QtOfficeTest();
  std::unique_ptr<platform::Connection> Create(const std::string& text) override;

  QTemporaryDir folder;
  std::string connectionString;
};

}  // namespace adapters::qt
