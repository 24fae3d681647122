#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/RowSet.h"

namespace platform {

/// The rows of one statement, read bit by bit as they are wanted (Connection::Open). Never outlives
/// its connection, which can be used for other statements meanwhile.
class RowReader {
 public:
  virtual ~RowReader() = default;

  /// Known before any row is read. None: the statement returns no rows by nature.
  virtual const std::vector<std::string>& Columns() const = 0;

  /// Appends the next rows to `rows`, which is empty or what earlier calls left: at most `most`,
  /// but all of them where the engine has all by now. False once no more will come. Fails as
  /// Connection::Execute does, each call being a statement of its own to who waits for it; what was
  /// appended before is right, and the same call can be tried again.
  virtual bool Read(RowSet& rows, std::size_t most) = 0;
};

}  // namespace platform
