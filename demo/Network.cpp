#include "demo/Network.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <utility>

#include "demo/Names.h"

namespace demo {

namespace {

constexpr std::array kSupervisorBranches = {1, 1, 1, 2, 3, 4};
constexpr int kPromotersOfSupervisor = 4;
constexpr int kOfficeStaff = 3;
constexpr int kPercentWithoutPath = 2;

std::string Padded(int number, std::size_t width) {
  std::string digits = std::to_string(number);
  return std::string(width - std::min(width, digits.size()), '0') + digits;
}

std::string Digits(Random& random, int count) {
  std::string digits;
  while (count-- > 0) digits += static_cast<char>('0' + random.Below(10));
  return digits;
}

std::string CellPhone(Random& random) {
  static constexpr std::string_view kPrefixes[] = {"0912", "0913", "0915", "0917", "0919", "0901",
                                                   "0902", "0935", "0936", "0937", "0938"};
  std::string number(random.Pick(std::span<const std::string_view>(kPrefixes)));
  return number += Digits(random, 7);
}

std::string Phone(Random& random, const City& city) {
  std::string number(city.areaCode);
  number += std::to_string(random.Between(3, 8));
  return number += Digits(random, 7);
}

/// The same text from a keyboard that writes the Persian kaf instead of the Arabic one.
std::string WithPersianKaf(std::string text) {
  constexpr std::string_view kArabicKaf = "\u0643";
  constexpr std::string_view kPersianKaf = "\u06A9";
  for (auto at = text.find(kArabicKaf); at != std::string::npos; at = text.find(kArabicKaf, at)) {
    text.replace(at, kArabicKaf.size(), kPersianKaf);
  }
  return text;
}

const City& CityOf(int branch) {
  return Cities()[static_cast<std::size_t>(branch) - 1];
}

void WriteBranches(Database& database, Random& random) {
  Insert insert(database, "tblAccountBranch", "ID, Code, Name, City, Phone");
  int id = 0;
  for (const City& city : Cities()) {
    ++id;
    insert.Row(
        {id, Padded(id, 2), "شعبه " + std::string(city.name), city.name, Phone(random, city)});
  }
}

std::vector<Path> WriteRegionsAndPaths(Database& database, Random& random) {
  Insert insertRegion(database, "tblDistributionRegion", "ID, Description, BranchID");
  Insert insertPath(database, "tblDistributionPath", "ID, Name, RegionID");
  std::vector<Path> paths;
  int region = 0;
  for (int branch = 1; branch <= static_cast<int>(Cities().size()); ++branch) {
    for (std::string_view name : CityOf(branch).regions) {
      ++region;
      insertRegion.Row({region, name, branch});
      const int count = random.Between(3, 5);
      const int firstStreet = random.Below(static_cast<int>(Streets().size()));
      for (int number = 1; number <= count; ++number) {
        const auto street = static_cast<std::size_t>(firstStreet + 5 * number) % Streets().size();
        Path path;
        path.id = static_cast<int>(paths.size()) + 1;
        path.region = region;
        path.branch = branch;
        path.street = Streets()[street];
        insertPath.Row({path.id,
                        "مسير " + std::to_string(10 * region + number) + " - " + path.street,
                        region});
        paths.push_back(std::move(path));
      }
    }
  }
  return paths;
}

/// Hands out employees, no two of the same name, ids from 1.
class Employees {
 public:
  Employees(Database& database, Random& random)
      : random_(random),
        insert_(database, "tblEmployee", "ID, Code, FirstName, LastName, CellPhone") {}

  int Hire() {
    std::string_view firstName;
    std::string_view surname;
    do {
      firstName = random_.Pick(FirstNames());
      surname = random_.Pick(Surnames());
    } while (!names_.insert(std::string(firstName) + std::string(surname)).second);
    const int id = static_cast<int>(names_.size());
    insert_.Row({id, std::to_string(1000 + id), firstName, surname, CellPhone(random_)});
    return id;
  }

