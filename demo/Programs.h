#pragma once

#include <chrono>

#include "demo/Database.h"
#include "demo/Network.h"
#include "demo/Random.h"

namespace demo {

/// Writes promoter programs before and after `today` with their visits, what was reported of some,
/// attachments, log entries, and the accounting documents of final ones.
void WritePrograms(Database& database, Random& random, const Network& network,
                   std::chrono::sys_days today);

}  // namespace demo
