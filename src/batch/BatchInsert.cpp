#include "batch/BatchInsert.h"

namespace batch {

std::string BatchInsertStatement(const BatchInsert& insert) {
  const std::string programId = std::to_string(insert.programId);
  const std::string promoterId = std::to_string(insert.promoterId);
  std::string statement;
  statement.reserve(1200 + insert.dates.size() + insert.customerIds.size());
  statement
      .append(
          "insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, "
          "FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence)")
      .append(" select ")
      .append(programId)
      .append(", ")
      .append(promoterId)
      .append(" ")
      .append(
          ", substring(convert(varchar,d.ID), 1,4)+'/'+substring(convert(varchar,d.ID),5,2)+"
          "'/'+substring(convert(varchar,d.ID),7,2) ")
      .append(
          ", dbo.getEnglishDate(substring(convert(varchar,d.ID), 1,4)+'/'+"
          "substring(convert(varchar,d.ID),5,2)+'/'+substring(convert(varchar,d.ID),7,2)) ")
      .append(", o.ID, ")
      .append(insert.notesLiteral)
      .append(", ROW_NUMBER() OVER(ORDER BY d.id, o.ID ASC) AS aRow ")
      .append(" from  dbo.fnZomirStringToTable('")
      .append(insert.dates)
      .append("') d ")
      .append(", dbo.fnZomirStringToTable('")
      .append(insert.customerIds)
      .append("') o ")
      .append(" left outer join tblDistributionOrganization do on o.ID=do.OrganizationID ")
      .append(" where not exists(select pd.* from tblDistributionPromoterProgramDetail pd ")
      .append(" where pd.ProgramID=")
      .append(programId)
      .append(" and pd.PromoterID=")
      .append(promoterId)
      .append(" and replace(pd.FarsiVisitDate,'/','')=convert(varchar,d.ID) ")
      .append(" and pd.CustomerID=o.ID) ");
  return statement;
}

}  // namespace batch
