// All statements that the module sends: recorded on a run through every form, compared whole with
// statements.sql and by their names with the server's document.

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

#include "calendar/Gregorian.h"
#include "module/OfficeDay.h"
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

class Statements : public testing::Test {
 protected:
  Statements() {
    day.Play();
    PlayTheRest();
    for (const OfficeDay::Action& action : day.actions) {
      sent.insert(sent.end(), action.sent.begin(), action.sent.end());
    }
  }

  /// What the day has no use for.
  void PlayTheRest() {
    editor::FormMain& editor = day.Editor();
    day.Control().ClearShow();
    editor.cmdNew.Click();
    ReadSelectors(editor);
    editor.txtDescription.SetText("برنامه");
    editor.cmdTempSave.Click();
    std::string customer;
    day.outside.screen.OnModalForm<batch::FormAddBatch>([&](batch::FormAddBatch& form) {
      ReadSelectors(form);
      form.sltPromoter.Choose(0);
      for (tools::comFlex* grid : {&form.flxRegion, &form.flxPath}) grid->cmdSelectAll.Click();
      customer = FindOneCustomer(form);
      form.flxCustomer.cmdSelectAll.Click();
      form.flxDate.Flex.MouseDown(1, 0, 1, 0);
      form.txtNotes.SetText("");  // the day's are kept
      form.cmdAdd.Click();
    });
    editor.cmdAddBatch.Click();
    ASSERT_EQ(editor.flxDetail.Rows(), 2);
    EXPECT_THAT(day.actions.back().sent,
                testing::Contains(testing::HasSubstr(", o.ID, null, ROW_NUMBER()")));
    day.outside.screen.OnModalForm<search::FormSearch>([&](search::FormSearch& form) {
      ReadSelectors(form);
      form.txtID.SetText(editor.txtID.Text());
      form.sltProgram.Select(std::stoi(editor.txtID.Text()));
      form.sltPromoter.Select(std::stoi(std::string(editor.flxDetail.TextMatrix(1, 1))));
      form.sltCustomer.Select(std::stoi(customer));
      form.txtDescription.SetText("نام");
      form.datCreateDate.SetText(editor.datToday.Text());
      form.datVisit.SetText(std::string(editor.flxDetail.TextMatrix(1, 4)));
      form.cmdSearch.Click();
      EXPECT_EQ(form.flxSearch.Rows(), 2);
      form.sltCustomer.Clear();
      form.cmdSearch.Click();
    });
    editor.cmdSearch.Click();
  }

  static void ReadSelectors(controls::Container& on) {
    for (controls::Control* control : support::AllControls(on)) {
      auto* selector = dynamic_cast<controls::Selector*>(control);
      if (selector == nullptr) continue;
      selector->Select(1);
      EXPECT_FALSE(selector->DisplayText().empty()) << selector->Name();
      selector->LoadList();
      EXPECT_FALSE(selector->List().empty()) << selector->Name();
    }
  }

  /// By every filter at once; the id.
  std::string FindOneCustomer(batch::FormAddBatch& form) {
    for (controls::Selector* box : {&form.sltCustomer, &form.sltBranch, &form.sltWorkActivity}) {
      box->Clear();
    }
    form.cmdSearch.Click();
    const auto first = [&](int col) {
      return std::string(form.flxCustomer.Flex.TextMatrix(1, col));
    };
    form.txtCodeFrom.SetText(first(1));
    form.txtCodeTo.SetText(first(1));
    form.txtName.SetText(first(2));
    form.sltCustomer.Select(std::stoi(first(10)));
    form.sltBranch.Select(std::stoi(day.Cell(
        "SELECT BranchID FROM tblDistributionOrganization WHERE OrganizationID = " + first(10))));
    form.sltWorkActivity.Select(
        std::stoi(day.Cell("SELECT WorkActivityID FROM tblOrganization WHERE ID = " + first(10))));
    form.cmdSearch.Click();
    EXPECT_EQ(form.flxCustomer.Flex.Rows(), 2);
    return first(10);
  }

  /// Every word of what was sent outside its literals, in lower case.
  Names Words() const {
    static const std::regex piece(R"('[^']*'|([A-Za-z_]\w*))");
    Names words;
    for (const std::string& each : sent) {
      for (std::sregex_iterator it(each.begin(), each.end(), piece), end; it != end; ++it) {
        if ((*it)[1].matched) words.insert(Lowered((*it)[1]));
      }
    }
    return words;
  }

  OfficeDay day;
  std::vector<std::string> sent;  // in order
};

TEST_F(Statements, EveryFormPlayed_SendsWhatIsWrittenDown) {
  std::string texts;
  for (const OfficeDay::Action& action : day.actions) {
    std::string added;
    for (const std::string& each : action.sent) {
      added += IsProcedure(each) ? "-- calls " + each + "\n" : each + "\ngo\n";
    }
    if (!added.empty()) texts += "-- " + action.name + "\n" + added;
  }
  const controls::DateBox& today = day.Editor().datToday;
  texts = text::Replace(texts, calendar::GregorianLiteral(*today.Value()), "TODAY");
  texts = text::Replace(texts, today.Text(), "TODAY");
  constexpr const char* kFile = "tests/module/statements.sql";
  if (std::getenv("DISTPROMOTER_APPROVE") != nullptr) {
    EXPECT_TRUE(std::ofstream(kFile, std::ios::binary) << texts);
  }
  EXPECT_EQ(texts, ReadFile(kFile)) << "DISTPROMOTER_APPROVE=1 writes what is sent to " << kFile;
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
