#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
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
  explicit ModuleTest(int customers = 1000) {
    namespace fs = std::filesystem;
    folder_ =
        fs::path(testing::TempDir()) /
        (std::string("module-") + testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    const std::string file = (folder_ / "office.db").string();
    demo::SampleOptions options;
    options.customers = customers;
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
  void TearDown() override {
    module_.reset();
    plain_.reset();
    std::filesystem::remove_all(folder_);
  }

  class Module& Module() {
    return *module_;
  }
  editor::FormMain& Editor() { return module_->Editor(); }
  void LogIn(std::int32_t user) { Module().Control().SetUserID(user); }

  /// Rows of a plain statement: cells joined by "|", NULL as "~". A failure fails the test.
  std::vector<std::string> Stored(const std::string& sql) {
    std::vector<std::string> rows;
    const auto append = [](void* into, int columns, char** cells, char** /*names*/) {
      std::string row;
      for (int col = 0; col < columns; ++col) {
        row += (col > 0 ? "|" : "") + std::string(cells[col] ? cells[col] : "~");
      }
      static_cast<std::vector<std::string>*>(into)->push_back(row);
      return 0;
    };
    EXPECT_EQ(sqlite3_exec(plain_.get(), sql.c_str(), append, &rows, nullptr), SQLITE_OK)
        << sql << ": " << sqlite3_errmsg(plain_.get());
    return rows;
  }
  std::string Cell(const std::string& sql) {
    const std::vector<std::string> rows = Stored(sql);
    EXPECT_EQ(rows.size(), 1U) << sql;
    return rows.empty() ? std::string() : rows[0];
  }

  /// Told of every statement before it runs and of every procedure's result, which it may change.
  virtual void Sending(std::string_view /*statement*/) {}
  virtual std::int32_t Called(std::span<const platform::Parameter> /*parameters*/,
                              std::int32_t result) {
    return result;
  }

  support::ScriptedPlatform outside;
  /// What the module has sent so far, over all of its connections, in order and to the byte.
  std::vector<std::string> sentStatements;
  /// The names of the procedures that it has called.
  std::set<std::string> calledProcedures;

 private:
  class RecordedConnection : public platform::Connection {
   public:
    RecordedConnection(ModuleTest& test, const std::string& connectionString)
        : test_(test), embedded_(connectionString) {}
    platform::RowSet Execute(std::string_view statement) override {
      test_.sentStatements.emplace_back(statement);
      test_.Sending(statement);
      return embedded_.Execute(statement);
    }
    std::int32_t CallProcedure(std::string_view name,
                               std::span<const platform::Parameter> parameters) override {
      test_.calledProcedures.emplace(name);
      return test_.Called(parameters, embedded_.CallProcedure(name, parameters));
    }

   private:
    ModuleTest& test_;
    adapters::sqlite::SqliteConnection embedded_;
  };
  class Connections : public platform::ConnectionFactory {
   public:
    explicit Connections(ModuleTest& test) : test_(test) {}
    std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override {
      return std::make_unique<RecordedConnection>(test_, connectionString);
    }

   private:
    ModuleTest& test_;
  };
  std::filesystem::path folder_;
  std::unique_ptr<sqlite3, int (*)(sqlite3*)> plain_{nullptr, sqlite3_close};
  Connections connections_{*this};
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
