#include "adapters/qt/ErrorGuard.h"

#include <QDebug>

#include "adapters/qt/Convert.h"
#include "adapters/qt/MessageDialog.h"

namespace adapters::qt {

void ErrorGuard::Tell(const screens::ErrorTexts& texts) noexcept {
  MessageDialog::Content content;
  content.title = ToQString(texts.title);
  content.message = ToQString(texts.sentence);
  content.technical = ToQString(texts.technical);
  content.kind = MessageDialog::Kind::kError;
  qWarning().noquote() << content.technical;
  MessageDialog(content).Run();
}

}  // namespace adapters::qt
