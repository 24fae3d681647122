#pragma once

#include <cstdint>
#include <string>

#include "platform/Connection.h"

namespace connection {

/// The employee behind a user of an office, as the suite would tell it at login; -1 when the office
/// does not know the user. Throws RuntimeError.
std::int32_t EmployeeOfUser(platform::ConnectionFactory& connections,
                            const std::string& connectionString, std::int32_t user);

}  // namespace connection
