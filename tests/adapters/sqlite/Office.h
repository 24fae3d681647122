#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "adapters/sqlite/SqliteConnection.h"
#include "demo/PlainDatabase.h"
#include "support/ErrorNumber.h"
#include "support/Lines.h"
#include "support/TestFolder.h"

namespace adapters::sqlite {

using support::Lines;

/// "from,from+1,..."
inline std::string Numbers(int from, int count) {
  std::string list = std::to_string(from);
  while (--count > 0) list += "," + std::to_string(++from);
  return list;
}

/// The rows of so many numbers, each with each.
inline std::string Crossed(int count) {
  const std::string list = "dbo.fnZomirStringToTable('" + Numbers(1, count) + "') ";
  return list + "a, " + list + "b";
}

/// A small office in a file: what office.sql makes.
class Office {
 public:
  Office() {
    const std::string schema = support::Content("tests/adapters/sqlite/office.sql");
    EXPECT_EQ(demo::PlainDatabase(file).Text(schema), "wal;");
  }

  std::string ConnectionString() const { return "sqlite:" + file; }
  /// The Lines of what `connection` gives.
  std::string Rows(std::string_view statement) { return Lines(connection.Execute(statement)); }
  platform::RuntimeError FailureOf(std::string_view statement) {
    return support::FailureOf([&] { connection.Execute(statement); });
  }
  int ErrorOf(std::string_view statement) { return FailureOf(statement).Number(); }

  support::TestFolder folder;
  std::string file = folder.File("office #1%.db");
  SqliteConnection connection{ConnectionString()};
};

}  // namespace adapters::sqlite
