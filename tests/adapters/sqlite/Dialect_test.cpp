#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/sqlite/Office.h"
#include "adapters/sqlite/Translator.h"

namespace adapters::sqlite {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;

TEST(Dialect, Query_returnsWhatTheServerWould) {
  struct Case {
    std::string_view statement;
    std::string_view rows;
  };
  const Case cases[] = {
      {"select 1", "1"},
      {"SELECT 'it''s', N'متن', ''", "it's|متن|"},
      {"select 1;", "1"},
      {"select -1, 2.50", "-1|2.5"},
      {"select null", "~"},
      {"select top 1 ID from tblEmployee order by ID desc", "9"},
      {"Select  TOP 2 ID from dbo.tblEmployee order by ID", "7\n8"},
      {"select top (1) x.ID from [dbo].[tblEmployee] as x", "7"},
      {"select distinct PromoterID from tblDistributionPromoterProgramDetail order by 1", "7\n8"},
      {"select all count(*), count(distinct PromoterID), min(CustomerID), sum(Sequence) "
       "from tblDistributionPromoterProgramDetail",
       "3|2|5|6"},
      // The joining of texts.
      {"select 'a'+'b'+'c'", "abc"},
      {"select 1+2", "3"},
      {"select 'a'+null", "~"},
      {"select Name+Name from tblEmployee where ID=9", "بهاربهار"},
      {"select ID+ID from tblEmployee where ID=9", "18"},
      {"select Code+Name+'x' from tblOrganization where ID=5", "105کاظمیx"},
      {"select isnull(FirstName,'')+' '+isnull(Name,'') from tblOrganization",
       "رضا کاظمی\n نیک‌پی"},
      {"select substring(convert(varchar,14040102),1,4)+'/'+substring('abc',2,9)", "1404/bc"},
      // Pieces of one value: of each row's own, by characters, also where the value ends early.
      {"select substring(convert(varchar,ID),1,1)+'/'+substring(convert(varchar,ID),2,1)+'.' from "
       "dbo.fnZomirStringToTable('12,12,34,5') d",
       "1/2.\n1/2.\n3/4.\n5/."},
      {"select '<'+substring(convert(varchar,Name),2,2)+'>'+substring(convert(varchar,Name),1,1) "
       "from tblEmployee where ID<9",
       "<اس>ی\n<رو>پ"},
      {"select substring(convert(varchar,Phone2),1,2)+'-' from tblOrganization", "~\n~"},
      {"select substring(convert(varchar,ID),1,1)+'-'+substring(convert(varchar,Code),3,1) from "
       "tblOrganization",
       "5-5\n6-6"},
      {"select replace(ID,'/','') from tblEmployee where replace(ID,'x','')=convert(varchar,ID) "
       "and "
       "convert(varchar,ID)=ID",
       "7\n8\n9"},
      {"select replace(Code,'10','')+Code from tblOrganization where ID=5", "5105"},
      // Functions.
      {"select isnull(null,3), coalesce(null,null,'x'), len('سلام '), ltrim(rtrim('  a  '))",
       "3|x|4|a"},
      {"select convert(varchar(3),12345), convert(nvarchar,5), convert(int,'12')", "123|5|12"},
      {"select SCOPE_IDENTITY() as newID", "~"},
      {"select dbo.getEnglishDate('1403/12/30'), dbo.getEnglishDate(null)", "20250320|~"},
      {"select ID from dbo.fnZomirStringToTable('3,1,2') d", "3\n1\n2"},
      {"select count(*) from dbo.fnZomirStringToTable('')", "0"},
      {"select count(*) from dbo.fnZomirStringToTable(null)", "0"},
      {"select o.ID, d.* from fnZomirStringToTable('1,2') d, dbo.fnZomirStringToTable('5') o "
       "order by d.id",
       "5|1\n5|2"},
      {"select ID, ROW_NUMBER() OVER(partition by PromoterID ORDER BY CustomerID DESC) as r from "
       "tblDistributionPromoterProgramDetail, tblEmployee where ID=PromoterID order by ID, r",
       "7|1\n7|2\n8|1"},
      // Conditions.
      {"select ID from tblEmployee where ID in (7,9) and not ID=7", "9"},
      {"select ID from tblEmployee where (ID<>7 and ID!=8) or (ID !> 7)", "7\n9"},
      {"select ID from tblEmployee where ID between 8 and 9 and ID not between 9 and 10", "8"},
      {"select ID from tblOrganization where FirstName is null or Phone2 is not null", "6"},
      {"select ID from tblEmployee where Name like N'پ[ر]%' ", "8"},
      {"select ID from tblEmployee where Name not like '%ر%'", ""},
      {"select ID from tblOrganization where Code >= '106' and Code <= '106'", "6"},
      {"select ID from tblDistributionPromoterProgram where Notes = ''", "2"},
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
      {"select count(*) from tblEmployee a cross join tblEmployee b", "9"},
      {"select n from (select count(*) as n from tblEmployee) q", "3"},
      {"select (select Name from tblEmployee where ID=99)", "~"},
      {"select (select distinct PromoterID from tblDistributionPromoterProgramDetail where "
       "CustomerID=6), (select top 1 ID from tblEmployee order by ID desc)",
       "7|9"},
      // A value that only names a column of the outer query keeps the outer query's rows.
      {"select (select e.ID from tblAccountDocument x) from tblEmployee e", "~\n~\n~"},
      // The order of texts is the Persian reader's: پ before ی.
      {"select Name from tblEmployee order by Name", "بهار\nپروین\nیاسر"},
      {"select ID as 'شماره', (select x.Name from tblEmployee x where x.ID=e.ID) as 'نام' "
       "from tblEmployee e order by 2 desc",
       "7|یاسر\n8|پروین\n9|بهار"},
      // Dates come out in the house's form, also through a view and a group.
      {"select CreateDate from tblDistributionPromoterProgram", "2025-03-21\n~"},
      {"select distinct VisitDate from vwProgramDays order by VisitDate", "2025-03-22\n2025-03-23"},
      {"select ID from tblDistributionPromoterProgram where CreateDate = '20250321'", "1"},
  };
  Office office;
  for (const auto& [statement, rows] : cases) {
    try {
      EXPECT_EQ(office.Rows(statement), rows) << statement;
    } catch (const platform::RuntimeError& error) {
      ADD_FAILURE() << statement << "\n" << error.Number() << " " << error.what();
    }
  }
}

TEST(Dialect, ColumnNames_areTheAliases) {
  Office office;
  const auto rows = office.connection.Execute(
      "select ID, Name as 'نام مشتري', Code as [the code], 1 as \"x\"\"y\" from tblOrganization "
      "where ID=0");
  EXPECT_THAT(rows.Columns(), testing::ElementsAre("ID", "نام مشتري", "the code", "x\"y"));
  EXPECT_EQ(rows.RowCount(), 0U);
  EXPECT_FALSE(office.connection.Execute("delete tblEmployee where ID=0").ReturnsRows());
}

TEST(Dialect, GetDate_isThisMomentToTheSecond) {
  Office office;
  EXPECT_THAT(office.Rows("Select getdate() as today"),
              MatchesRegex("20[0-9][0-9]-[01][0-9]-[0-3][0-9] [0-2][0-9]:[0-5][0-9]:[0-5][0-9]"));
}

TEST(Dialect, Values_keepTheirForm) {
  Office office;
  const std::string longText(200000, 'x');
  office.connection.Execute(
      "insert into tblValues(ID, Number, Words, Moment) values (1, 1, '', "
      "'20250321 08:30:00'), (2, 1234567.25, 'نیم\u200Cفاصله', '20250321'), "
      "(3, -0.5, null, null), (4, 100000000, '" +
      longText + "', '2025-03-21 08:30:00')");
  EXPECT_EQ(office.Rows("select Number, Words, Moment from tblValues order by ID"),
            "1||2025-03-21 08:30:00\n1234567.25|نیم\u200Cفاصله|2025-03-21\n-0.5|~|~\n100000000|" +
                longText + "|2025-03-21 08:30:00");
}

TEST(Dialect, UnknownStatement_isRefusedWithTheServersNumber) {
  struct Case {
    std::string_view statement;
    int number;
    std::string_view near;
  };
  const Case cases[] = {
      {"", 102, "''"},
      {"drop table tblEmployee", 156, "'drop'"},
      {"PRAGMA foreign_keys=off", 102, "'PRAGMA'"},
      {"attach 'x' as y", 102, "'attach'"},
      {"vacuum", 102, "'vacuum'"},
      {"with x as (select 1) select * from x", 156, "'with'"},
      {"select 1; drop table tblEmployee", 156, "'drop'"},
      {"select 1 select 2", 156, "'select'"},
      {"delete tblEmployee where ID=7; delete tblEmployee", 156, "'delete'"},
      {"select 1 union select 2", 156, "'union'"},
      {"select 1 -- all", 102, "'--'"},
      {"select 1 /* all */", 102, "'/*'"},
      {"select 'abc", 105, "'abc'"},
      {"select [abc", 105, "'abc'"},
      {"select ?", 102, "'?'"},
      {"select @x", 137, "@x"},
      {"select 12abc", 102, "'12abc'"},
      {"select", 102, "'select'"},
      {"select ID from", 102, "'from'"},
      {"select ID frm tblEmployee", 102, "'tblEmployee'"},
      {"select ID from tblEmployee where", 102, "'where'"},
      {"select ID from tblEmployee where ID", 4145, ""},
      {"select ID from tblEmployee where ID=7=7", 102, "'='"},
      {"select ID=7 from tblEmployee", 156, "'from'"},
      {"select 2*3", 102, "'*'"},
      {"select ID - 1 from tblEmployee", 102, "'-'"},
      {"select case when 1=1 then 1 end", 156, "'case'"},
      {"select top 5 percent ID from tblEmployee", 156, "'percent'"},
      {"select ID from tblEmployee where Name like 'a' escape '!'", 156, "'escape'"},
      {"select substring('abc',0,2)", 102, "'0'"},
      {"select substring('abc',-1,2)", 102, "'-'"},
      {"select convert(varchar,ID,112) from tblEmployee", 102, "','"},
      {"select convert(datetime,'20250321')", 102, "'datetime'"},
      {"select isnull(1)", 102, "')'"},
      {"select randomblob(9)", 195, "'randomblob'"},
      {"select dbo.other(1)", 4121, "dbo.other"},
      {"select ID from dbo.otherList('1') x", 208, "'otherList'"},
      {"select ID from dbo.fnZomirStringToTable() x", 313, "fnZomirStringToTable"},
      {"select ID from dbo.fnZomirStringToTable('1','2') x", 8144, "fnZomirStringToTable"},
      {"select ID from other.tblEmployee", 208, "'other.tblEmployee'"},
      {"select name from sqlite_master", 208, "'sqlite_master'"},
      {"select name from pragma_table_list", 208, "'pragma_table_list'"},
      {"select 'a'+1", 245, ""},
      {"select (select ID, Name from tblEmployee)", 116, ""},
      {"insert into tblEmployee default values", 156, "'default'"},
      {"insert into tblEmployee(ID, Name) values (1,'a') on conflict do nothing", 156, "'on'"},
      {"update tblEmployee set Name='a' from tblOrganization", 156, "'from'"},
      {"update tblEmployee e set Name='a'", 102, "'e'"},
      {"delete tblEmployee returning ID", 102, "'returning'"},
  };
  for (const auto& [statement, number, near] : cases) {
    try {
      ADD_FAILURE() << statement << " became " << Translate(statement).sql;
    } catch (const platform::RuntimeError& error) {
      EXPECT_EQ(error.Number(), number) << statement << "\n" << error.what();
      EXPECT_THAT(error.Description(), HasSubstr(std::string(near))) << statement;
    }
  }
}

TEST(Dialect, DeepNesting_isRefused) {
  for (const std::string_view opening : {"(", "not ", "len(", "(select "}) {
    std::string statement = "select ";
    for (int i = 0; i < 100000; ++i) statement += opening;
    try {
      ADD_FAILURE() << Translate(statement).sql;
    } catch (const platform::RuntimeError& error) {
      EXPECT_EQ(error.Number(), 191) << opening;
    }
  }
}

TEST(Dialect, FailingStatement_reportsTheServersNumber) {
  struct Case {
    std::string_view statement;
    int number;
    std::string_view words;
  };
  const Case cases[] = {
      {"select ID from tblNowhere", 208, "Invalid object name 'tblNowhere'."},
      {"select Nothing from tblEmployee", 207, "Invalid column name 'Nothing'."},
      {"select \"Nothing\" from tblEmployee", 207, "Invalid column name"},
      {"insert into tblEmployee(ID, Nothing) values (1, 2)", 207, "'Nothing'"},
      {"select ID from tblEmployee, tblOrganization", 209, "Ambiguous column name 'ID'."},
      {"insert into tblEmployee(ID, Name) values (1)", 213, "1 values for 2 columns"},
      {"insert into tblEmployee values (1)", 213, "does not match table definition"},
      {"insert into tblEmployee(ID, Name) values (1, null)", 515, "'tblEmployee.Name'"},
      {"insert into tblEmployee(ID, Name) values (7, 'x')", 2627, "tblEmployee.ID"},
      {"insert into tblOrganization(Code) values ('105')", 2627, "tblOrganization.Code"},
      {"delete tblDistributionPromoterProgram Where ID=1", 547, "FOREIGN KEY"},
      {"insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, CustomerID) "
       "values (99, 1, 1)",
       547, "FOREIGN KEY"},
      {"update tblDistributionPromoterProgramDetail set Sequence=1000", 547, "CHECK"},
      {"update tblEmployee set ID='x' where ID=7", 245, "datatype mismatch"},
      {"select dbo.getEnglishDate('1403/13/40')", 241, "'1403/13/40'"},
      {"select ID from dbo.fnZomirStringToTable('1,x') d", 245, "'x'"},
      {"select ID from dbo.fnZomirStringToTable('1,,2') d", 245, "''"},
      {"select convert(int,Name) from tblEmployee", 245, "data type int"},
      {"select ID+Name from tblEmployee", 245, "data type int"},
      {"select (select ID from tblEmployee)", 512, "more than 1 value"},
  };
  Office office;
  for (const auto& [statement, number, words] : cases) {
    try {
      office.connection.Execute(statement);
      ADD_FAILURE() << statement;
    } catch (const platform::RuntimeError& error) {
      EXPECT_EQ(error.Number(), number) << statement << "\n" << error.what();
      EXPECT_THAT(error.Description(), HasSubstr(std::string(words))) << statement;
    }
  }
  EXPECT_EQ(office.Rows("select count(*) from tblEmployee"), "3");
}

TEST(Dialect, Apostrophe_failsAsSyntaxAndChangesNothing) {
  Office office;
  const std::string before = office.Rows("select * from tblDistributionPromoterProgram");
  for (const std::string_view notes : {"it's", "'", "a' b", "x'; drop table tblEmployee; --",
                                       "x' Where ID=2 --", "x'; delete tblEmployee where '1'='1"}) {
    const std::string statement = "update tblDistributionPromoterProgram  Set Notes='" +
                                  std::string(notes) + "', Code=NULL Where ID=1";
    EXPECT_THAT((std::vector<int>{102, 105, 156}), testing::Contains(office.ErrorOf(statement)))
        << statement;
  }
  EXPECT_EQ(office.Rows("select * from tblDistributionPromoterProgram"), before);
  EXPECT_EQ(office.Rows("select count(*) from tblEmployee"), "3");
  EXPECT_EQ(office.ErrorOf("update tblDistributionPromoterProgram set Notes='a''b' where ID=1"), 0);
  EXPECT_EQ(office.Rows("select Notes from tblDistributionPromoterProgram where ID=1"), "a'b");
}

TEST(Dialect, FailingRow_undoesTheWholeStatement) {
  Office office;
  EXPECT_EQ(office.ErrorOf("insert into tblEmployee(ID, Name) values (20,'a'), (21,'b'), (7,'c')"),
            2627);
  EXPECT_EQ(
      office.ErrorOf("insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, "
                     "VisitDate, CustomerID) select 1, 7, "
                     "dbo.getEnglishDate(convert(varchar,d.ID)+'/01/01'), 5 "
                     "from dbo.fnZomirStringToTable('1403,1404,99999') d"),
      241);
  EXPECT_EQ(office.Rows("select count(*) from tblEmployee"), "3");
  EXPECT_EQ(office.Rows("select count(*) from tblDistributionPromoterProgramDetail"), "3");
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
