#include <gtest/gtest.h>

#include <string>

#include "adapters/sqlite/Office.h"

namespace adapters::sqlite {
namespace {

/// Statements as the forms send them, where a planner's day over the sample office has none or too
/// few rows for them; each finds its rows after those before it.
struct Sent {
  std::string statement;
  std::string rows;
};

void ExpectRows(Office& office, std::initializer_list<Sent> sent) {
  for (const auto& [statement, rows] : sent) {
    try {
      EXPECT_EQ(office.Rows(statement), rows) << statement;
    } catch (const platform::RuntimeError& error) {
      ADD_FAILURE() << statement << "\n" << error.Number() << " " << error.what();
    }
  }
}

TEST(ModuleStatements, Branch_becomesADocumentLinesObjectOnce) {
  const std::string tie =
      "insert into tblAccountDocumentObjects (DocumentID, RowNumber, Sequence, ClassID, "
      "ObjectID)  Select 4, 1, Sequence, 19, 6 from tblAccountRelatedClasses ac  Where "
      "ac.AccountID=70 and ac.ClassID=19 and not Exists(Select x.* from "
      "tblAccountDocumentObjects x where x.ClassID= 19 and x.DocumentID=4 and x.RowNumber=1)";
  Office office;
  ExpectRows(
      office,
      {{"insert tblAccountDocumentDetail select ID, 1, null from dbo.fnZomirStringToTable('4,5') x",
        ""},
       {tie, ""},
       {tie, ""},
       {"select * from tblAccountDocumentObjects", "4|1|3|19|6"},
       {"update tblAccountDocumentDetail set BranchID=6 Where DocumentID=4 and RowNumber=1", ""},
       {"select BranchID from tblAccountDocumentDetail order by DocumentID", "6\n~"}});
}

TEST(ModuleStatements, BatchInsert_numbersNewVisitsByDayAndCustomerAndSkipsOldOnes) {
  const std::string day =
      "substring(convert(varchar,d.ID), "
      "1,4)+'/'+substring(convert(varchar,d.ID),5,2)+'/'+substring(convert(varchar,d.ID),7,2) ";
  const std::string insert =
      "insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, FarsiVisitDate, "
      "VisitDate, CustomerID, Notes, Sequence) select 2, 7 , " +
      day + ", dbo.getEnglishDate(" + day +
      ") , o.ID, 'a''b', ROW_NUMBER() OVER(ORDER BY d.id, o.ID ASC) AS aRow  from  "
      "dbo.fnZomirStringToTable('13920705,13920712') d , dbo.fnZomirStringToTable('9,5') o  left "
      "outer join tblDistributionOrganization do on o.ID=do.OrganizationID  where not "
      "exists(select pd.* from tblDistributionPromoterProgramDetail pd  where pd.ProgramID=2 and "
      "pd.PromoterID=7 and replace(pd.FarsiVisitDate,'/','')=convert(varchar,d.ID)  and "
      "pd.CustomerID=o.ID) ";
  const std::string read =
      "select FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence from "
      "tblDistributionPromoterProgramDetail where ProgramID=2 order by FarsiVisitDate, Sequence";
  Office office;
  ExpectRows(office, {{insert, ""},
                      {read,
                       "1392/07/05|2013-09-27|5|a'b|1\n1392/07/05|2013-09-27|9|a'b|2\n"
                       "1392/07/12|2013-10-04|5|a'b|3\n1392/07/12|2013-10-04|9|a'b|4"},
                      {"delete tblDistributionPromoterProgramDetail where ProgramID=2 and "
                       "Sequence <> 3",
                       ""},
                      // A customer on two paths is planned twice a day.
                      {"insert into tblDistributionOrganization values (9, 11, 1), (9, 12, 1)", ""},
                      {insert, ""},
                      {insert, ""},
                      {"select CustomerID, Sequence from tblDistributionPromoterProgramDetail "
                       "where ProgramID=2 and FarsiVisitDate='1392/07/12' order by Sequence",
                       "5|3\n9|4\n9|5"}});
}

TEST(ModuleStatements, BatchForm_findsCustomersByEveryFilter) {
  Office office;
  ExpectRows(
      office,
      {{"Select ID, Code , ltrim(rtrim(isnull(FirstName,'')+' '+isnull(Name,''))) as 'Name', "
        "Address, CellPhone, Phone1, Phone2, Address , (Select p.Name from tblDistributionPath p "
        "where p.ID=do.PathID) as PathName, (Select r.Description from tblDistributionRegion r "
        "where r.ID in (Select p.RegionID from tblDistributionPath p where p.ID=do.PathID)) as "
        "RegionName, (Select w.Name from tblZomirWorkActivity w where w.ID=WorkActivityID) as "
        "WorkActivityName from tblOrganization left outer join tblDistributionOrganization do on "
        "tblOrganization.ID=do.OrganizationID  where  do.PathID in (11,12)  and 1=1 and  "
        "Code >= '100' and  Code <= '105' and  do.BranchID = 1 and  "
        "ltrim(rtrim(isnull(FirstName,'')+' '+isnull(Name,''))) like '%ضا کا%' and  ID = 5 and  "
        "WorkActivityID = 1",
        "5|105|رضا کاظمی|تهران|0912|021|~|تهران|مسیر ۱|شمال|سوپر"}});
}

}  // namespace
}  // namespace adapters::sqlite
