#include "demo/SampleOffice.h"

#include <filesystem>
#include <random>
#include <system_error>

#include "demo/Database.h"
#include "demo/Network.h"
#include "demo/OfficeVersion.h"
#include "demo/Programs.h"
#include "demo/Random.h"
#include "demo/ReportTemplates.h"
#include "demo/Schema.h"
#include "platform/RuntimeError.h"

namespace demo {

namespace {

namespace fs = std::filesystem;

constexpr int kMostCustomers = 1'000'000;

/// A file of its own beside the wanted one, gone again unless it was given that one's name.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(const fs::path& wanted) : wanted_(wanted), path_(wanted) {
    path_ += "." + std::to_string(std::random_device{}()) + ".unfinished";
  }
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;
  ~UnfinishedFile() {
    std::error_code ignored;
    fs::remove(path_, ignored);
  }

  std::string Path() const { return path_.string(); }

  /// A link, unlike a rename, never replaces a file that somebody else made meanwhile. Where the
  /// file system knows no links a rename has to do.
  void TakeName() {
    std::error_code failure;
    fs::create_hard_link(path_, wanted_, failure);
    if (!failure) return;
    RefuseExisting(wanted_);
    fs::rename(path_, wanted_, failure);
    if (failure) {
      throw platform::RuntimeError(platform::kPathFileAccess,
                                   failure.message() + ": " + wanted_.string());
    }
  }

  static void RefuseExisting(const fs::path& path) {
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(path, ignored))) {
      throw platform::RuntimeError(platform::kFileAlreadyExists,
                                   "File already exists: " + path.string());
    }
  }

 private:
  fs::path wanted_;
  fs::path path_;
};

void WriteReportTemplates(Database& database) {
  Insert report(database, "tblZomirReportTemplate", "FormTypeID, Title, FilePath");
  for (const ShippedTemplate& shipped : kShippedTemplates) {
    report.Row({kTemplateFormType, shipped.title, shipped.file});
  }
}

void FillOffice(Database& database, const SampleOptions& options) {
  Random random(options.seed);
  // The file is nobody's until it is whole: no journal is needed to take anything back.
  database.Execute("PRAGMA journal_mode = OFF; PRAGMA foreign_keys = ON; BEGIN");
  database.Execute(OfficeSchema());
  database.Execute(OfficeMark());
  Insert(database, "tblZomirBasePath", "ID, BasePath")
      .Row({1, options.basePath.empty() ? Value(std::nullopt) : Value(options.basePath)});
  WriteReportTemplates(database);
  const Network network = WriteNetwork(database, random, options.customers);
  WritePrograms(database, random, network, options.today);
  database.Execute("COMMIT");
}

}  // namespace

void CreateSampleOffice(const std::string& path, const SampleOptions& options) {
  if (options.customers < 1 || options.customers > kMostCustomers) {
    throw platform::RuntimeError(platform::kInvalidProcedureCall,
                                 "A sample office has 1 to 1000000 customers, not " +
                                     std::to_string(options.customers) + ".");
  }
  UnfinishedFile::RefuseExisting(path);
  UnfinishedFile file{fs::path(path)};
  try {
    Database database(file.Path());
    FillOffice(database, options);
  } catch (const platform::RuntimeError& error) {
    throw platform::RuntimeError(error.Number(), error.Description() + ": " + path, error.Source());
  }
  file.TakeName();
}

}  // namespace demo
