#pragma once

#include <string>

#include "demo/SampleOffice.h"
#include "support/TestFolder.h"

namespace fuzz {

/// A sample office of a few customers in a file that goes with the process.
class Office {
  support::TestFolder folder_;

 public:
  Office() {
    demo::SampleOptions options;
    options.customers = 2;
    options.today = std::chrono::year(2025) / std::chrono::November / 22;
    demo::CreateSampleOffice(file, options);
  }

  const std::string file = folder_.File("office.db");
};

}  // namespace fuzz
