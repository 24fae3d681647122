#include "Office.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <cstdio>

#include "adapters/qt/Services.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"
#include "host/modMain.h"
#include "platform/RuntimeError.h"

namespace desktop {

namespace {

constexpr std::string_view kEmbedded = "sqlite:";

/// What a string that names no engine gives: the refusal waits for the first statement, so that
/// setting a connection up never fails.
class UnknownConnection : public platform::Connection {
 public:
  platform::RowSet Execute(std::string_view) override { Refuse(); }
  std::int32_t CallProcedure(std::string_view, std::span<const platform::Parameter>) override {
    Refuse();
  }

 private:
  [[noreturn]] static void Refuse() {
    throw platform::RuntimeError(
        3706, "Provider cannot be found. It may not be properly installed.", "desktop");
  }
};

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

}  // namespace

std::unique_ptr<platform::Connection> Connections::Create(const std::string& connectionString) {
  if (connectionString.starts_with(kEmbedded)) {
    return std::make_unique<adapters::sqlite::SqliteConnection>(connectionString);
  }
  return std::make_unique<UnknownConnection>();
}

std::string SampleOfficePath(int customers) {
  const QDir folder(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                    "/promoter-office");
  return folder.filePath(QString("office-%1.db").arg(customers)).toStdString();
}

void EnsureSampleOffice(const std::string& path, int customers) {
  const QFileInfo file(QString::fromStdString(path));
  const QDir templates(file.absoluteDir().filePath("templates"));
  CopyTemplates(templates);
  if (file.exists()) return;
  std::printf("Making a sample office with %d customers in %s ...\n", customers, path.c_str());
  std::fflush(stdout);
  demo::SampleOptions options;
  options.customers = customers;
  options.today = adapters::qt::QtClock().Today();
  options.basePath = templates.absolutePath().toStdString() + "/";
  demo::CreateSampleOffice(path, options);
}

std::int32_t EmployeeOfUser(const std::string& connectionString, std::int32_t user) {
  const auto connection = Connections().Create(connectionString);
  const platform::RowSet rows =
      connection->Execute("select EmployeeID from tblZomirUser where ID=" + std::to_string(user));
  return rows.RowCount() == 0 ? -1 : host::NumericId(rows.Text(0, 0));
}

}  // namespace desktop
