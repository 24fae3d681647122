#include "adapters/sqlite/Procedures.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "adapters/sqlite/Office.h"

namespace adapters::sqlite {
namespace {

using platform::Parameter;

TEST(Procedures, HasPermission_answersByUserAndNumber) {
  const std::array<std::int32_t, 3> cases[] = {
      {1, 330801, 1}, {2, 111, 1}, {2, 330801, 0}, {3, 111, 0}};
  Office office;
  for (const auto& [user, permission, answer] : cases) {
    const Parameter parameters[] = {{"@UserID", user}, {"@FormPermissionID", permission}};
    EXPECT_EQ(office.connection.CallProcedure("dbo.SPZOMIRHASPERMISSION", parameters), answer)
        << user << " " << permission;
  }
}

std::vector<Parameter> Action() {
  return {{"@EventID", 330801},
          {"@FormCode", "3"},
          {"@FormTypeID", 3308},
          {"@Description", "”3“ it's"},
          {"@UserID", 1},
          {"@EventDate", std::chrono::sys_days(std::chrono::year(2025) / 3 / 21)},
          {"@FarsiEventDate", "1404/01/01"},
          {"@EventTime", 61}};
}

TEST(Procedures, InsertFormAction_writesTheRowAndKeepsTheIdentity) {
  Office office;
  office.connection.Execute("insert into tblDistributionPromoterProgram (Notes) values (null)");
  EXPECT_EQ(office.connection.CallProcedure("spZomirInsertFormAction", Action()), 0);
  EXPECT_EQ(office.Rows("select * from tblZomirFormAction"),
            "1|330801|3|3308|”3“ it's|1|2025-03-21|1404/01/01|61");
  EXPECT_EQ(office.Rows("Select SCOPE_IDENTITY() as newID"), "3");
}

TEST(Procedures, WrongCall_isRefusedAndWritesNothing) {
  Office office;
  const auto errorOf = [&](std::string_view name, const std::vector<Parameter>& parameters) {
    try {
      office.connection.CallProcedure(name, parameters);
      return 0;
    } catch (const platform::RuntimeError& error) {
      return error.Number();
    }
  };
  EXPECT_EQ(errorOf("spOther", {}), 2812);
  EXPECT_EQ(errorOf("spZomirHasPermission", {{"@UserID", 1}}), 201);
  auto tooMany = Action();
  tooMany.push_back({"@Extra", 1});
  EXPECT_EQ(errorOf("spZomirInsertFormAction", tooMany), 8144);
  auto wrongType = Action();
  wrongType[5].value = "yesterday";
  EXPECT_EQ(errorOf("spZomirInsertFormAction", wrongType), 8114);
  EXPECT_EQ(office.Rows("select count(*) from tblZomirFormAction"), "0");
}

}  // namespace
}  // namespace adapters::sqlite
