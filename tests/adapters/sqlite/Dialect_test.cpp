#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>
#include <utility>

#include "adapters/sqlite/Office.h"

namespace adapters::sqlite {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;

TEST(Dialect, Query_returnsWhatTheServerWould) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"select 1", "1"},
      {"SELECT 'it''s', N'متن', ''", "it's|متن|"},
      {"select top 1 ID from tblEmployee order by ID desc", "9"},
      {"select distinct PromoterID from tblDistributionPromoterProgramDetail order by 1", "7\n8"},
      {"select all count(*), count(distinct PromoterID), min(CustomerID), sum(Sequence) "
       "from tblDistributionPromoterProgramDetail",
       "3|2|5|6"},
      // The joining of texts.
      {"select 'a'+'b'+'c'", "abc"},
      {"select Name+Name from tblEmployee where ID=9", "بهاربهار"},
      {"select isnull(FirstName,'')+' '+isnull(Name,'') from tblOrganization",
       "رضا کاظمی\n نیک‌پی"},
      // Pieces of one value: of each row's own, by characters, also where the value ends early.
      {"select substring(convert(varchar,ID),1,1)+'/'+substring(convert(varchar,ID),2,1)+'.' from "
       "dbo.fnZomirStringToTable('12,12,34,5') d",
       "1/2.\n1/2.\n3/4.\n5/."},
      {"select '<'+substring(convert(varchar,Name),2,2)+'>'+substring(convert(varchar,Name),1,1) "
       "from tblEmployee where ID<9",
       "<اس>ی\n<رو>پ"},
      // Functions.
      {"select isnull(null,3), coalesce(null,null,'x'), len('سلام '), ltrim(rtrim('  a  '))",
       "3|x|4|a"},
      {"select convert(varchar(3),12345), convert(nvarchar,5), convert(int,'12')", "123|5|12"},
      {"select dbo.getEnglishDate('1403/12/30'), dbo.getEnglishDate(null)", "20250320|~"},
      {"select count(*) from dbo.fnZomirStringToTable('')", "0"},
      {"select ID, ROW_NUMBER() OVER(partition by PromoterID ORDER BY CustomerID DESC) as r from "
       "tblDistributionPromoterProgramDetail, tblEmployee where ID=PromoterID order by ID, r",
       "7|1\n7|2\n8|1"},
      // Conditions.
      {"select ID from tblEmployee where ID in (7,9) and not ID=7", "9"},
      {"select ID from tblEmployee where (ID<>7 and ID!=8) or (ID !> 7)", "7\n9"},
      {"select ID from tblOrganization where FirstName is null or Phone2 is not null", "6"},
      {"select ID from tblEmployee where Name like N'پ[ر]%' ", "8"},
      {"select ID from tblEmployee e where not exists(select pd.* from "
       "tblDistributionPromoterProgramDetail pd where pd.PromoterID=e.ID)",
       "9"},
      {"select CustomerID from tblDistributionPromoterProgramDetail group by CustomerID "
       "having count(*) > 1",
       "5"},
      // Joins and subqueries.
      {"select o.ID, p.ID from tblOrganization o left outer join tblDistributionOrganization do "
       "on o.ID=do.OrganizationID inner join tblDistributionPath p on p.ID=do.PathID",
       "5|11\n6|12"},
      // A value that only names a column of the outer query keeps the outer query's rows.
      {"select (select e.ID from tblZomirFormAction x) from tblEmployee e", "~\n~\n~"},
      // The order of texts is the Persian reader's: پ before ی.
      {"select Name from tblEmployee order by Name", "بهار\nپروین\nیاسر"},
      {"select ID as 'شماره', (select x.Name from tblEmployee x where x.ID=e.ID) as 'نام' "
       "from tblEmployee e order by 2 desc",
       "7|یاسر\n8|پروین\n9|بهار"},
      // Dates come out in the house's form, also through a view and a group.
      {"select CreateDate from tblDistributionPromoterProgram", "2025-03-21\n~"},
      {"select ID from tblDistributionPromoterProgram where CreateDate = '20250321'", "1"},
  };
  Office office;
  for (const auto& [statement, rows] : cases) {
    SCOPED_TRACE(statement);
    EXPECT_EQ(office.Rows(statement), rows);
  }
}

TEST(Dialect, ColumnNames_areTheAliasesAndTheServersTimeHasItsForm) {
  Office office;
  const auto rows = office.connection.Execute(
      "select ID, Name as 'نام مشتري', Code as [the code], 1 as \"x\"\"y\" from tblOrganization "
      "where ID=0");
  EXPECT_THAT(rows.Columns(), testing::ElementsAre("ID", "نام مشتري", "the code", "x\"y"));
  EXPECT_THAT(office.Rows("Select getdate() as today"),
              MatchesRegex("20[0-9][0-9]-[01][0-9]-[0-3][0-9] [0-2][0-9]:[0-5][0-9]:[0-5][0-9]"));
}

