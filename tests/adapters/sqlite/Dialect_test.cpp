#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>
#include <utility>

#include "adapters/sqlite/Errors.h"
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
      {"select count(*), count(Notes), min(CustomerID), sum(Sequence) "
       "from tblDistributionPromoterProgramDetail",
       "3|2|5|6"},
      // The joining of texts.
      {"select 'a'+'b'+'c', 'a'+null", "abc|~"},
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
      {"select isnull(null,3), ltrim(rtrim('  a  ')), replace('1/2','/','')", "3|a|12"},
      {"select dbo.getEnglishDate('1403/12/30'), dbo.getEnglishDate(null)", "2025-03-20|~"},
      {"select count(*) from dbo.fnZomirStringToTable('')", "0"},
      {"select ID, ROW_NUMBER() OVER(ORDER BY PromoterID, CustomerID DESC) as r from "
       "tblDistributionPromoterProgramDetail, tblEmployee where ID=PromoterID order by ID, r",
       "7|1\n7|2\n8|3"},
      // Conditions.
      {"select ID from tblEmployee where ID in (7,9) and not ID=7", "9"},
      {"select ID from tblEmployee where (ID<>7 and ID!=8) or ID between 8 and 8", "8\n9"},
      {"select ID from tblOrganization where FirstName is null or Phone2 is not null", "6"},
      {"select ID from tblEmployee where Name like N'پ[ر]%' ", "8"},
      {"select ID from tblEmployee e where not exists(select pd.* from "
       "tblDistributionPromoterProgramDetail pd where pd.PromoterID=e.ID)",
       "9"},
      // Joins and subqueries.
      {"select o.ID, p.ID from tblOrganization o left outer join tblDistributionOrganization do "
       "on o.ID=do.OrganizationID inner join tblDistributionPath p on p.ID=do.PathID",
       "5|11\n6|12"},
      {"select x.Many from (select CustomerID, count(*) as Many from "
       "tblDistributionPromoterProgramDetail group by CustomerID) x where x.CustomerID=5",
       "2"},
      // A value that only names a column of the outer query keeps the outer query's rows.
      {"select (select e.ID from tblZomirFormAction x) from tblEmployee e", "~\n~\n~"},
      {"select ID as 'شماره', (select x.Name from tblEmployee x where x.ID=e.ID) as 'نام' "
       "from tblEmployee e order by 2 desc",
       "7|یاسر\n8|پروین\n9|بهار"},
      // Conversions: the other side's type, the first one's of ISNULL, cut and padded as asked.
      {"select isnull(Code,''), isnull(Code,2.5), isnull(Code,'7') from "
       "tblDistributionPromoterProgram where ID=1",
       "0|2|7"},
      {"select isnull(Description,'too long') from tblAccountDocumentDetail where FormID=0", ""},
      {"select isnull(ltrim(substring(Name,9,2)),'abc') from tblEmployee where ID=7", ""},
      {"select ID from tblOrganization where Code = 105 and ID in ('5', 7) and '5' = ID", "5"},
      {"select ID from tblEmployee where ID = 5000000000 or ID = 7.0", "7"},
      {"select convert(varchar,'1234567890123456789012345678901234'), convert(varchar(3),'abcd'), "
       "convert(nvarchar,5), convert(int,' 12 '), convert(int,2.7), convert(int,'')",
       "123456789012345678901234567890|abc|5|12|2|0"},
      // Dates come out in the house's form, whatever was done with them.
      {"select CreateDate, isnull(CreateDate, '20250101'), (select max(VisitDate) from "
       "vwProgramDays), convert(varchar,CreateDate), convert(varchar(7),CreateDate) from "
       "tblDistributionPromoterProgram",
       "2025-03-21|2025-03-21|2025-03-23|2025-03-21|2025-03\n~|2025-01-01|2025-03-23|~|~"},
      {"select d.First from (select min(VisitDate) as First from vwProgramDays) d", "2025-03-22"},
      {"select ID from tblDistributionPromoterProgram where CreateDate = '20250321' and CreateDate "
       "= '2025-03-21' and CreateDate between '2025-01-01' and '20251231' and CreateDate in "
       "('2025-03-21') and CreateDate = dbo.getEnglishDate('1404/01/01')",
       "1"},
      {"select ID from tblDistributionPromoterProgram where CreateDate < getdate() and getdate() > "
       "CreateDate",
       "1"},
      {"select ID from tblDistributionPromoterProgram where CreateDate > getdate()", ""},
      // One collation: پ before ی, no letter case, no blanks at the end, each yeh a letter.
      {"select Name from tblEmployee order by Name", "بهار\nپروین\nیاسر"},
      {"select ID, row_number() over(order by Name) as r from tblEmployee order by r",
       "9|1\n8|2\n7|3"},
      {"select min(Name), max(Name) from tblEmployee where Name < 'ی' or Name > N'پ'", "بهار|یاسر"},
      {"select distinct Description from tblAccountDocumentDetail where DocumentID=1", "ABC"},
      {"select count(*) as n from tblAccountDocumentDetail group by Description order by n",
       "1\n1\n2"},
      {"select RowNumber from tblAccountDocumentDetail where ltrim(Description)='aBc  ' and "
       "Description in ('abC') and Description like '[a-b]bc%'",
       "1\n2"},
      {"select RowNumber from tblAccountDocumentDetail where Description='ي'", "1"},
      {"select 1 where 'A' = 'a ' and '۱' <> '1'", "1"},
      // A sum beyond int where the column is none.
      {"select sum(Debit) from tblAccountDocumentDetail", "3000000001"},
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
      {"select PromoterID from vwProgramDays group by ProgramID having count(*)>1", 156, "having"},
      {"select coalesce(null, null)", 156, "'coalesce'"},
      {"select substring('abc',0,2)", 102, "'0'"},
      {"select convert(varchar,ID,112) from tblEmployee", 102, "','"},
      {"select convert(char(5),'ab')", 102, "'char'"},
      {"select randomblob(9)", 195, "'randomblob'"},
      {"select ID from dbo.fnZomirStringToTable('1','2') x", 8144, "fnZomirStringToTable"},
      {"select name from sqlite_master", 208, "'sqlite_master'"},
      {"select (select ID, Name from tblEmployee)", 116, ""},
      {"insert into tblEmployee default values", 156, "'default'"},
      {"insert into tblEmployee(ID, Name) values (1,'a') on conflict do nothing", 156, "'on'"},
      {"update tblEmployee set Name='a' from tblOrganization", 156, "'from'"},
      {"update tblAccountDocumentDetail set RowNumber=FormID", 102, "one value for all rows"},
      {"select ID+1 from tblEmployee", 102, "numbers are not added"},
      {"select 1.50", 102, "'1.50'"},
      {"select replace(Name,'a','b') from tblEmployee", 102, "'replace'"},
      {"select Content from tblZomirFormAttachment", 102, "'Content'"},
      {"select ID from tblDistributionPromoterProgram where CreateDate=getdate()", 102, "'='"},
      // Names.
      {"select ID from tblNowhere", 208,
       "office #1%.db\u202C» جدول، نما، تابع يا روالي را كه خواسته شد ندارد. نام و نسخه پايگاه "
       "داده را بررسي كنيد.\n\u202AInvalid object name 'tblNowhere'."},
      {"select Nothing from tblEmployee", 207, "بررسي كنيد.\n\u202AInvalid column name 'Nothing'."},
      {"select rowid from tblEmployee", 207, "'rowid'"},
      {"select d.List from dbo.fnZomirStringToTable('1') d", 207, "'List'"},
      {"select Name as n from tblEmployee where n='x'", 207, "'n'"},
      {"select ID from tblEmployee, tblOrganization", 209, "Ambiguous column name 'ID'."},
      {"select a.Name from tblEmployee a, tblOrganization b order by ID", 209, "'ID'"},
      {"select tblEmployee.ID from tblEmployee e", 4104, "tblEmployee.ID"},
      {"select a.ID from tblEmployee a, tblOrganization b left join tblDistributionPath c on "
       "c.ID=a.ID",
       4104, "a.ID"},
      {"select x.* from tblEmployee", 107, "'x'"},
      {"select * from tblEmployee, tblEmployee", 1013, "tblemployee"},
      {"select * from tblEmployee a, tblOrganization a", 1011, "'a'"},
      {"select *", 263, ""},
      {"select * from (select 1) x", 8155, "column 1"},
      {"select * from (select ID, ID from tblEmployee) x", 8156, "'ID'"},
      // Groups and orders.
      {"select Name from tblEmployee group by ID", 8120, "'Name'"},
      {"select ID, count(*) from tblEmployee", 8120, "'ID'"},
      {"select count(*) from tblEmployee order by Name", 8127, "'Name'"},
      {"select count(*) from tblEmployee group by 1", 164, ""},
      {"select ID from tblEmployee where count(*)=1", 147, ""},
      {"select max((select 1)) from tblEmployee", 130, ""},
      {"select distinct ID from tblEmployee order by Name", 145, ""},
      {"select ID from tblEmployee order by 'x'", 408, "position 1"},
      {"select ID from tblEmployee order by 2", 108, "2"},
      {"select ID from tblEmployee order by ID, 1", 169, ""},
      {"select ID, * from tblEmployee order by ID", 209, "'ID'"},
      {"select ID from (select ID from tblEmployee order by ID) x", 1033, ""},
      // Types.
      {"select 'a'+1", 245, "'a'"},
      {"select 1 where 5 = 'x'", 245, "'x'"},
      {"select ID from tblEmployee where Name = 5", 245, ""},
      {"select convert(int,3000000000)", 8115, ""},
      {"select convert(int,'3000000000')", 248, "'3000000000'"},
      {"select convert(varchar(0),'a')", 1001, "0"},
      {"select convert(varchar(9000),'a')", 131, "9000"},
      {"select convert(int,CreateDate) from tblDistributionPromoterProgram", 529, ""},
      {"select ID from tblDistributionPromoterProgram where CreateDate=20250321", 206, "date"},
      {"select ID from tblDistributionPromoterProgram where CreateDate='20250230'", 241,
       "20250230"},
      {"select 'a'+CreateDate from tblDistributionPromoterProgram", 402, "date"},
      {"select sum(Name) from tblEmployee", 8117, "sum"},
      {"select sum(FormID) from tblAccountDocumentDetail", 8115, ""},
      {"select substring(ID,1,1) from tblEmployee", 8116, "int"},
      {"select dbo.getEnglishDate('')", 241, "''"},
      {"select dbo.getEnglishDate('1403/13/40')", 241, "'1403/13/40'"},
      {"select ID from dbo.fnZomirStringToTable('1,x') d", 245, "'x'"},
      {"select ID from dbo.fnZomirStringToTable('5000000000') d", 248, "'5000000000'"},
      {"select (select ID from tblEmployee)", 512, "more than 1 value"},
      // What is stored.
      {"insert into tblEmployee(ID, Name) values (1, null)", 515, "'tblEmployee.Name'"},
      {"insert into tblEmployee(Name) values ('a')", 515, "'ID'"},
      {"insert into tblOrganization(ID, Code) values (9, '105')", 2627, "tblOrganization.Code"},
      {"insert into tblDistributionPromoterProgram(ID) values (9)", 544, "IDENTITY_INSERT"},
      {"update tblDistributionPromoterProgram set ID=9", 8102, "'ID'"},
      {"update tblEmployee set Name='a', name='b'", 264, "'name'"},
      {"insert into tblEmployee(ID, Name) values (1)", 109, ""},
      {"insert into tblEmployee values (1, 'a', 2)", 213, ""},
      {"insert into tblEmployee(ID, Name) select ID from tblOrganization", 120, ""},
      {"update tblDistributionPromoterProgram set Code='12a'", 245, "'12a'"},
      {"update tblDistributionPromoterProgram set Code=5000000000", 8115, ""},
      {"update tblDistributionPromoterProgram set CreateDate='99999999'", 241, "99999999"},
      {"update tblAccountDocumentDetail set Description='123456'", 8152, "Description"},
      {"update vwProgramDays set VisitDate=null", 102, "only read"},
      {"delete tblDistributionPromoterProgram Where ID=1", 547, "FOREIGN KEY"},
      {"insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, CustomerID) "
       "values (99, 1, 1)",
       547, "FOREIGN KEY"},
      // Notes that end their own literal.
      {"update tblDistributionPromoterProgram Set Notes='it's', Code=NULL", 105, "', Code=NULL'"},
      {"update tblDistributionPromoterProgram Set Notes=''', Code=NULL", 105, ""},
      {"update tblEmployee Set Name='x' Where ID=7 --'", 102, "'--'"},
      {"update tblEmployee Set Name='x'; delete tblEmployee where '1'='1'", 156, "'delete'"},
      // A row that fails takes the rows before it with it.
      {"insert into tblEmployee(ID, Name) values (20,'a'), (21,'b'), (7,'c')", 2627, ""},
      {"insert into tblEmployee(ID, Name) select d.ID, "
       "convert(varchar,dbo.getEnglishDate(convert(varchar,d.ID)+'/01/01')) "
       "from dbo.fnZomirStringToTable('1403,1404,99999') d",
       241, ""},
  };
  Office office;
  const std::string employees = office.Rows("select * from tblEmployee");
  for (const auto& [statement, number, words] : cases) {
    const platform::RuntimeError error = office.FailureOf(statement);
    EXPECT_EQ(error.Number(), number) << statement << "\n" << error.what();
    EXPECT_THAT(error.Description(), HasSubstr(std::string(words))) << statement;
  }
  EXPECT_EQ(office.Rows("select * from tblEmployee"), employees);
}

