#pragma once

#include "Options.h"

namespace desktop {

/// Writes options.exportProgram of what the options name into options.exportFile, as the file's
/// name ends. A file that is there stays as it was until the new one is whole. Needs a
/// QApplication, on any platform of Qt's. Throws RuntimeError.
void ExportProgram(const Options& options);

}  // namespace desktop
