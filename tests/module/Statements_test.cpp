// All statements that the module sends on a day through every form: compared whole with
// statements.sql and by their names with the server's document.

#include <algorithm>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

#include "module/Session.h"
#include "support/Approved.h"
#include "text/Text.h"

namespace module {
namespace {

using Names = std::set<std::string>;

/// What stands between backticks in one cell of the tables of a document's section.
Names DocumentedIn(std::size_t cell) {
  std::string section = support::Content("docs/sql-server.md");
  section.erase(0, section.find("\n## What the module needs on the server\n") + 1);
  section.erase(section.find("\n## "));
  static const std::regex row(R"(\n\|([^|]*)\|([^|]*)\|)");
  static const std::regex name("`([^`]*)`");
  Names names;
  for (std::sregex_iterator it(section.begin(), section.end(), row), end; it != end; ++it) {
    const std::string text = (*it)[cell];
    for (std::sregex_iterator n(text.begin(), text.end(), name); n != end; ++n) {
      names.insert(text::Small((*n)[1].str()));
    }
  }
  return names;
}

Names Listed(const std::string& words) {
  std::istringstream in(words);
  return {std::istream_iterator<std::string>(in), {}};
}

class Statements : public testing::Test {
 protected:
  Statements() { day.Replay("day"); }

  /// Every word of what was sent outside its literals, in lower case.
  Names Words() const {
    static const std::regex piece(R"('[^']*'|([A-Za-z_]\w*))");
    Names words;
    for (const auto& [step, sent] : day.sent) {
      for (const std::string& each : sent) {
        if (each.starts_with("calls ")) continue;
        for (std::sregex_iterator it(each.begin(), each.end(), piece), end; it != end; ++it) {
          if ((*it)[1].matched) words.insert(text::Small((*it)[1].str()));
        }
      }
    }
    return words;
  }

  Session day;
};

TEST_F(Statements, EveryFormPlayed_SendsWhatIsWrittenDown) {
  std::string texts;
  for (const auto& [step, sent] : day.sent) {
    if (!sent.empty()) texts += "-- " + step + "\n";
    for (const std::string& each : sent) {
      texts += each.starts_with("calls ") ? "-- " + each + "\n" : each + "\ngo\n";
    }
  }
  support::ExpectApproved("tests/module/statements.sql", texts);
}

TEST_F(Statements, EveryFormPlayed_DocumentTellsEveryObjectAndColumn) {
  // The server's own words, and the names that the statements give for themselves.
  const Names others = Listed(
      "and as asc by convert count delete dbo distinct exists from getdate group in "
      "inner insert into isnull join left like ltrim not null on order outer over replace "
      "row_number rtrim scope_identity select set substring top update values varchar where "
      "ac arow cnt d do installdirectory newid o p pathname pd promotername r regionname today w "
      "workactivityname x");
  const Names words = Words();
  const Names objects = DocumentedIn(1);
  const Names columns = DocumentedIn(2);
  for (const std::string& word : words) {
    EXPECT_TRUE(objects.contains(word) || columns.contains(word) || others.contains(word))
        << "not in docs/sql-server.md: " << word;
  }
  for (const std::string& word : others) EXPECT_TRUE(words.contains(word)) << word;
  Names used = words;
  used.merge(
      Listed("filepath title spzomirhaspermission spzomirinsertformaction"));  // read, called
  for (const Names& documented : {objects, columns}) {
    for (const std::string& name : documented) {
      EXPECT_TRUE(used.contains(name)) << "in docs/sql-server.md, but of no use: " << name;
    }
  }
}

}  // namespace
}  // namespace module
