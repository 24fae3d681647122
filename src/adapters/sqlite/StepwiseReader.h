#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/Translator.h"
#include "platform/Progress.h"
#include "platform/RowReader.h"

namespace adapters::sqlite {

/// Rows of a SELECT, stepped as they are wanted, on a handle of its own: until its last row or its
/// end it reads the file as it was at the first step, and neither that nor a file put in its place
/// meanwhile touches what the connection does.
class StepwiseReader : public platform::RowReader {
 public:
  struct Limits {
    std::chrono::milliseconds busyTimeout;
    std::chrono::milliseconds statementLimit;  // of each Read
  };
  /// Nothing where a reader would make writers wait: on a file without a write-ahead log. Throws
  /// as Prepare and OpenDatabase do.
  static std::unique_ptr<StepwiseReader> Open(const std::string& file, Translation translation,
                                              Limits limits, platform::Progress* progress);

  const std::vector<std::string>& Columns() const override { return names_; }
  bool Read(platform::RowSet& rows, std::size_t most) override;

 private:
  StepwiseReader(std::string file, Translation translation, Limits limits,
                 platform::Progress* progress);
  bool Step();
  bool ReadSome(platform::RowSet& rows, std::size_t most);
  void StepOverGiven();
  int DataVersion() const;

  std::string file_;
  Translation translation_;
  Limits limits_;
  platform::Progress* progress_;
  std::vector<std::string> names_;
  DatabaseHandle database_;
  StatementHandle statement_;  // null after the last row
  std::size_t given_ = 0;
  bool underWay_ = false;  // the statement stands behind the rows that were given
  int version_ = 0;        // of the data that the first row is of
};

}  // namespace adapters::sqlite
