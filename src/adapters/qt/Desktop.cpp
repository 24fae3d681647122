#include "adapters/qt/Desktop.h"

#include <QApplication>
#include <QDateTime>
#include <QFileDialog>
#include <QProcess>
#include <QStringList>

#include "adapters/qt/Convert.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {

namespace {

constexpr qint64 kUnixEpochJulianDay = 2440588;

}  // namespace

std::chrono::sys_days QtDesktop::Today() const {
  const qint64 days = QDate::currentDate().toJulianDay() - kUnixEpochJulianDay;
  return std::chrono::sys_days(std::chrono::days(days));
}

int QtDesktop::MinutesSinceMidnight() const {
  const QTime now = QTime::currentTime();
  return now.hour() * 60 + now.minute();
}

void QtDesktop::LoadKeyboardLayout(std::string_view /*layout*/) {}

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

std::string QtDesktop::ShowSave(const std::string& begin, std::string_view filter) {
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

void QtDesktop::Start(const std::string& commandLine) {
  QStringList arguments = QProcess::splitCommand(ToQString(commandLine));
  const QString program = arguments.isEmpty() ? QString() : arguments.takeFirst();
  if (program.isEmpty() || !QProcess::startDetached(program, arguments)) {
    throw platform::RuntimeError(platform::kFileNotFound, "File not found: " + ToUtf8(program),
                                 "QtDesktop");
  }
}

}  // namespace adapters::qt
