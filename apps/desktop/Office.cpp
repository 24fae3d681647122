#include "Office.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <iostream>

#include "Replay.h"
#include "adapters/odbc/OdbcConnection.h"
#include "adapters/qt/Services.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "calendar/Gregorian.h"
#include "demo/SampleOffice.h"
#include "demo/ServerOffice.h"
#include "host/modMain.h"
#include "platform/RuntimeError.h"
#include "text/Secrets.h"

namespace desktop {

namespace {

constexpr std::string_view kEmbedded = "sqlite:";

/// Puts the report templates that the program carries into `folder`. What is there already may be
/// the user's own work and stays.
void CopyTemplates(const QDir& folder) {
  if (!folder.mkpath(".")) {
    throw platform::RuntimeError(76, "Path not found: " + folder.absolutePath().toStdString());
  }
  for (const QFileInfo& carried : QDir(":/templates").entryInfoList(QDir::Files)) {
    const QString path = folder.filePath(carried.fileName());
    if (QFile::exists(path)) continue;
    QFile file(carried.filePath());
    if (!file.copy(path)) {
      throw platform::RuntimeError(75,
                                   file.errorString().toStdString() + ": " + path.toStdString());
    }
    // Resources are read only, and so would be their copies.
    QFile::setPermissions(path, QFile::permissions(path) | QFile::WriteOwner);
  }
}

QDir DataFolder() {
  return {QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
          "/promoter-office"};
}

demo::SampleOptions SampleOf(const Options& options, const QDir& templates) {
  demo::SampleOptions sample;
  sample.customers = options.customers;
  sample.today = options.sampleDate.value_or(adapters::qt::QtClock().Today());
  sample.basePath = templates.absolutePath().toStdString() + "/";
  return sample;
}

std::string ReadAll(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    throw platform::RuntimeError(75, file.errorString().toStdString() + ": " + path.toStdString());
  }
  return file.readAll().toStdString();
}

}  // namespace

std::unique_ptr<platform::Connection> Connections::Create(const std::string& connectionString) {
  if (connectionString.starts_with(kEmbedded)) {
    return std::make_unique<adapters::sqlite::SqliteConnection>(connectionString);
  }
  return std::make_unique<adapters::odbc::OdbcConnection>(connectionString,
                                                          outages_.Of(connectionString));
}

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
  std::cout << "Making a sample office with " << options.customers << " customers in "
            << text::ShownConnection(options.connect) << " ..." << std::endl;
  const QDir templates(DataFolder().filePath("templates"));
  CopyTemplates(templates);
  const demo::SampleOptions sample = SampleOf(options, templates);
  if (options.connect.starts_with(kEmbedded)) {
    demo::CreateSampleOffice(options.connect.substr(kEmbedded.size()), sample);
  } else {
    const std::string schema = ReadAll(":/sqlserver/schema.sql");
    const std::string functions = ReadAll(":/sqlserver/functions.sql");
    const std::string procedures = ReadAll(":/sqlserver/procedures.sql");
    const auto server = Connections().Create(options.connect);
    demo::LoadServerOffice(*server, {schema, functions, procedures}, sample, std::cout);
  }
  std::cout << "The sample office is there." << std::endl;
}

bool ReplayStatements(const Options& options) {
  const std::string script = ReadAll(QString::fromStdString(options.replayFile));
  const std::string target =
      options.connect.empty() ? std::string(kEmbedded) + options.database : options.connect;
  const auto connection = Connections().Create(target);
  // One that cannot be reached says so once, not for every statement.
  connection->Execute("Select 1 as Reached");
  return Replay(script, *connection, std::cout);
}

std::int32_t EmployeeOfUser(const std::string& connectionString, std::int32_t user) {
  const auto connection = Connections().Create(connectionString);
  const platform::RowSet rows =
      connection->Execute("select EmployeeID from tblZomirUser where ID=" + std::to_string(user));
  return rows.RowCount() == 0 ? -1 : host::NumericId(rows.Text(0, 0));
}

}  // namespace desktop
