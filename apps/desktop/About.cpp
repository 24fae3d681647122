#include "About.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QFileInfo>

#include "adapters/qt/Convert.h"
#include "apps/about/About.h"
#include "apps/connection/Connections.h"

namespace desktop {

using adapters::qt::ToQString;
using adapters::qt::ToUtf8;

namespace {

about::Facts FactsOf(const std::string& office) {
  about::Facts facts{.program = "promoter-desktop",
                     .toolkit = std::string("Qt ") + qVersion(),
                     .office = office,
                     .notices = {}};
  if (office.starts_with(connection::kEmbedded)) {
    const QFileInfo file(ToQString(office.substr(connection::kEmbedded.size())));
    facts.office = ToUtf8(file.absoluteFilePath());
  }
  const QFileInfo notices(QCoreApplication::applicationDirPath() +
                          QStringLiteral("/../share/doc/promoter-desktop/THIRD-PARTY-NOTICES"));
  if (notices.exists()) facts.notices = ToUtf8(notices.canonicalFilePath());
  return facts;
}

}  // namespace

void OfferAbout(QWidget& window, controls::Screen& screen, adapters::qt::ErrorGuard& guard,
                const std::string& office) {
  auto* const about = new QAction(ToQString(std::string(about::kTitle)), &window);
  about->setShortcut(Qt::Key_F1);
  QObject::connect(about, &QAction::triggered, &window, [&screen, &guard, office] {
    guard.Run([&] { about::Show(screen, FactsOf(office)); });
  });
  window.addAction(about);
  // What is worked by the mouse has its own use for the right button, a menu or marks.
  for (auto* pane : window.findChildren<QAbstractScrollArea*>()) {
    if (pane->focusPolicy() != Qt::NoFocus) pane->setContextMenuPolicy(Qt::PreventContextMenu);
  }
  window.setContextMenuPolicy(Qt::ActionsContextMenu);
}

}  // namespace desktop
