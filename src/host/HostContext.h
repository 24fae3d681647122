#pragma once

#include <cstdint>
#include <string>

namespace host {

/// Who works with the module and on which database; given by the host through DistPromoterProg and
/// written by nobody else. -1 where the host gave no id.
struct HostContext {
  std::int32_t userId = -1;
  std::int32_t positionId = -1;
  std::int32_t employeeId = -1;
  std::string connectionString;
};

/// This module's form type in the suite's tables.
inline constexpr std::int32_t kFormTypeId = 3308;

}  // namespace host
