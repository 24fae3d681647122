#pragma once

#include <string>

#include "report/Fill.h"

namespace report {

/// A filled report as one whole HTML document, UTF-8 and right to left, for a browser: on every
/// printed page its title and header above and the day of printing below, on A4 as the template
/// lies; where the browser can, «صفحه x از y» in the margin. The template's own head and the
/// attributes of its body are kept.
std::string WholePage(const FilledReport& report);

}  // namespace report
