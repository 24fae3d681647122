// What a person or a job types at the host's command line, and what comes of it.

#include <fstream>

#include "demo/PlainDatabase.h"
#include "desktop/Host.h"
#include "support/Approved.h"
#include "text/Text.h"

namespace {

/// The files of sessions/: a line that begins with "$" is a command of the shell, "sql" is done
/// past the host in office.db, "damage" spoils the page on which an index of a file begins. Below
/// it stand, indented, what came out and the status when it is not 0. All is done in a folder that
/// holds office.db and its templates.
class Sessions : public testing::TestWithParam<const char*> {
 protected:
  Sessions() {
    std::filesystem::copy("demo/templates", folder_.Path() / "templates");
    desktop::MakeOffice(folder_.File("office.db"), 60, folder_.File("templates/"));
  }
  std::string Do(const std::string& line) const {
    const std::string rest = line.substr(line.find(' ') + 1);
    if (line.starts_with("$ ")) {
      const desktop::Ended ended = desktop::Typed(folder_.Path().string(), rest);
      const std::string status =
          ended.status == 0 ? "" : "[" + std::to_string(ended.status) + "]\n";
      return ended.said + (ended.said.empty() || ended.said.ends_with('\n') ? "" : "\n") + status;
    }
    if (line.starts_with("sql ")) return demo::PlainDatabase(folder_.File("office.db")).Text(rest);
    if (line.starts_with("damage ")) Damage(folder_.File(rest));
    return {};
  }
  static void Damage(const std::string& name) {
    const std::string page = demo::PlainDatabase(name).Query(
        "SELECT rootpage FROM sqlite_schema WHERE name = 'ixPromoterProgramDetailGroup'")[0][0];
    std::fstream file(name, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp((std::stol(page) - 1) * 4096 + 8);
    file << std::string(2000, '\x5A');
  }

  support::TestFolder folder_;
};

TEST_P(Sessions, Commands_DoWhatIsWrittenDown) {
  const std::string file = std::string("tests/desktop/sessions/") + GetParam() + ".txt";
  std::istringstream approved(support::Content(file));
  std::string came;
  for (std::string line; std::getline(approved, line);) {
    if (line.starts_with("  ")) continue;
    std::istringstream said(text::Replace(Do(line), folder_.Path().string(), "FOLDER"));
    came += line + "\n";
    for (std::string each; std::getline(said, each);) came += "  " + each + "\n";
  }
  support::ExpectApproved(file, came);
}

INSTANTIATE_TEST_SUITE_P(Of, Sessions, testing::Values("connecting", "export", "replay", "upkeep"),
                         [](const auto& each) { return std::string(each.param); });

}  // namespace
