#include "adapters/windows/Desktop.h"

#include <gmock/gmock.h>

#include <fstream>
#include <memory>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/windows/ComComponents.h"
#include "adapters/windows/ComExcel.h"
#include "adapters/windows/Found.h"
#include "adapters/windows/Loop.h"
#include "adapters/windows/PageLetters.h"
#include "adapters/windows/ScriptingFileSystem.h"
#include "adapters/windows/StandIn.h"
#include "adapters/windows/WinReports.h"
#include "adapters/windows/WinScreen.h"
#include "contract/FileContract.h"
#include "support/ErrorNumber.h"
#include "support/FakeProgress.h"

std::unique_ptr<platform::FileSystem> contract::MakeFileSystem() {
  return std::make_unique<adapters::windows::ScriptingFileSystem>();
}

namespace adapters::windows {
namespace {

using platform::AutomationValue;
using support::NumberOf;
using test::ShownWindows;
using testing::ElementsAre;

TEST(ComComponents, Members_TakeAndGiveValuesOfEveryKind) {
  std::vector<std::string> log;
  const Component registered("comNotice.comNTC", [&] {
    const auto notice = StandIn::Make();
    notice->On("FormType=", [&](const StandIn::Arguments& value) {
      log.push_back(std::to_string(value.at(0).Type()) + " " + value[0].Text());
    });
    notice->On("ClearShow", [&](const StandIn::Arguments& a) {
      log.push_back(a.at(0).Text() + " " + a.at(1).Text());
      return a.at(1);
    });
    Variant small;
    small.Out()->vt = VT_I2;
    notice->On("Resualt", small).On("Nothing", Variant::Null());
    notice->On("Fails", []() -> Variant { throw platform::RuntimeError(380, "Bad", "comNTC"); });
    return Variant(notice.Get());
  });
  ComComponents components;
  const auto notice = components.Create("comNotice.comNTC");
  for (const AutomationValue& value : {AutomationValue{}, AutomationValue{true}, AutomationValue{7},
                                       AutomationValue{2.5}, AutomationValue{"كي"}}) {
    notice->Put("FormType", value);
  }
  const AutomationValue arguments[] = {"first", std::int32_t{2}};
  EXPECT_EQ(notice->Call("ClearShow", arguments), AutomationValue(2));
  EXPECT_THAT(log, ElementsAre("0 ", "11 -1", "3 7", "5 2.5", "8 كي", "first 2"));
  EXPECT_EQ(notice->Get("Resualt"), AutomationValue(0));
  EXPECT_EQ(notice->Get("Nothing"), AutomationValue());
  EXPECT_EQ(NumberOf([&] { notice->Get("NoSuchMember"); }), platform::kNoSuchMember);
  EXPECT_EQ(NumberOf([&] { notice->Call("Fails"); }), 380);
  EXPECT_EQ(NumberOf([&] { components.Create("com.Unknown"); }), platform::kCannotCreateComponent);
}

TEST(ComExcel, Cells_ArePutOneByOneAndNoneBecomesAFormula) {
  std::vector<std::string> log;
  int busy = 0;
  const Component registered("Excel.Application", [&] { return Recorder(log, "", &busy); });
  ComExcel excel;
  const auto application = excel.CreateApplication();
  application->AddWorkbook();
  application->SetVisible(true);
  busy = 2;
  const std::vector<std::string> texts = {"گ", "-12.5", " -7", "", "a=1", " b", "12", "1404/02/01"};
  const std::vector<std::string> signs = {
      "=1+1",     "+98", "@x",   "-1+1",    "-",        "- 5",
      "--5",      "'a",  "\t=1", "\r\n +1", "\u00A0@x", "\u200E\uFEFF=1",
      "\u3000-x", "＝1", "＋1",  "－1",     "＠x",      " ＝1"};
  std::vector<std::string> expected = {"Workbooks.Add()", "Visible=-1"};
  int column = 0;
  for (const auto* const kind : {&texts, &signs}) {
    for (const std::string& text : *kind) {
      application->SetCell(3, ++column, text);
      expected.push_back("Workbooks(1).Worksheets(1).Cells(3," + std::to_string(column) +
                         ").Value=" + (kind == &signs ? "'" : "") + text);
    }
  }
  EXPECT_EQ(log, expected);
}

TEST(ComExcel, Application_ThatIsNotThere_IsToldAs429) {
  // Without a name, and with the name alone that a removal left.
  const wchar_t left[] = L"{00024500-0000-0000-C000-000000000046}";
  for (const bool named : {false, true}) {
    if (named) {
      RegSetKeyValueW(HKEY_CLASSES_ROOT, L"Excel.Application\\CLSID", nullptr, REG_SZ, left,
                      sizeof left);
    }
    try {
      ComExcel().CreateApplication();
      ADD_FAILURE() << named;
    } catch (const platform::RuntimeError& error) {
      EXPECT_EQ(error.Number(), platform::kCannotCreateComponent);
      EXPECT_EQ(error.Description(), "ActiveX component can't create object: Excel.Application");
    }
  }
  RegDeleteTreeW(HKEY_CLASSES_ROOT, L"Excel.Application");
}

TEST(Services, SmallOnes_DoAsWindowsDoes) {
  EXPECT_EQ(WindowsFilter("Text|*.txt|All|*.*"), std::wstring(L"Text\0*.txt\0All\0*.*\0\0", 20));
  EXPECT_EQ(WindowsFilter("فايل متني"), std::wstring(L"فايل متني\0*.*\0\0", 15));
  EXPECT_EQ(NumberOf([] { WinDesktop().Start("\"no such program.exe\" /s"); }), 53);
  EXPECT_EQ(NumberOf([] { WinDesktop().Start("cmd.exe /c exit"); }), 0);
  EXPECT_GE(WinDesktop().GetVersion() & 0xFFU, 5U);
}

TEST(SaveDialog, ExistingFile_IsGivenWithoutAQuestion) {
  const support::TestFolder folder;
  const std::string path = folder.File("ليست.txt");
  std::ofstream(folder.Path() / L"ليست.txt") << "x";
  // The dialog's Save; should a question come up, it and the dialog are given up.
  const auto press = [](std::initializer_list<int> buttons) {
    for (const int button : buttons) {
      for (const HWND each : ShownWindows()) PostMessageW(each, WM_COMMAND, button, 0);
    }
  };
  const ULONGLONG begun = GetTickCount64();
  const auto after = [begun](ULONGLONG wait) {
    return [=] { return !ShownWindows().empty() && GetTickCount64() > begun + wait; };
  };
  Once(after(500), [&] { press({IDOK}); });
  Once(after(2000), [&] { press({IDNO, IDCANCEL}); });
  EXPECT_EQ(WinDesktop().ShowSave(path, "فايل متني"), path);
}

TEST(PageLetters, AreAsWideAtEverySize) {
  const PageLetters letters;
  const double width = letters.Width("برنامه بازارياب", {10, false});
  EXPECT_GT(width, 40);
  EXPECT_LT(width, 120);
  EXPECT_DOUBLE_EQ(letters.Width("برنامه بازارياب", {20, false}), 2 * width);
  EXPECT_GT(letters.Width("برنامه بازارياب", {10, true}), width);
  EXPECT_EQ(letters.Width("", {10, false}), 0);
  EXPECT_NEAR(letters.LineHeight({10, false}), 12, 2);
}

struct SqliteFactory : platform::ConnectionFactory {
  std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override {
    return std::make_unique<sqlite::SqliteConnection>(connectionString);
  }
};

TEST(WinReports, EngineOfTheSuite_IsUsedWhereTheRegistryNamesIt) {
  const WinDesktop desktop;
  const Theme theme;
  ErrorGuard guard;
  WinScreen screen{guard, desktop, theme};
  support::FakeProgress progress;
  ScriptingFileSystem files;
  SqliteFactory connections;
  WinReports reports{connections, files, desktop, guard, theme, screen, progress};
  std::vector<std::string> log;
  constexpr const wchar_t* kKey = L"Software\\DistPromoterProg";
  RegSetKeyValueW(HKEY_CURRENT_USER, kKey, L"ReportEngine", REG_SZ, L"suite.Report", 26);
  EXPECT_EQ(NumberOf([&] { reports.Create(); }), platform::kCannotCreateComponent);
  const Component registered("suite.Report", [&] { return Recorder(log); });
  const auto engine = reports.Create();
  engine->LoadReportFile("a.rpt");
  engine->SetConnectionString("DSN=c;Statement Timeout=9");
  engine->SetSelectionFormula(1, "fmlID = 1");
  engine->Produce(platform::ReportOutput::kScreen);
  EXPECT_THAT(log, ElementsAre("LoadReportFile(a.rpt)", "SetConnectionString(DSN=c;)",
                               "SetSelectionFormula(1,fmlID = 1)", "Produce(1)"));
  RegDeleteKeyValueW(HKEY_CURRENT_USER, kKey, L"ReportEngine");
}

}  // namespace
}  // namespace adapters::windows
