// All statements that the module sends: recorded on a run through every form, compared with the
// texts in the sources and with the server's document, and written to a file for other engines.

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>

#include "ScriptedDay.h"
#include "text/Text.h"

namespace module {
namespace {

using Names = std::set<std::string>;

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  EXPECT_TRUE(text << in.rdbuf()) << path;
  return text.str();
}

std::string Lowered(std::string text) {
  std::ranges::transform(text, text.begin(), [](char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  });
  return text;
}

/// The string literals of a C++ source as the compiler reads them, adjoining ones as one.
std::vector<std::string> StringLiterals(const std::string& source) {
  static const std::regex token(R"re(//[^\n]*|'(?:\\.|[^'\\])'|"((?:\\.|[^"\\])*)"|[^\s])re");
  std::vector<std::string> literals;
  bool adjoins = false;
  for (std::sregex_iterator it(source.begin(), source.end(), token), end; it != end; ++it) {
    if (it->str().starts_with("//")) continue;
    const bool literal = it->str().starts_with('"');
    if (literal) {
      std::string read = text::Replace((*it)[1].str(), "\\\"", "\"");
      adjoins ? literals.back().append(read) : literals.emplace_back(std::move(read));
    }
    adjoins = literal;
  }
  return literals;
}

/// The literals of every layer that builds statements.
const std::vector<std::string>& SourceTexts() {
  static const std::vector<std::string> texts = [] {
    std::vector<std::string> all;
    for (const char* layer : {"controls", "host", "tools", "batch", "search", "editor", "module"}) {
      for (const auto& entry : std::filesystem::directory_iterator("src/" + std::string(layer))) {
        std::ranges::copy(StringLiterals(ReadFile(entry.path())), std::back_inserter(all));
      }
    }
    return all;
  }();
  return texts;
}

/// What stands between backticks in one cell of the tables of a document's section.
Names DocumentedIn(std::size_t cell) {
  std::string section = ReadFile("docs/sql-server.md");
  section.erase(0, section.find("\n## What the module needs on the server\n") + 1);
  section.erase(section.find("\n## "));
  static const std::regex row(R"(\n\|([^|]*)\|([^|]*)\|)");
  static const std::regex name("`([^`]*)`");
  Names names;
  for (std::sregex_iterator it(section.begin(), section.end(), row), end; it != end; ++it) {
    const std::string text = (*it)[cell];
    for (std::sregex_iterator n(text.begin(), text.end(), name); n != end; ++n) {
      names.insert(Lowered((*n)[1]));
    }
  }
  return names;
}

Names Listed(const std::string& words) {
  std::istringstream in(words);
  return {std::istream_iterator<std::string>(in), {}};
}

class Statements : public ScriptedDay {
 protected:
  /// What the day has no use for; it reads and changes what the sample office comes with.
  void PlayTheRest() {
    Module().Control().View(1);  // final, with two accounting documents
    ReadSelectors(Editor());
    Editor().cmdViewAccountDoc.Click();
    EXPECT_GT(Editor().GetAssetGroupAccountID(1), 0);
    outside.components.WillAnswer({support::Answer::kYes});
    Editor().cmdBackToTemp.Click();
    EXPECT_EQ(Cell("SELECT count(*) FROM tblAccountDocumentDetail WHERE FormTypeID = 3308 AND "
                   "FormID = 1"),
              "0");
    SearchByEverySelectorAndByNone();
    AddVisitsWithoutNotes();
  }

  void ReadSelectors(controls::Container& on) {
    for (controls::Control* control : on.Controls()) {
      if (auto* selector = dynamic_cast<controls::Selector*>(control)) {
        selector->Select(1);
        EXPECT_FALSE(selector->DisplayText().empty()) << selector->Name();
        selector->LoadList();
        EXPECT_FALSE(selector->List().empty()) << selector->Name();
      } else if (auto* frame = dynamic_cast<controls::Frame*>(control)) {
        ReadSelectors(*frame);
      }
    }
  }

  void SearchByEverySelectorAndByNone() {
    outside.components.WillAnswer({support::Answer::kYes});
    outside.screen.OnModalForm<search::FormSearch>([this](search::FormSearch& form) {
      ReadSelectors(form);
      form.cmdSearch.Click();
      form.cmdNewsearch.Click();
      form.sltPromoter.Clear();
      form.cmdSearch.Click();
      EXPECT_EQ(form.flxSearch.Rows(), 1001);
      form.cmdExit.Click();
    });
    Editor().cmdSearch.Click();
  }

  void AddVisitsWithoutNotes() {
    Module().Control().View(14);  // temporary, without visits
    outside.components.WillAnswer({support::Answer::kYes});
    outside.screen.OnModalForm<batch::FormAddBatch>([this](batch::FormAddBatch& form) {
      ReadSelectors(form);
      for (controls::Selector* filter :
           {&form.sltCustomer, &form.sltBranch, &form.sltWorkActivity}) {
        filter->Clear();
      }
      form.sltPromoter.Select(promoter);
      form.flxRegion.cmdSelectAll.Click();
      form.flxPath.cmdSelectAll.Click();
      form.cmdSearch.Click();
      form.flxCustomer.cmdSelectAll.Click();
      form.flxDate.Flex.MouseDown(1, 0, 1, 0);
      form.cmdAdd.Click();
    });
    Editor().cmdAddBatch.Click();
    EXPECT_EQ(Editor().flxDetail.Rows(), 2);
  }

  /// Every word of the statements outside their literals, in lower case.
  Names Words() const {
    static const std::regex piece(R"('[^']*'|([A-Za-z_]\w*))");
    Names words;
    for (const std::string& each : sentStatements) {
      for (std::sregex_iterator it(each.begin(), each.end(), piece), end; it != end; ++it) {
        if ((*it)[1].matched) words.insert(Lowered((*it)[1]));
      }
    }
    return words;
  }
};

TEST_F(Statements, EveryFormPlayed_SentIsAllThatTheSourcesHold) {
  PlayTheDay();
  PlayTheRest();
  if (const char* file = std::getenv("DISTPROMOTER_STATEMENTS")) {
    std::ofstream out(file, std::ios::binary);
    for (const std::string& each : sentStatements) out << each << "\ngo\n";
    EXPECT_TRUE(out.flush()) << file;
  }

  static const std::regex fragment(
      R"(\s*,?\s*\(?(select|insert|update|delete|top|from|where|and|order by|group by|values|set|)"
      R"(inner|left|ltrim|substring|row_number|dbo\.|id (in|as))\b[^]*)",
      std::regex::icase);
  std::vector<std::string> openings;
  for (const std::string& literal : SourceTexts()) {
    if (!std::regex_match(literal, fragment)) continue;
    EXPECT_TRUE(std::ranges::any_of(sentStatements,
                                    [&](const std::string& sent) {
                                      return sent.find(literal) != std::string::npos;
                                    }) ||
                calledProcedures.contains(literal))
        << "no run sends: " << literal;
    openings.push_back(literal);
  }
  for (const std::string& sent : sentStatements) {
    EXPECT_TRUE(std::ranges::any_of(openings,
                                    [&](const std::string& opening) {
                                      return opening.size() >= 6 && sent.starts_with(opening);
                                    }))
        << "begins with no text of the sources: " << sent;
  }
}

TEST_F(Statements, EveryFormPlayed_DocumentTellsEveryObjectAndColumn) {
  PlayTheDay();
  PlayTheRest();
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
  Names used = words;  // columns of "select *" are named only where they are read
  for (const std::string& text : SourceTexts()) used.insert(Lowered(text));
  for (const std::string& name : calledProcedures) {
    used.insert(Lowered(text::Replace(name, "dbo.", "")));
  }
  for (const Names& documented : {objects, columns}) {
    for (const std::string& name : documented) {
      EXPECT_TRUE(used.contains(name)) << "in docs/sql-server.md, but of no use: " << name;
    }
  }
  for (const std::string& name : calledProcedures) {
    EXPECT_TRUE(objects.contains(Lowered(text::Replace(name, "dbo.", "")))) << name;
  }
}

}  // namespace
}  // namespace module
