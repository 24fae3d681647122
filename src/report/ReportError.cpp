#include "report/ReportError.h"

namespace report {

void RefuseTemplate(const std::string& name, int line, const std::string& words,
                    const std::string& technical) {
  const std::string number = std::to_string(line);
  throw ReportError(kInvalidFileFormat,
                    "قالب گزارش «" + name + "» درست نيست. سطر " + number + ": " + words,
                    name + ":" + number + ": " + technical);
}

}  // namespace report
