#include "host/DataEnvironment.h"

#include <array>

namespace host {

using platform::Parameter;

DataEnvironment::DataEnvironment(platform::ConnectionFactory& factory,
                                 const std::string& connectionString)
    : connection_(factory.Create(connectionString)),
      sqlCommon_(*connection_),
      sqlReportTemplate_(*connection_),
      sqlProgram_(*connection_),
      sqlProgramDetail_(*connection_),
      sqlList_(*connection_) {}

std::int32_t DataEnvironment::spZomirHasPermission(std::int32_t userId,
                                                   std::int32_t formPermissionId) {
  const std::array<Parameter, 2> parameters{{
      {"@UserID", userId},
      {"@FormPermissionID", formPermissionId},
  }};
  return connection_->CallProcedure("spZomirHasPermission", parameters);
}

void DataEnvironment::spZomirInsertFormAction(const FormAction& action) {
  const std::array<Parameter, 8> parameters{{
      {"@EventID", action.eventId},
      {"@FormCode", action.formCode},
      {"@FormTypeID", action.formTypeId},
      {"@Description", action.description},
      {"@UserID", action.userId},
      {"@EventDate", action.eventDate},
      {"@FarsiEventDate", action.farsiEventDate},
      {"@EventTime", action.eventTime},
  }};
  connection_->CallProcedure("dbo.spZomirInsertFormAction", parameters);
}

}  // namespace host
