#include "adapters/qt/QtFixture.h"

#include <QLabel>
#include <QPushButton>

#include "adapters/qt/Convert.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"

namespace adapters::qt {

SampleForm::SampleForm(controls::Screen& onScreen, controls::LookupSource& source)
    : Form(onScreen, "SampleForm", Border::kSizable), sltCity(frame, "sltCity", source) {
  SetCaption("فرم نمونه");
  Resize(10500, 7800);
  SetMinimumSize(7500, 6000);
  int place = 0;
  for (controls::Control* control :
       std::vector<controls::Control*>{&txtName, &txtNumber, &cmdOK, &cmdOff, &cmdCancel, &sltCity,
                                       &datFrom, &cmbReport, &chkActive}) {
    control->Move(place++ % 5 * 2000, 300, 1900, 375);
  }
  frame.Move(150, 660, 10200, 1750);
  txtNotes.Move(150, 2550, 8750, 1050);
  flx.Move(150, 3750, 10200, 3300);
  for (const char* title : {"قالب ساده", "قالب ماهانه", "قالب با تلفن"}) cmbReport.AddItem(title);
  int tab = 0;
  for (controls::Control* control : std::vector<controls::Control*>{
           &txtNumber, &txtName, &sltCity, &datFrom, &flx, &cmdOK, &cmdCancel}) {
    control->SetTabIndex(tab++);
  }
  SetDefaultButton(&cmdOK);
  SetCancelButton(&cmdCancel);
}

void QtTest::ShowForm() {
  form.Show(controls::Modality::kModeless);
  ASSERT_TRUE(QTest::qWaitForWindowActive(screen.WindowOf(form)));
}

void QtTest::Press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(&widget, &press);
  QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
  QApplication::sendEvent(&widget, &release);
}

void QtTest::Type(QWidget& widget, const QString& text) {
  for (const QChar letter : text) Press(widget, 0, Qt::NoModifier, QString(letter));
}

void QtTest::Later(std::function<void()> action) {
  auto* timer = new QTimer(qApp);
  timer->setSingleShot(true);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, action = std::move(action)] {
    timer->deleteLater();
    action();
  });
  timer->start(0);
}

void QtTest::OnModalWindow(std::function<void(QWidget&)> action) {
  Later([action = std::move(action)] {
    QWidget* window = QApplication::activeModalWidget();
    if (window) {
      action(*window);
    } else {
      ADD_FAILURE() << "no modal window came up";
    }
  });
}

void QtTest::AnswerDialog(const QString& caption, std::string* message) {
  OnModalWindow([=](QWidget& window) {
    if (message) {
      for (const QLabel* label : window.findChildren<QLabel*>()) {
        *message += ToUtf8(label->text()) + "\n";
      }
    }
    for (QPushButton* button : window.findChildren<QPushButton*>()) {
      if (button->text() == caption) return button->click();
    }
    ADD_FAILURE() << "no button " << ToUtf8(caption);
    window.close();
  });
}

std::int32_t QtTest::NumberOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const platform::RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

QtOfficeTest::QtOfficeTest() {
  const std::string file = ToUtf8(folder.filePath("office.db"));
  demo::SampleOptions options;
  options.customers = 200;
  options.today = clock.Today();
  demo::CreateSampleOffice(file, options);
  connectionString = "sqlite:" + file;
}

std::unique_ptr<platform::Connection> QtOfficeTest::Create(const std::string& text) {
  return std::make_unique<sqlite::SqliteConnection>(text);
}

}  // namespace adapters::qt