 private:
  Random& random_;
  Insert insert_;
  std::set<std::string> names_;
};

std::vector<Supervisor> WriteStaff(Database& database, Random& random) {
  Employees employees(database, random);
  Insert insertSupervisor(database, "tblSaleSupervisor", "EmployeeID, BranchID");
  Insert insertPromoter(database, "tblSalePromoter", "EmployeeID, BranchID");
  Insert insertTeam(database, "tblSaleSupervisorPromoter", "SupervisorID, PromoterID");
  Insert insertUser(database, "tblZomirUser", "ID, UserName, EmployeeID");

  std::vector<Supervisor> supervisors;
  for (int branch : kSupervisorBranches) {
    Supervisor supervisor;
    supervisor.id = employees.Hire();
    supervisor.branch = branch;
    insertSupervisor.Row({supervisor.id, branch});
    supervisors.push_back(std::move(supervisor));
  }
  for (Supervisor& supervisor : supervisors) {
    for (int count = 0; count < kPromotersOfSupervisor; ++count) {
      Promoter promoter;
      promoter.id = employees.Hire();
      insertPromoter.Row({promoter.id, supervisor.branch});
      insertTeam.Row({supervisor.id, promoter.id});
      supervisor.promoters.push_back(std::move(promoter));
    }
  }
  insertUser.Row({1, "planner", supervisors.front().id});
  insertUser.Row({2, "viewer", employees.Hire()});
  for (int count = 1; count < kOfficeStaff; ++count) employees.Hire();
  return supervisors;
}

void WriteRights(Database& database) {
  constexpr int kEverything = 0;
  constexpr int kOpenModule = 111;
  constexpr int kViewDocument = 303;
  Insert insert(database, "tblZomirUserPermission", "UserID, FormPermissionID");
  insert.Row({1, kEverything});
  insert.Row({2, kOpenModule});
  insert.Row({2, kViewDocument});
}

/// Gives every promoter two to four neighbouring regions of the branch and most paths in them, and
/// nobody's paths to the first promoter who works in their region.
void AssignPaths(Database& database, Random& random, const std::vector<Path>& paths,
                 std::vector<Supervisor>& supervisors) {
  std::vector<int> promotersOfBranch(Cities().size() + 1);
  std::vector<bool> taken(paths.size());
  std::vector<Promoter*> firstOfRegion(paths.size() + 1);  // there are no more regions than paths
  for (Supervisor& supervisor : supervisors) {
    const auto branch = static_cast<std::size_t>(supervisor.branch);
    const int regions = static_cast<int>(CityOf(supervisor.branch).regions.size());
    const auto first = std::find_if(paths.begin(), paths.end(), [&](const Path& path) {
      return path.branch == supervisor.branch;
    });
    for (Promoter& promoter : supervisor.promoters) {
      const int start = 2 * promotersOfBranch[branch]++;
      const int count = random.Between(2, 4);
      for (int step = 0; step < count; ++step) {
        const int region = first->region + (start + step) % regions;
        Promoter*& firstHere = firstOfRegion[static_cast<std::size_t>(region)];
        if (firstHere == nullptr) firstHere = &promoter;
        bool any = false;
        for (std::size_t at = 0; at < paths.size(); ++at) {
          if (paths[at].region != region || (any && !random.Chance(70))) continue;
          promoter.paths.push_back(at);
          taken[at] = any = true;
        }
      }
    }
  }
  for (std::size_t at = 0; at < paths.size(); ++at) {
    if (taken[at]) continue;
    firstOfRegion[static_cast<std::size_t>(paths[at].region)]->paths.push_back(at);
  }
  Insert insert(database, "tblDistributionPathPromoters", "EmployeeID, PathID");
  for (const Supervisor& supervisor : supervisors) {
    for (const Promoter& promoter : supervisor.promoters) {
      for (std::size_t at : promoter.paths) insert.Row({promoter.id, paths[at].id});
    }
  }
}

int PickActivity(Random& random) {
  int left = random.Below(100);
  int id = 1;
  for (const Activity& activity : Activities()) {
    left -= activity.share;
    if (left < 0) break;
    ++id;
  }
  return id;
}

std::string Address(Random& random, const City& city, std::string_view street) {
  std::string address = std::string(city.name) + "، " + std::string(street);
  if (random.Chance(75)) {
    const std::string alley = random.Chance(50) ? std::to_string(random.Between(1, 60))
                                                : std::string(random.Pick(Alleys()));
    address += (random.Chance(15) ? "، نبش كوچه " : "، كوچه ") + alley;
  }
  address += "، پلاك " + std::to_string(random.Between(1, 320));
  if (random.Chance(8)) address += "، طبقه همكف";
  return address;
}

/// Writes the customers of all paths, with their places on the paths.
class Customers {
 public:
  Customers(Database& database, Random& random)
      : random_(random),
        insert_(database, "tblOrganization",
                "ID, Code, FirstName, Name, Address, CellPhone, Phone1, Phone2, WorkActivityID"),
        insertPlace_(database, "tblDistributionOrganization", "OrganizationID, PathID, BranchID") {}

