#include "adapters/odbc/ConnectionString.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "adapters/odbc/Utf16.h"
#include "support/ErrorNumber.h"

namespace adapters::odbc {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const Installed kNothing;
const Installed kFreeTds{{{"SQLite3", "libsqlite3odbc.so"}, {"FreeTDS", "libtdsodbc.so"}},
                         {{"office", "FreeTDS"}, {"files", "SQLite3"}}};
const Installed kMicrosoft{{{"ODBC Driver 9 for SQL Server", ""},
                            {"FreeTDS", "libtdsodbc.so"},
                            {"ODBC Driver 18 for SQL Server", ""}},
                           {}};
const std::string kUtf8Words = "TDS_Version=7.4;ClientCharset=UTF-8";

TEST(ConnectionString, OleDbString_isReadIntoTheDriversWords) {
  const std::tuple<const Installed&, std::string, std::string> cases[] = {
      {kFreeTds,
       "Provider=SQLOLEDB.1;Password=p;Persist Security Info=True;User ID=sa;Initial "
       "Catalog=Suite;Data Source=server;Auto Translate=True;Workstation ID=W;Application Name=A",
       "SERVER=server;PORT=1433;DATABASE=Suite;UID=sa;PWD=p;APP=A;WSID=W;"},
      {kFreeTds, " provider = sqlncli11 ;SERVER=s,1500 ; uid=u;PWD= two words ;database=d;;",
       "SERVER=s;PORT=1500;DATABASE=d;UID=u;PWD=two words;"},
      {kFreeTds,
       "Provider=MSOLEDBSQL;Address=tcp:s\\inst,1500;Packet Size=8192;User ID=a;user id=b",
       "SERVER=s;PORT=1500;UID=b;PacketSize=8192;"},
      {kFreeTds, "Provider=SQLOLEDB;Data Source=s\\inst;Integrated Security=SSPI;User ID=u",
       "SERVER=s\\inst;Trusted_Connection=yes;"},
      {kFreeTds, "Provider=SQLOLEDB;Data Source=(local)\\i;Use Encryption for Data=True",
       "SERVER=localhost\\i;Encryption=require;"},
      {kFreeTds, "Provider=SQLOLEDB;Data Source=.;Password=\"a;\"\"b'\";User ID='x=''y'",
       "SERVER=localhost;PORT=1433;UID={x='y};PWD={a;\"b'};"},
      {kFreeTds, "Provider=SQLOLEDB;Data Source=s;Password=' {}';User ID=سارا",
       "SERVER=s;PORT=1433;UID=سارا;PWD={ {}};"},
      {kMicrosoft, "Provider=SQLOLEDB;Data Source=s\\i,1500;Password=a}b;Packet Size=1",
       "SERVER=s,1500;PWD={a}}b};Encrypt=no"},
      {kMicrosoft,
       "Provider=SQLOLEDB;Server=s\\i;Trusted_Connection=yes;Use Encryption for Data=1;"
       "Trust Server Certificate=yes",
       "SERVER=s\\i;Trusted_Connection=yes;Encrypt=yes;TrustServerCertificate=yes"},
      {kMicrosoft, "Provider=SQLOLEDB;Server=s;Password='x};y;DSN=z'",
       "SERVER=s;PWD={x}};y;DSN=z};Encrypt=no"},
  };
  for (const auto& [installed, given, expected] : cases) {
    const bool isFreeTds = &installed == &kFreeTds;
    std::string whole = isFreeTds ? "DRIVER={FreeTDS};" : "DRIVER={ODBC Driver 18 for SQL Server};";
    whole.append(expected).append(isFreeTds ? kUtf8Words : "");
    EXPECT_EQ(OdbcConnectionString(given, installed), whole);
  }
  EXPECT_EQ(ConnectTimeout("Provider=SQLOLEDB;Connect Timeout=7"), std::chrono::seconds(7));
  EXPECT_EQ(ConnectTimeout("Provider=SQLOLEDB;Connect Timeout=0"), std::nullopt);
  EXPECT_EQ(ConnectTimeout("DSN=x;Connect Timeout=7"), std::nullopt);
}

TEST(ConnectionString, OdbcString_isKeptButForWhatFreeTdsNeeds) {
  const std::pair<std::string, std::string> cases[] = {
      {"Driver={FreeTDS};Server=s;PWD={a;b}}c};", kUtf8Words},
      {"driver=/usr/lib/odbc/libtdsodbc.so;Server=s", ";" + kUtf8Words},
      {"DSN=office;UID=u;tds_version=7.3", ";ClientCharset=UTF-8"},
      {"Driver=FreeTDS;ClientCharset=UTF-8;TDS_Version=7.4", ""},
      {"Driver=FreeTDS;PWD={;TDS_Version=7.0;ClientCharset=X}", ";" + kUtf8Words},
      {"DSN=files;Database=FreeTDS", ""},
      {"DSN=unknown", ""},
      {"Driver={SQLite3};Database=/tmp/x y.db", ""},
      {"Driver=FreeTDS;PWD={x;Provider=SQLOLEDB}", ";" + kUtf8Words},
  };
  for (const auto& [given, added] : cases)
    EXPECT_EQ(OdbcConnectionString(given, kFreeTds), std::string(given).append(added));
  // A driver registered under another name is known by its library.
  const Installed renamed{{{"Office SQL", "/opt/libtdsodbc.so"}}, {}};
  EXPECT_EQ(OdbcConnectionString("Driver=office sql", renamed), "Driver=office sql;" + kUtf8Words);
  EXPECT_EQ(SqlServerDriver(renamed), "Office SQL");
}

TEST(ConnectionString, StringWithoutAServerOrDriver_isRefusedWithoutItsPassword) {
  const std::tuple<const Installed&, std::string, std::string> cases[] = {
      {kFreeTds, "", "Driver=, DSN= or Provider="},
      {kFreeTds, "Server=s;PWD=s3cret", "Driver=, DSN= or Provider="},
      {kFreeTds, "Provider=Microsoft.Jet.OLEDB.4.0;Password=s3cret", "Microsoft.Jet.OLEDB.4.0"},
      {kFreeTds, "Provider=SQLOLEDB;Initial Catalog=x;Password=s3cret", "Data Source"},
      {kFreeTds, "Provider=SQLOLEDB;Data Source=s;Password='s3cret};x'", "};"},
      {kNothing, "Provider=SQLOLEDB;Data Source=s;Password=s3cret", "tdsodbc"},
  };
  for (const auto& [installed, given, words] : cases) {
    const auto refused = support::FailureOf([&] { OdbcConnectionString(given, installed); });
    EXPECT_EQ(refused.Number(), 3706) << given;
    EXPECT_THAT(refused.Description(), AllOf(HasSubstr(words), Not(HasSubstr("s3cret"))));
  }
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
