#include <gtest/gtest.h>

#include <string>

#include "adapters/sqlite/Office.h"
#include "batch/BatchInsert.h"

namespace adapters::sqlite {
namespace {

TEST(ModuleStatements, BatchInsert_numbersNewVisitsByDayAndCustomerAndSkipsOldOnes) {
  const std::string insert = batch::BatchInsertStatement({.programId = 2,
                                                          .promoterId = 7,
                                                          .dates = "13920705,13920712",
                                                          .customerIds = "9,5",
                                                          .notesLiteral = "'a''b'"});
  const std::string read =
      "select FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence from "
      "tblDistributionPromoterProgramDetail where ProgramID=2 order by FarsiVisitDate, Sequence";
  Office office;
  office.connection.Execute(insert);
  EXPECT_EQ(office.Rows(read),
            "1392/07/05|2013-09-27|5|a'b|1\n1392/07/05|2013-09-27|9|a'b|2\n"
            "1392/07/12|2013-10-04|5|a'b|3\n1392/07/12|2013-10-04|9|a'b|4");
  office.connection.Execute(
      "delete tblDistributionPromoterProgramDetail where ProgramID=2 and Sequence <> 3");
  // A customer on two paths is planned twice a day.
  office.connection.Execute(
      "insert into tblDistributionOrganization values (9, 11, 1), (9, 12, 1)");
  office.connection.Execute(insert);
  office.connection.Execute(insert);
  EXPECT_EQ(office.Rows("select CustomerID, Sequence from tblDistributionPromoterProgramDetail "
                        "where ProgramID=2 and FarsiVisitDate='1392/07/12' order by Sequence"),
            "5|3\n9|4\n9|5");
}

}  // namespace
}  // namespace adapters::sqlite
