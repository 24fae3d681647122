#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/Functions.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"
#include "editor/EditorState.h"
#include "module/Module.h"
#include "support/ScriptedPlatform.h"

namespace module {

/// The module over a sample office in a file of its own: 60 customers, 14 programs, the machine's
/// day is 1404/09/01 and the server's is today. A lock is waited for 20 ms. The user acts through
/// the fakes.
class Office : private platform::ConnectionFactory {
 public:
  /// A second host beside another where that one's file is given.
  explicit Office(const std::string& shared = NewCopy()) : file(shared) {
    sqlite3* opened = nullptr;
    EXPECT_EQ(sqlite3_open(file.c_str(), &opened), SQLITE_OK);
    plain_.reset(opened);
    EXPECT_TRUE(adapters::sqlite::RegisterCollation(opened));
    outside.desktop.today = std::chrono::year(2025) / std::chrono::November / std::chrono::day(22);
    control_.SetUserID(1);
    control_.SetEmployeeID(1);
    control_.SetPositionID(1);
    control_.SetOLEConnectionString(std::string("Provider=any;Password=") + kPassword);
  }
  ~Office() override {
    module_.reset();
    std::filesystem::remove(file);
  }
  Office(const Office&) = delete;
  Office& operator=(const Office&) = delete;

  host::DistPromoterProg& Control() { return control_; }
  editor::FormMain& Editor() { return module_->Editor(); }

  /// Rows of plain statements, done past the module: cells joined by "|", NULL as "~". A failure
  /// fails the test.
  std::vector<std::string> Stored(const std::string& sql) const {
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
  std::string Cell(const std::string& sql) const {
    const std::vector<std::string> rows = Stored(sql);
    EXPECT_EQ(rows.size(), 1U) << sql;
    return rows.empty() ? std::string() : rows[0];
  }
  /// Of all tables, in order, each behind the name of its table.
  std::vector<std::string> AllRows() const {
    std::string selects;
    for (const std::string& table : Stored(
             "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'")) {
      selects += "SELECT '" + table + "', * FROM " + table + ";";
    }
    std::vector<std::string> rows = Stored(selects);
    std::ranges::sort(rows);
    return rows;
  }
  /// Past the module, in its words.
  std::unique_ptr<platform::Connection> Connect() { return Create(""); }
  /// What must be so after every action at the editor, but for a button whose work goes on.
  void ExpectInOrder(const std::string& after, const controls::Control* working = nullptr) {
    editor::FormMain& form = Editor();
    EXPECT_EQ(outside.screen.pointer, controls::MousePointer::kDefault) << after;
    EXPECT_TRUE(form.flxDetail.Redraw()) << after;
    std::set<std::string> usable = editor::UsableIn(editor::StateOf(form));
    std::set<std::string> now = editor::UsableNow(form);
    if (working != nullptr) {
      usable.erase(working->Name());
      now.erase(working->Name());
    }
    EXPECT_EQ(now, usable) << after;
  }

  const std::string file;
  support::ScriptedPlatform outside;
  support::FakeProgress waiting;  // is shown the statements that run
  static constexpr const char* kPassword = "Geheim-7301";

 private:
  struct Template {
    Template() {
      std::filesystem::remove_all(folder);
      std::filesystem::create_directories(folder);
      demo::CreateSampleOffice(file, {.customers = 60,
                                      .today = std::chrono::year(2025) / std::chrono::November / 22,
                                      .basePath = "/suite/"});
    }
    ~Template() { std::filesystem::remove_all(folder); }
    /// In memory where the machine has such a folder: the tests are about rows, not about a disk.
    const std::filesystem::path folder =
        (std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : testing::TempDir()) +
        ("/office-" + std::to_string(getpid()));
    const std::string file = (folder / "office.db").string();
  };

 protected:
  static std::string NewCopy() {
    static const Template made;
    std::string file = made.file + "-XXXXXX";
    close(mkstemp(file.data()));
    std::filesystem::copy_file(made.file, file, std::filesystem::copy_options::overwrite_existing);
    return file;
  }
  /// All that the module asks of its database passes here.
  virtual platform::RowSet Execute(platform::Connection& database, std::string_view statement) {
    return database.Execute(statement);
  }
  virtual std::int32_t CallProcedure(platform::Connection& database, std::string_view name,
                                     std::span<const platform::Parameter> parameters) {
    return database.CallProcedure(name, parameters);
  }

 private:
  class Line : public platform::Connection {
   public:
    explicit Line(Office& office)
        : office_(office),
          embedded_("sqlite:" + office.file, std::chrono::milliseconds(20),
                    platform::kStatementLimit, &office.waiting) {}
    platform::RowSet Execute(std::string_view statement) override {
      return office_.Execute(embedded_, statement);
    }
    std::int32_t CallProcedure(std::string_view name,
                               std::span<const platform::Parameter> parameters) override {
      return office_.CallProcedure(embedded_, name, parameters);
    }

   private:
    Office& office_;
    adapters::sqlite::SqliteConnection embedded_;
  };
  std::unique_ptr<platform::Connection> Create(const std::string& /*connectionString*/) override {
    return std::make_unique<Line>(*this);
  }
  bool Busy() const override { return waiting.UnderWay(); }

  std::unique_ptr<sqlite3, int (*)(sqlite3*)> plain_{nullptr, sqlite3_close};
  std::unique_ptr<Module> module_ = std::make_unique<Module>(outside.Services(*this));
  host::DistPromoterProg control_{module_->Main(), module_->Editor(), outside.controlSite};
};

class OfficeTest : public testing::Test, public Office {};

}  // namespace module
