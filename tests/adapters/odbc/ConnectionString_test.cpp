#include "adapters/odbc/ConnectionString.h"

#include "adapters/odbc/Utf16.h"
#include "platform/RuntimeError.h"
#include "support/Tables.h"

namespace adapters::odbc {
namespace {

using Given = std::vector<std::string>;

const std::map<std::string, Installed> kMachines{
    {"nothing", {}},
    {"freetds",
     {{{"SQLite3", "libsqlite3odbc.so"}, {"FreeTDS", "libtdsodbc.so"}},
      {{"office", "FreeTDS"}, {"files", "SQLite3"}}}},
    {"microsoft",
     {{{"ODBC Driver 9 for SQL Server", ""},
       {"FreeTDS", "libtdsodbc.so"},
       {"ODBC Driver 18 for SQL Server", ""}},
      {}}},
    // Known by its library.
    {"renamed", {{{"Office SQL", "/opt/libtdsodbc.so"}}, {}}}};

std::string StringOf(const Given& given) {
  try {
    return OdbcConnectionString(given.at(1), kMachines.at(given[0]));
  } catch (const platform::RuntimeError& error) {
    return std::to_string(error.Number()) + " " + error.Description();
  }
}

TEST(ConnectionString, EachKind_isReadAsWrittenDown) {
  support::ExpectTable(
      "tests/adapters/odbc/strings.txt",
      {{"OdbcConnectionString", StringOf},
       {"SqlServerDriver",
        [](const Given& given) { return SqlServerDriver(kMachines.at(given[0])); }},
       {"ConnectTimeout", [](const Given& given) {
          const auto timeout = ConnectTimeout(given[0]);
          return timeout ? std::to_string(timeout->count()) : "none";
        }}});
}

TEST(Utf16, Text_goesThereAndBackAndBrokenTextIsReplaced) {
  std::string text;
  AppendUtf8(text, Utf16{'a', 0xE9, 0x200C, 0x64A, 0xD83D, 0xDE00, 0, 0xD83D, 'x', 0xDE00});
  EXPECT_EQ(text, std::string("aé\u200Cي😀\0\uFFFDx\uFFFD", 20));
  EXPECT_EQ(ToUtf16("aé\u200Cي😀"), (Utf16{'a', 0xE9, 0x200C, 0x64A, 0xD83D, 0xDE00, 0}));
  EXPECT_EQ(ToUtf16("\xF0\x9F\x98z"), (Utf16{0xFFFD, 0xFFFD, 0xFFFD, 'z', 0}));
  EXPECT_EQ(ToUtf8({'a', 'b', 0, 'c'}, 4), "ab");
  EXPECT_EQ(ToUtf8({'a', 'b'}, 7), "ab");
}

}  // namespace
}  // namespace adapters::odbc
