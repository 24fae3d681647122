#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/Connection.h"

namespace desktop {

/// Connections by what their string says: `sqlite:` and a file is the embedded database. Any other
/// string throws RuntimeError 3706 on the first statement.
class Connections : public platform::ConnectionFactory {
 public:
  std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override;
};

/// Path of the user's sample office with so many customers.
std::string SampleOfficePath(int customers);

/// Makes a sample office at `path` unless there is one, and says so on the terminal. Its report
/// templates go into the folder "templates" beside it; those that are missing there are put back.
/// Throws RuntimeError.
void EnsureSampleOffice(const std::string& path, int customers);

/// The employee behind a user of the suite, as the suite would tell it at login; -1 when the office
/// does not know the user. Throws RuntimeError.
std::int32_t EmployeeOfUser(const std::string& connectionString, std::int32_t user);

}  // namespace desktop
