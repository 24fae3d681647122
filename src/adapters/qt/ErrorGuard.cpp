#include "adapters/qt/ErrorGuard.h"

#include <QDebug>
#include <QMessageBox>

#include "adapters/qt/Convert.h"

namespace adapters::qt {

ErrorGuard::ErrorGuard()
    : screens::ErrorGuard(
          {.note =
               [](const std::string& technical) { qWarning().noquote() << ToQString(technical); },
           .lastResort =
               [](const screens::ErrorTexts& texts) {
                 QMessageBox::critical(nullptr, ToQString(texts.title),
                                       ToQString(texts.sentence + "\n\n" + texts.technical));
               }}) {}

}  // namespace adapters::qt
