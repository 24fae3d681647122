// What platform::Connection's contract leaves to the engine; the rest is in tests/contract.

#include <gtest/gtest.h>

#include "adapters/sqlite/Office.h"

namespace adapters::sqlite {
namespace {

TEST(Procedures, AnyCall_AnswersByItsParametersOrIsRefusedAndKeepsTheIdentity) {
  Office office;
  std::int32_t answer = 0;
  const auto error_of = [&](std::string_view name, const std::vector<platform::Parameter>& given) {
    return support::NumberOf([&] { answer = office.connection.CallProcedure(name, given); });
  };
  // Permission 0 is every permission.
  EXPECT_EQ(error_of("dbo.SPZOMIRHASPERMISSION", {{"@UserID", 1}, {"@FormPermissionID", 7}}), 0);
  EXPECT_EQ(answer, 1);
  office.connection.Execute("insert into tblDistributionPromoterProgram (Notes) values (null)");
  std::vector<platform::Parameter> action = {{"@EventID", 330801},
                                             {"@FormCode", "3"},
                                             {"@FormTypeID", 3308},
                                             {"@Description", ""},
                                             {"@UserID", 1},
                                             {"@EventDate", std::chrono::sys_days()},
                                             {"@FarsiEventDate", "1404/01/01"},
                                             {"@EventTime", 61}};
  EXPECT_EQ(error_of("spZomirInsertFormAction", action), 0);
  EXPECT_EQ(office.Rows("Select SCOPE_IDENTITY() as newID"), "3");
  action[5].value = "yesterday";
  EXPECT_EQ(error_of("spZomirInsertFormAction", action), 8114);
  action.emplace_back("@Extra", 1);
  EXPECT_EQ(error_of("spZomirInsertFormAction", action), 8144);
  EXPECT_EQ(office.Rows("select count(*) from tblZomirFormAction"), "1");
}

}  // namespace
}  // namespace adapters::sqlite
