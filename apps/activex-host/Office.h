#pragma once

#include <cstdint>
#include <string>

namespace activexhost {

/// Where the program lies, ending in a backslash; the library and the report templates lie there
/// too.
std::string ProgramFolder();

/// Path of the user's sample office, in the folder for local application data. Throws RuntimeError.
std::string SampleOfficePath();

/// Makes a sample office at `path` (UTF-8) unless there is a file; its report templates are those
/// in the folder "templates" beside the program. Throws RuntimeError.
void EnsureSampleOffice(const std::string& path);

/// Brings an office's file that an older program made up to date, and says so. Another database is
/// left as it is. Throws RuntimeError.
void BringUpToDate(const std::string& connectionString);

/// The employee behind a user of the office, as the suite would tell it at login; -1 when the
/// office does not know the user. Throws RuntimeError.
std::int32_t EmployeeOfUser(const std::string& connectionString, std::int32_t user);

}  // namespace activexhost
