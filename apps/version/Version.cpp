#include "apps/version/Version.h"

#include "VersionNumber.h"

namespace version {

std::string_view Number() {
  return PROMOTER_VERSION;
}

std::string Line(std::string_view program) {
  std::string line(program);
  return line.append(" ").append(Number()).append(" (").append(Commit()).append(")\n");
}

}  // namespace version