  void Write(Path& path) {
    const bool onPath = !random_.Chance(kPercentWithoutPath);
    const int region = onPath ? path.region : 0;
    auto& serial = serials_[{path.branch, region}];
    const std::string code = std::to_string(path.branch) + Padded(region, 2) + Padded(++serial, 5);
    WriteOrganization(code, CityOf(path.branch), path.street);
    if (!onPath) return;
    insertPlace_.Row({id_, path.id, path.branch});
    path.customers.push_back(id_);
  }

 private:
  void WriteOrganization(const std::string& code, const City& city, std::string_view street) {
    const int activity = PickActivity(random_);
    const Activity& kind = Activities()[static_cast<std::size_t>(activity) - 1];
    std::string name = std::string(kind.shopWord) + " " + std::string(random_.Pick(ShopNames()));
    std::optional<std::string> owner;
    if (random_.Chance(55)) {
      owner = random_.Pick(FirstNames());
      name = std::string(random_.Pick(Surnames())) + " (" + name + ")";
    }
    std::optional<std::string> address;
    if (random_.Chance(97)) address = Address(random_, city, street);
    std::optional<std::string> cellPhone;
    if (random_.Chance(93)) cellPhone = CellPhone(random_);
    std::optional<std::string> phone1;
    if (random_.Chance(80)) phone1 = Phone(random_, city);
    std::optional<std::string> phone2;
    if (phone1 && random_.Chance(25)) phone2 = Phone(random_, city);
    if (random_.Chance(35)) {
      name = WithPersianKaf(name);
      if (owner) owner = WithPersianKaf(*owner);
      if (address) address = WithPersianKaf(*address);
    }
    insert_.Row({++id_, code, owner, name, address, cellPhone, phone1, phone2,
                 random_.Chance(98) ? Value(activity) : Value(std::nullopt)});
  }

  Random& random_;
  Insert insert_;
  Insert insertPlace_;
  std::map<std::pair<int, int>, int> serials_;
  int id_ = 0;
};

void WriteActivities(Database& database) {
  Insert insert(database, "tblZomirWorkActivity", "ID, Code, Name");
  int id = 0;
  for (const Activity& activity : Activities()) {
    ++id;
    insert.Row({id, Padded(id, 2), activity.name});
  }
}

}  // namespace

Network WriteNetwork(Database& database, Random& random, int customers) {
  Network network;
  WriteBranches(database, random);
  network.paths = WriteRegionsAndPaths(database, random);
  network.supervisors = WriteStaff(database, random);
  WriteRights(database);
  AssignPaths(database, random, network.paths, network.supervisors);
  WriteActivities(database);
  Customers writer(database, random);
  for (int count = 0; count < customers; ++count) {
    writer.Write(
        network
            .paths[static_cast<std::size_t>(random.Below(static_cast<int>(network.paths.size())))]);
  }
  return network;
}

}  // namespace demo
