#include "Upkeep.h"

#include <iostream>
#include <string>
#include <vector>

#include "Export.h"
#include "Office.h"
#include "adapters/sqlite/Backup.h"
#include "demo/Inspection.h"

namespace desktop {

void BackUpOffice(const Options& options) {
  RequirePlace(options.backupFile);
  const std::string office = OfficeFile(options);
  std::cout << "Backing up " << office << " ..." << std::endl;
  constexpr int kTold = 10;  // per cent
  int told = 0;
  adapters::sqlite::BackUp(office, options.backupFile, [&](int done, int total) {
    const int part = total == 0 ? 100 : static_cast<int>(100LL * done / total);
    if (part < told + kTold) return;
    told = part - part % kTold;
    std::cout << told << " % copied" << std::endl;
  });
  std::cout << "The backup is whole: " << options.backupFile << std::endl;
}

bool CheckOffice(const Options& options) {
  const std::string office = OfficeFile(options);
  const std::vector<std::string> findings = demo::InspectOffice(office);
  for (const std::string& finding : findings) std::cout << finding << "\n";
  std::cout << office << ": "
            << (findings.empty() ? "nothing is wrong." : "not all is right, see above.")
            << std::endl;
  return findings.empty();
}

}  // namespace desktop
