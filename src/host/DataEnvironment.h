#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "host/Recordset.h"
#include "platform/Connection.h"

namespace host {

/// One entry of the suite's form-action log.
struct FormAction {
  std::int32_t eventId;
  std::string formCode;
  std::int32_t formTypeId;
  std::string description;
  std::int32_t userId;
  std::chrono::sys_days eventDate;
  std::string farsiEventDate;  // yyyy/mm/dd
  std::int32_t eventTime;      // minutes since midnight
};

/// The module's one way to the database: a connection, the recordsets that its routines share, and
/// the suite's two procedures. A routine closes a member before it opens it and never keeps it open
/// across a call into another routine.
class DataEnvironment {
 public:
  DataEnvironment(platform::ConnectionFactory& factory, const std::string& connectionString);

  /// sqlCommon: what the editing routines, the batch form and the search share.
  Recordset& sqlCommon() { return sqlCommon_; }
  /// Report templates.
  Recordset& sqlReportTemplate() { return sqlReportTemplate_; }
  /// Server date and program header.
  Recordset& sqlProgram() { return sqlProgram_; }
  /// Install directory and grouped detail rows.
  Recordset& sqlProgramDetail() { return sqlProgramDetail_; }
  /// A list that is walked while sqlCommon runs statements.
  Recordset& sqlList() { return sqlList_; }

  /// Non-zero when the user holds the permission.
  std::int32_t spZomirHasPermission(std::int32_t userId, std::int32_t formPermissionId);
  void spZomirInsertFormAction(const FormAction& action);

 private:
  std::unique_ptr<platform::Connection> connection_;
  Recordset sqlCommon_;
  Recordset sqlReportTemplate_;
  Recordset sqlProgram_;
  Recordset sqlProgramDetail_;
  Recordset sqlList_;
};

}  // namespace host
