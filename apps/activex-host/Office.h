#pragma once

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

}  // namespace activexhost
