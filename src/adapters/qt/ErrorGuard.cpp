#include "adapters/qt/ErrorGuard.h"

#include <QDebug>

#include "adapters/qt/Convert.h"
#include "adapters/qt/MessageDialog.h"

namespace adapters::qt {

namespace {

void ShowDialog(const QString& sentence, const QString& technical) {
  qWarning().noquote() << technical;
  MessageDialog::Content content;
  content.title = QStringLiteral("خطا");
  content.message = sentence + QStringLiteral("\nبرنامه ادامه می‌یابد.");
  content.technical = technical;
  content.kind = MessageDialog::Kind::kError;
  MessageDialog(content).Run();
}

}  // namespace

void ErrorGuard::Show(const platform::RuntimeError& error) {
  if (beforeShow_) beforeShow_();
  const QString number = QString::number(error.Number());
  QString technical =
      QStringLiteral("Run-time error '%1': %2").arg(number, ToQString(error.Description()));
  if (!error.Source().empty()) {
    technical += QStringLiteral(" (%1)").arg(ToQString(error.Source()));
  }
  ShowDialog(QStringLiteral("خطای شماره %1 هنگام اجرا رخ داد.").arg(number), technical);
}

void ErrorGuard::Show(const std::exception& error) {
  if (beforeShow_) beforeShow_();
  ShowDialog(
      QStringLiteral("خطایی پیش‌بینی‌نشده هنگام اجرا رخ داد."),
      QStringLiteral("Unexpected error: %1").arg(QString::fromUtf8(error.what())));
}

}  // namespace adapters::qt