TEST(Dialect, TooMuchAtOnce_isRefusedWithWords) {
  Office office;
  for (const std::string_view opening : {"(", "not ", "len(", "(select "}) {
    std::string statement = "select ";
    for (int i = 0; i < 100000; ++i) statement += opening;
    EXPECT_EQ(office.ErrorOf(statement), 191) << opening;
  }
  std::string nested = "select ID from tblEmployee where ";
  for (int i = 0; i < 30; ++i) nested += "exists (select 1 from tblEmployee where ";
  EXPECT_EQ(office.ErrorOf(nested + "1=1" + std::string(30, ')')), 191);

  std::string many = "select ID from tblEmployee where ID=7";
  for (int i = 0; i < 1000; ++i) many += " and ID<>" + std::to_string(i + 10);
  EXPECT_EQ(office.Rows(many), "7");
  EXPECT_EQ(office.ErrorOf(many + " or ID=8"), 8623);

  // The time of a statement is over, not the connection.
  SqliteConnection hasty(office.ConnectionString(), kBusyTimeout, std::chrono::milliseconds(50));
  std::string ids = "1";
  for (int i = 0; i < 3000; ++i) ids += ",1";
  const std::string list = "dbo.fnZomirStringToTable('" + ids + "') ";
  const std::string crossed = "select count(*) from " + list + "a, " + list + "b, " + list + "c";
  const platform::RuntimeError late = support::FailureOf([&] { hasty.Execute(crossed); });
  EXPECT_EQ(late.Number(), kTimeLimitReached);
  EXPECT_THAT(late.Description(), HasSubstr("در زمان مقرر پاسخ نداد"));
  EXPECT_EQ(Lines(hasty.Execute("select 1")), "1");
}

