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
