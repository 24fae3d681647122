#include "apps/about/About.h"

#include <sqlite3.h>

#include "apps/version/Version.h"
#include "screens/MessageForm.h"
#include "text/Secrets.h"

namespace about {

void Show(controls::Screen& screen, const Facts& facts) {
  std::string text = "برنامه بازاريابان، نسخه ";
  text.append(version::Number());
  text += "\nپايگاه داده: «" + text::ShownConnection(facts.office) + "»";
  if (!facts.notices.empty()) text += "\nپروانه هاي كتابخانه ها: «" + facts.notices + "»";
  std::string technical = version::Line(facts.program);
  if (!facts.toolkit.empty()) technical += facts.toolkit + ", ";
  technical.append("SQLite ").append(sqlite3_libversion());
  screens::MessageForm(screen, {.title = std::string(kTitle),
                                .text = text,
                                .technical = technical,
                                .kind = screens::MessageKind::kInformation})
      .Ask();
}

}  // namespace about
