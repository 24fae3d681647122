#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "demo/Database.h"
#include "demo/Random.h"

namespace demo {

struct Path {
  int id = 0;
  int region = 0;
  int branch = 0;
  std::string street;
  std::vector<int> customers;  // ids, ascending
};

struct Promoter {
  int id = 0;
  std::vector<std::size_t> paths;  // places in Network::paths
};

struct Supervisor {
  int id = 0;
  int branch = 0;
  std::vector<Promoter> promoters;
};

/// Who sells what to whom where, as far as the programs need it.
struct Network {
  std::vector<Path> paths;
  std::vector<Supervisor> supervisors;
};

/// Writes branches, regions, paths, employees, the two users with their rights, and customers.
Network WriteNetwork(Database& database, Random& random, int customers);

}  // namespace demo