TEST(Dialect, StoredValues_areWhatTheServerWouldStore) {
  Office office;
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"Code='', CreateDate='2025-11-22', Notes=12", "0|2025-11-22|12"},
      {"Code=2.7, CreateDate=null, Notes=dbo.getEnglishDate('1404/01/01')", "2|~|2025-03-21"},
      {"Code='  -3 ', Notes=CreateDate", "-3|~|~"},
  };
  for (const auto& [values, stored] : cases) {
    EXPECT_EQ(office.ErrorOf("update tblDistributionPromoterProgram set " + std::string(values) +
                             " where ID=1"),
              0)
        << values;
    EXPECT_EQ(office.Rows("select Code, CreateDate, Notes from tblDistributionPromoterProgram "
                          "where ID=1"),
              stored);
  }
  EXPECT_EQ(office.ErrorOf("update tblAccountDocumentDetail set Description='abcd     ', "
                           "Debit=9000000000 where FormID in (select ID from tblEmployee) or 1=1"),
            0);
  EXPECT_EQ(office.Rows("select distinct Description+'|' from tblAccountDocumentDetail"), "abcd |");
  EXPECT_EQ(office.ErrorOf("delete tblAccountDocumentDetail where exists (select e.ID from "
                           "tblOrganization e where e.ID = FormID) and Debit = 9000000000"),
            0);
  EXPECT_EQ(office.Rows("select count(*) from tblAccountDocumentDetail"), "2");
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
      "insert into tblEmployee(ID, Name) select ID, Name from tblEmployee where ID=0");
  EXPECT_EQ(identity(), "3");
  EXPECT_EQ(insert(), 0);
  EXPECT_EQ(identity(), "5");
}

}  // namespace
}  // namespace adapters::sqlite
