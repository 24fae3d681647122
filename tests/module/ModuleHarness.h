#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"
#include "module/Module.h"
#include "support/ScriptedPlatform.h"

namespace module {

/// The module over a sample office in a file of its own. The user acts through the fakes; what is
/// stored is read by plain statements on another connection.
class ModuleTest : public testing::Test {
 protected:
  ModuleTest() {
    namespace fs = std::filesystem;
    folder_ =
        fs::path(testing::TempDir()) /
        (std::string("module-") + testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    const std::string file = (folder_ / "office.db").string();
    demo::SampleOptions options;
    options.customers = 1000;
    options.today = std::chrono::year(2025) / std::chrono::November / 22;
    options.basePath = "/suite/";
    demo::CreateSampleOffice(file, options);
    sqlite3* opened = nullptr;
    EXPECT_EQ(sqlite3_open(file.c_str(), &opened), SQLITE_OK);
    plain_.reset(opened);
    Module().Control().SetEmployeeID(1);
    Module().Control().SetPositionID(1);
    Module().Control().SetOLEConnectionString("sqlite:" + file);
    LogIn(1);
  }
  ~ModuleTest() override {
    module_.reset();
    plain_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  class Module& Module() {
    return *module_;
  }
  editor::FormMain& Editor() { return module_->Editor(); }
  void LogIn(std::int32_t user) { Module().Control().SetUserID(user); }

  /// Rows of a plain statement: cells joined by "|", NULL as "~". A failure fails the test.
  std::vector<std::string> Stored(const std::string& sql) {
    sqlite3_stmt* prepared = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(plain_.get(), sql.c_str(), -1, &prepared, nullptr), SQLITE_OK)
        << sql << ": " << sqlite3_errmsg(plain_.get());
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(prepared,
                                                                          sqlite3_finalize);
    std::vector<std::string> rows;
    int step = sqlite3_step(prepared);
    for (; step == SQLITE_ROW; step = sqlite3_step(prepared)) {
      std::string row;
      for (int col = 0; col < sqlite3_column_count(prepared); ++col) {
        const void* text = sqlite3_column_blob(prepared, col);
        const auto size = static_cast<std::size_t>(sqlite3_column_bytes(prepared, col));
        if (col > 0) row += "|";
        row += sqlite3_column_type(prepared, col) == SQLITE_NULL
                   ? "~"
                   : std::string(static_cast<const char*>(text), size);
      }
      rows.push_back(row);
    }
    EXPECT_EQ(step, SQLITE_DONE) << sql << ": " << sqlite3_errmsg(plain_.get());
    return rows;
  }
  std::string Cell(const std::string& sql) {
    const std::vector<std::string> rows = Stored(sql);
    EXPECT_EQ(rows.size(), 1U) << sql;
    return rows.empty() ? std::string() : rows[0];
  }

  support::ScriptedPlatform outside;

 private:
  class Connections : public platform::ConnectionFactory {
   public:
    std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override {
      return std::make_unique<adapters::sqlite::SqliteConnection>(connectionString);
    }
  };
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
  };

  std::filesystem::path folder_;
  std::unique_ptr<sqlite3, Close> plain_;
  Connections connections_;
  std::unique_ptr<class Module> module_ =
      std::make_unique<class Module>(host::Services{.screen = outside.screen,
                                                    .connections = connections_,
                                                    .components = outside.components,
                                                    .clock = outside.clock,
                                                    .keyboard = outside.keyboard,
                                                    .fileDialog = outside.fileDialog,
                                                    .excel = outside.excel,
                                                    .progress = outside.progress,
                                                    .fileSystem = outside.fileSystem,
                                                    .launcher = outside.launcher,
                                                    .reports = outside.reports},
                                     outside.controlSite);
};

}  // namespace module
