#include "adapters/qt/ErrorGuard.h"

#include <QDebug>

#include "adapters/qt/Convert.h"
#include "adapters/qt/MessageDialog.h"
#include "controls/ErrorTexts.h"

namespace adapters::qt {

namespace {

void ShowDialog(const controls::ErrorTexts& texts) {
  MessageDialog::Content content;
  content.title = ToQString(texts.title);
  content.message = ToQString(texts.sentence);
  content.technical = ToQString(texts.technical);
  content.kind = MessageDialog::Kind::kError;
  qWarning().noquote() << content.technical;
  MessageDialog(content).Run();
}

}  // namespace

void ErrorGuard::Show(const platform::RuntimeError& error) {
  if (beforeShow_) beforeShow_();
  ShowDialog(controls::TextsOf(error, after_));
}

void ErrorGuard::Show(const std::exception& error) {
  if (beforeShow_) beforeShow_();
  ShowDialog(controls::TextsOf(error, after_));
}

}  // namespace adapters::qt
