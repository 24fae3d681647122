#include "adapters/qt/ErrorGuard.h"

#include <QDebug>

#include "adapters/qt/Convert.h"
#include "adapters/qt/MessageDialog.h"

namespace adapters::qt {

namespace {

/// Where the Persian sentences at the beginning of a description end: behind the last letter of an
/// Arabic script and its full stop. 0 when there is none.
qsizetype PersianEnd(const QString& description) {
  qsizetype end = description.size();
  while (end > 0 && description[end - 1].script() != QChar::Script_Arabic) --end;
  if (end > 0 && end < description.size() && description[end] == QLatin1Char('.')) ++end;
  return end;
}

}  // namespace

void ErrorGuard::ShowDialog(const QString& sentence, const QString& technical) const {
  qWarning().noquote() << technical;
  MessageDialog::Content content;
  content.title = QStringLiteral("خطا");
  content.message =
      sentence + (programGoesOn_ ? QStringLiteral("\nبرنامه ادامه می‌یابد.")
                                 : QStringLiteral("\nبرنامه بسته می‌شود."));
  content.technical = technical;
  content.kind = MessageDialog::Kind::kError;
  MessageDialog(content).Run();
}

void ErrorGuard::Show(const platform::RuntimeError& error) {
  if (beforeShow_) beforeShow_();
  const QString number = QString::number(error.Number());
  const QString description = ToQString(error.Description());
  const qsizetype persian = PersianEnd(description);
  QString technical = QStringLiteral("Run-time error '%1'").arg(number);
  const QString rest = description.mid(persian).trimmed();
  if (!rest.isEmpty()) technical += QStringLiteral(": ") + rest;
  if (!error.Source().empty()) {
    technical += QStringLiteral(" (%1)").arg(ToQString(error.Source()));
  }
  QString sentence = QStringLiteral("خطای شماره \u200E%1 هنگام اجرا رخ داد.").arg(number);
  if (persian > 0) sentence += QLatin1Char('\n') + description.left(persian);
  ShowDialog(sentence, technical);
}

void ErrorGuard::Show(const std::exception& error) {
  if (beforeShow_) beforeShow_();
  ShowDialog(
      QStringLiteral("خطایی پیش‌بینی‌نشده هنگام اجرا رخ داد."),
      QStringLiteral("Unexpected error: %1").arg(QString::fromUtf8(error.what())));
}

}  // namespace adapters::qt
