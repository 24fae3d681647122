#include "adapters/qt/Services.h"

#include <QApplication>
#include <QDateTime>
#include <QFileDialog>
#include <QStringList>
#include <algorithm>

#include "adapters/qt/Convert.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {

namespace {

constexpr qint64 kUnixEpochJulianDay = 2440588;
constexpr int kPatienceMilliseconds = 700;
constexpr int kPaintMilliseconds = 50;
constexpr int kBarSteps = 1000;

}  // namespace

std::chrono::sys_days QtClock::Today() const {
  const qint64 days = QDate::currentDate().toJulianDay() - kUnixEpochJulianDay;
  return std::chrono::sys_days(std::chrono::days(days));
}

int QtClock::MinutesSinceMidnight() const {
  const QTime now = QTime::currentTime();
  return now.hour() * 60 + now.minute();
}

void QtKeyboard::LoadKeyboardLayout(std::string_view /*layout*/) {}

QString QtFilter(std::string_view filter) {
  QStringList parts = ToQString(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
  if (parts.size() % 2 == 1) parts << QStringLiteral("*");
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString description = parts[i];
    QString pattern = parts[i + 1];
    // The pattern is written once; descriptions mostly repeat it.
    description.remove(QLatin1Char('(') + pattern + QLatin1Char(')'));
    filters << QStringLiteral("%1 (%2)").arg(description.trimmed(),
                                             pattern.replace(QLatin1Char(';'), QLatin1Char(' ')));
  }
  return filters.join(QStringLiteral(";;"));
}

std::string QtFileDialog::ShowSave(const std::string& begin, std::string_view filter) {
  // Qt's own dialog: one that comes from the desktop's portal asks before it gives the name of an
  // existing file, and cannot be told not to.
  const QString chosen = QFileDialog::getSaveFileName(
      QApplication::activeWindow(), QStringLiteral("ذخيره در فايل"), ToQString(begin),
      QtFilter(filter), nullptr,
      QFileDialog::DontConfirmOverwrite | QFileDialog::DontUseNativeDialog |
          QFileDialog::HideNameFilterDetails);
  if (chosen.isEmpty()) {
    throw platform::RuntimeError(platform::kFileDialogCancelled, "Cancel was selected.");
  }
  return ToUtf8(chosen);
}

QtProgress::~QtProgress() {
  delete bar_;
}

void QtProgress::Begin(std::string_view what, std::size_t total) {
  End();
  what_ = ToQString(what);
  total_ = total;
  sinceBegin_.start();
  sincePaint_.start();
}

bool QtProgress::Advance(std::size_t done) {
  if (!bar_) {
    if (!sinceBegin_.isValid() || sinceBegin_.elapsed() < kPatienceMilliseconds) return true;
    bar_ = new QProgressDialog(what_, QStringLiteral("انصراف"), 0, kBarSteps,
                               QApplication::activeWindow());
    bar_->setWindowTitle(QStringLiteral("لطفاً صبر كنيد"));
    bar_->setWindowModality(Qt::ApplicationModal);
    bar_->setMinimumWidth(340);
    bar_->setMinimumDuration(0);
    bar_->setAutoClose(false);
    bar_->setAutoReset(false);
    // At once, since only what is shown is modal: a click that waits must not reach a form.
    bar_->show();
  } else if (sincePaint_.elapsed() < kPaintMilliseconds) {
    return !bar_->wasCanceled();
  }
  sincePaint_.restart();
  const double share =
      total_ == 0 ? 0.0 : static_cast<double>(std::min(done, total_)) / static_cast<double>(total_);
  bar_->setValue(static_cast<int>(share * kBarSteps));
  QCoreApplication::processEvents();
  return bar_ && !bar_->wasCanceled();
}

void QtProgress::End() {
  delete bar_;
  sinceBegin_.invalidate();
}

}  // namespace adapters::qt
