#pragma once

#include <QIODevice>
#include <string>

#include "adapters/qt/PageLetters.h"
#include "platform/Progress.h"
#include "report/Pages.h"

class QPrinter;

namespace adapters::qt {

/// All pages, which are finished, as a PDF file. False when the user stopped it, and what the
/// device has taken is no file then. Throws RuntimeError 57 when the device refuses.
bool WritePdf(report::Pages& pages, platform::Progress& progress, const PageLetters& letters,
              QIODevice& device);

/// The same into a file (UTF-8 path); a failure, or the user's stopping it, leaves an older one as
/// it was. Throws RuntimeError 75 for a file that cannot be written.
bool WritePdfFile(report::Pages& pages, platform::Progress& progress, const PageLetters& letters,
                  const std::string& path);

/// Asks for a name and writes the pages there.
void SavePdf(report::Pages& pages, platform::Progress& progress, const PageLetters& letters);

/// The pages and copies that the printer was set to. A job that the user stops is taken back.
/// Throws RuntimeError 482 when the printer refuses.
void Print(report::Pages& pages, platform::Progress& progress, const PageLetters& letters,
           QPrinter& printer);

/// Lets the user choose a printer and prints.
void PrintPages(report::Pages& pages, platform::Progress& progress, const PageLetters& letters);

}  // namespace adapters::qt
