#include "Office.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <system_error>

#include "Replay.h"
#include "adapters/qt/Desktop.h"
#include "calendar/Gregorian.h"
#include "demo/OfficeVersion.h"
#include "demo/SampleOffice.h"
#include "demo/ServerOffice.h"
#include "host/modMain.h"
#include "platform/RuntimeError.h"
#include "text/Secrets.h"

namespace desktop {

namespace {

using connection::kEmbedded;

std::string ReadAll(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    throw platform::RuntimeError(platform::kPathFileAccess,
                                 file.errorString().toStdString() + ": " + path.toStdString());
  }
  return file.readAll().toStdString();
}

/// Leaves a file that is there already as it is.
void WriteNew(const std::string& path, const std::string& content) {
  std::FILE* file = std::fopen(path.c_str(), "wbx");
  if (file == nullptr && errno == EEXIST) return;
  bool written = file != nullptr;
  if (file != nullptr) {
    written = std::fwrite(content.data(), 1, content.size(), file) == content.size();
    written = std::fclose(file) == 0 && written;
  }
  if (written) return;
  const std::string reason = std::generic_category().message(errno);
  if (file != nullptr) std::remove(path.c_str());
  throw platform::RuntimeError(platform::kPathFileAccess,
                               path + " could not be written: " + reason);
}

/// Puts the report templates that the program carries into `folder`. What is there already may be
/// the user's own work and stays.
void CopyTemplates(const QDir& folder) {
  const std::string path = folder.absolutePath().toStdString();
  std::error_code error;
  std::filesystem::create_directories(path, error);
  if (error) {
    throw platform::RuntimeError(platform::kPathNotFound,
                                 "Path not found: " + path + " (" + error.message() + ")");
  }
  for (const QFileInfo& carried : QDir(":/templates").entryInfoList(QDir::Files)) {
    WriteNew(folder.filePath(carried.fileName()).toStdString(), ReadAll(carried.filePath()));
  }
}

QDir DataFolder() {
  return {QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
          "/promoter-office"};
}

demo::SampleOptions SampleOf(const Options& options, const QDir& templates) {
  demo::SampleOptions sample;
  sample.customers = options.customers;
  sample.today = options.sampleDate.value_or(adapters::qt::QtDesktop().Today());
  sample.basePath = templates.absolutePath().toStdString() + "/";
  return sample;
}

/// Of an option that names one.
std::string ChosenOffice(const Options& options) {
  return options.connect.empty() ? std::string(kEmbedded) + options.database : options.connect;
}

void BringUpToDate(const std::string& office) {
  const auto update = demo::BringUpToDate(office, [](const std::string& folder) {
    CopyTemplates(QDir(QString::fromStdString(folder)));
  });
  if (!update) return;
  std::cout << "The office's file was of version " << update->from << " and is of version "
            << demo::kOfficeVersion << " now; as it was: " << update->copy << std::endl;
}

/// A file that is not there is told with the way to make one.
void RequireFile(const std::string& connectionString) {
  const std::string path = connectionString.substr(kEmbedded.size());
  std::error_code ignored;
  if (std::filesystem::exists(path, ignored)) return;
  throw platform::RuntimeError(
      platform::kFileNotFound,
      "فايل پايگاه داده «\u202A" + path +
          "\u202C» پيدا نشد؛ با فرمان زير دفتري نمونه در آن ساخته مي شود. File not found; to make "
          "a sample office in it: promoter-desktop --load-sample --connect \"sqlite:" +
          path + "\"");
}

}  // namespace

std::string SampleOfficePath(const Options& options) {
  std::string name = "office-" + std::to_string(options.customers);
  if (options.sampleDate) name += "-" + calendar::GregorianText(*options.sampleDate);
  return DataFolder().filePath(QString::fromStdString(name + ".db")).toStdString();
}

void EnsureSampleOffice(const std::string& path, const Options& options) {
  const QFileInfo file(QString::fromStdString(path));
  const QDir templates(file.absoluteDir().filePath("templates"));
  try {
    CopyTemplates(templates);
    if (file.exists()) return;
    std::cout << "Making a sample office with " << options.customers << " customers in " << path
              << " ..." << std::endl;
    demo::CreateSampleOffice(path, SampleOf(options, templates));
  } catch (const platform::RuntimeError& error) {
    throw platform::RuntimeError(
        error.Number(),
        // The marks keep the slash before the path where the line runs from the right.
        "دفتر نمونه «\u202A" + path +
            "\u202C» آماده نشد؛ جاي خالي ديسك و اجازه نوشتن در پوشه آن را بررسي كنيد. " +
            error.Description(),
        error.Source());
  }
}

void LoadSample(const Options& options) {
  const bool embedded = options.connect.starts_with(kEmbedded);
  if (embedded && !options.collation.empty()) {
    throw platform::RuntimeError(platform::kInvalidProcedureCall,
                                 "--collation is for a SQL Server; a file has none.");
  }
  std::cout << "Making a sample office with " << options.customers << " customers in "
            << text::ShownConnection(options.connect) << " ..." << std::endl;
  const QDir templates(DataFolder().filePath("templates"));
  CopyTemplates(templates);
  const demo::SampleOptions sample = SampleOf(options, templates);
  if (embedded) {
    demo::CreateSampleOffice(options.connect.substr(kEmbedded.size()), sample);
  } else {
    const std::string schema = ReadAll(":/sqlserver/schema.sql");
    const std::string functions = ReadAll(":/sqlserver/functions.sql");
    const std::string procedures = ReadAll(":/sqlserver/procedures.sql");
    const auto server = Connections(options).Create(options.connect);
    demo::LoadServerOffice(*server, {schema, functions, procedures, options.collation}, sample,
                           std::cout);
  }
  std::cout << "The sample office is there." << std::endl;
}

std::string OfficeToOpen(const Options& options, const std::string& made) {
  const bool named = !options.connect.empty() || !options.database.empty();
  if (!named) EnsureSampleOffice(made, options);
  std::string office = named ? ChosenOffice(options) : std::string(kEmbedded) + made;
  if (office.starts_with(kEmbedded)) {
    RequireFile(office);
    BringUpToDate(office.substr(kEmbedded.size()));
  }
  return office;
}

std::string OfficeFile(const Options& options) {
  const bool named = !options.connect.empty() || !options.database.empty();
  const std::string office =
      named ? ChosenOffice(options) : std::string(kEmbedded) + SampleOfficePath(options);
  RequireFile(office);
  return office.substr(kEmbedded.size());
}

bool ReplayStatements(const Options& options) {
  const std::string script = ReadAll(QString::fromStdString(options.replayFile));
  const std::string target = OfficeToOpen(options, {});
  const auto connection = Connections(options).Create(target);
  // One that cannot be reached says so once, not for every statement.
  connection->Execute("Select 1 as Reached");
  return Replay(script, *connection, std::cout);
}

}  // namespace desktop
