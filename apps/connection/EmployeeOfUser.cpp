#include "apps/connection/EmployeeOfUser.h"

#include "host/modMain.h"

namespace connection {

std::int32_t EmployeeOfUser(platform::ConnectionFactory& connections,
                            const std::string& connectionString, std::int32_t user) {
  const platform::RowSet rows =
      connections.Create(connectionString)
          ->Execute("select EmployeeID from tblZomirUser where ID=" + std::to_string(user));
  return rows.RowCount() == 0 ? -1 : host::NumericId(rows.Text(0, 0));
}

}  // namespace connection
