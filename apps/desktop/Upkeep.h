#pragma once

#include "Options.h"

namespace desktop {

/// What an administrator does with the file of an embedded database that the options name, or the
/// sample office, which is not made for it. Both tell on the terminal how it goes, and throw
/// RuntimeError.

/// Copies it to options.backupFile, which stays as it was until the copy is whole.
void BackUpOffice(const Options& options);

/// Tells what is wrong with it; true when nothing is.
bool CheckOffice(const Options& options);

}  // namespace desktop
