#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "adapters/sqlite/SqliteConnection.h"
#include "platform/RuntimeError.h"

namespace adapters::sqlite {

/// A folder of its own for one test's files, removed with them.
class TestFolder {
 public:
  TestFolder();
  ~TestFolder();
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  std::string File(std::string_view name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

/// A small office in a file: the tables that statements of the module name, with a row or two.
class Office {
 public:
  Office();

  std::string ConnectionString() const { return "sqlite:" + file; }
  /// Executes on `connection`; a row a line, cells joined by "|", NULL as "~".
  std::string Rows(std::string_view statement);
  /// The error's number, 0 when there was none.
  int ErrorOf(std::string_view statement);

  TestFolder folder;
  std::string file;
  SqliteConnection connection;
};

/// As Office::Rows, of any result.
std::string Lines(const platform::RowSet& rows);

}  // namespace adapters::sqlite