TEST(Dialect, RefusedStatement_reportsTheServersNumberAndChangesNothing) {
  const std::tuple<std::string_view, int, std::string_view> cases[] = {
      // What the dialect does not know is refused, never guessed.
      {"", 102, "''"},
      {"drop table tblEmployee", 156, "'drop'"},
      {"select 1 -- all", 102, "'--'"},
      {"select 'abc", 105, "'abc'"},
      {"select ?", 102, "'?'"},
      {"select @x", 137, "@x"},
      {"select ID from tblEmployee where ID", 4145, ""},
      {"select ID from tblEmployee where ID=7=7", 102, "'='"},
      {"select case when 1=1 then 1 end", 156, "'case'"},
      {"select top 5 percent ID from tblEmployee", 156, "'percent'"},
      {"select substring('abc',0,2)", 102, "'0'"},
      {"select convert(varchar,ID,112) from tblEmployee", 102, "','"},
      {"select randomblob(9)", 195, "'randomblob'"},
      {"select ID from dbo.fnZomirStringToTable('1','2') x", 8144, "fnZomirStringToTable"},
      {"select name from sqlite_master", 208, "'sqlite_master'"},
      {"select 'a'+1", 245, ""},
      {"select (select ID, Name from tblEmployee)", 116, ""},
      {"insert into tblEmployee default values", 156, "'default'"},
      {"insert into tblEmployee(ID, Name) values (1,'a') on conflict do nothing", 156, "'on'"},
      {"update tblEmployee set Name='a' from tblOrganization", 156, "'from'"},
      // What it knows fails as on the server.
      {"select ID from tblNowhere", 208,
       "office #1%.db\u202C» جدول، نما، تابع يا روالي را كه خواسته شد ندارد. نام و نسخه پايگاه "
       "داده را بررسي كنيد.\n\u202AInvalid object name 'tblNowhere'. ("},
      {"select Nothing from tblEmployee", 207,
       "بررسي كنيد.\n\u202AInvalid column name 'Nothing'. ("},
      {"select ID from tblEmployee, tblOrganization", 209, "Ambiguous column name 'ID'."},
      {"insert into tblEmployee(ID, Name) values (1, null)", 515, "'tblEmployee.Name'"},
      {"insert into tblOrganization(Code) values ('105')", 2627, "tblOrganization.Code"},
      {"delete tblDistributionPromoterProgram Where ID=1", 547, "FOREIGN KEY"},
      {"insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, CustomerID) "
       "values (99, 1, 1)",
       547, "FOREIGN KEY"},
      {"select dbo.getEnglishDate('1403/13/40')", 241, "'1403/13/40'"},
      {"select ID from dbo.fnZomirStringToTable('1,x') d", 245, "'x'"},
      {"select (select ID from tblEmployee)", 512, "more than 1 value"},
      // Notes that end their own literal.
      {"update tblDistributionPromoterProgram Set Notes='it's', Code=NULL", 105, "', Code=NULL'"},
      {"update tblDistributionPromoterProgram Set Notes=''', Code=NULL", 105, ""},
      {"update tblEmployee Set Name='x' Where ID=7 --'", 102, "'--'"},
      {"update tblEmployee Set Name='x'; delete tblEmployee where '1'='1'", 156, "'delete'"},
      // A row that fails takes the rows before it with it.
      {"insert into tblEmployee(ID, Name) values (20,'a'), (21,'b'), (7,'c')", 2627, ""},
      {"insert into tblEmployee(ID, Name) select d.ID, "
       "dbo.getEnglishDate(convert(varchar,d.ID)+'/01/01') "
       "from dbo.fnZomirStringToTable('1403,1404,99999') d",
       241, ""},
  };
  Office office;
  const std::string employees = office.Rows("select * from tblEmployee");
  for (const auto& [statement, number, words] : cases) {
    try {
      office.connection.Execute(statement);
      ADD_FAILURE() << statement;
    } catch (const platform::RuntimeError& error) {
      EXPECT_EQ(error.Number(), number) << statement << "\n" << error.what();
      EXPECT_THAT(error.Description(), HasSubstr(std::string(words))) << statement;
    }
  }
  EXPECT_EQ(office.Rows("select * from tblEmployee"), employees);
}

TEST(Dialect, DeepNesting_isRefused) {
  Office office;
  for (const std::string_view opening : {"(", "not ", "len(", "(select "}) {
    std::string statement = "select ";
    for (int i = 0; i < 100000; ++i) statement += opening;
    EXPECT_EQ(office.ErrorOf(statement), 191) << opening;
  }
}

TEST(Dialect, ScopeIdentity_isTheIdOfThisConnectionsLastRow) {
  Office office;
  const auto identity = [&] { return office.Rows("Select SCOPE_IDENTITY() as newID"); };
  const auto insert = [&] {
    return office.ErrorOf("insert into tblDistributionPromoterProgram (Notes) values (null)");
  };
  EXPECT_EQ(identity(), "~");
  EXPECT_EQ(insert(), 0);
  EXPECT_EQ(identity(), "3");

  SqliteConnection other(office.ConnectionString());
  EXPECT_EQ(Lines(other.Execute("select scope_identity()")), "~");
  other.Execute("insert into tblDistributionPromoterProgram (Notes) values (null)");
  EXPECT_EQ(identity(), "3");

  // Neither a table without identity, nor a statement that failed or found no rows, moves it.
  office.connection.Execute(
      "insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, CustomerID) "
      "values (1, 7, 6)");
  EXPECT_EQ(office.ErrorOf("insert into tblEmployee(ID, Name) values (30,'a'), (7,'b')"), 2627);
  office.connection.Execute(
      "insert into tblEmployee(Name) select Name from tblEmployee where ID=0");
  EXPECT_EQ(identity(), "3");
  EXPECT_EQ(insert(), 0);
  EXPECT_EQ(identity(), "5");
}

}  // namespace
}  // namespace adapters::sqlite
