#include "Replay.h"

#include <cstdint>
#include <iomanip>
#include <ostream>

#include "demo/SqlScript.h"
#include "platform/RuntimeError.h"
#include "text/Text.h"

namespace desktop {

namespace {

/// FNV-1a, byte by byte.
class Hash {
 public:
  void Add(unsigned char byte) { value_ = (value_ ^ byte) * 0x100000001B3ULL; }
  void Add(std::string_view bytes) {
    for (const char c : bytes) Add(static_cast<unsigned char>(c));
  }
  /// Every bit of the value in every bit: sums of these do not cancel out.
  std::uint64_t Mixed() const {
    std::uint64_t mixed = value_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9ULL;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
    return mixed ^ (mixed >> 31);
  }

 private:
  std::uint64_t value_ = 0xCBF29CE484222325ULL;
};

/// The sum of the rows' hashes: their order does not matter, how often each occurs does.
std::uint64_t Digest(const platform::RowSet& rows) {
  // Bytes that no UTF-8 text has.
  constexpr unsigned char kNull = 0xFF;
  constexpr unsigned char kEndOfCell = 0xFE;
  std::uint64_t sum = 0;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    Hash hash;
    for (std::size_t column = 0; column < rows.ColumnCount(); ++column) {
      if (const auto cell = rows.Cell(row, column)) {
        hash.Add(*cell);
      } else {
        hash.Add(kNull);
      }
      hash.Add(kEndOfCell);
    }
    sum += hash.Mixed();
  }
  return sum;
}

}  // namespace

bool Replay(std::string_view script, platform::Connection& connection, std::ostream& out) {
  const auto fill = out.fill();
  std::size_t number = 0;
  std::size_t failed = 0;
  std::size_t allRows = 0;
  for (const std::string_view batch : demo::Batches(script)) {
    out << std::setw(5) << ++number << "  ";
    try {
      const platform::RowSet rows = connection.Execute(batch);
      allRows += rows.RowCount();
      if (rows.ReturnsRows()) {
        out << std::setw(8) << rows.RowCount() << " rows  " << std::hex << std::setfill('0')
            << std::setw(16) << Digest(rows) << std::dec << std::setfill(fill) << std::endl;
      } else {
        out << "    done" << std::endl;
      }
    } catch (const platform::RuntimeError& error) {
      ++failed;
      // A driver's diagnostics stand in several lines.
      out << "error " << error.Number() << ": " << text::Replace(error.Description(), "\n", " ")
          << std::endl;
    }
  }
  out << number << " statements, " << number - failed << " ran, " << failed << " failed, "
      << allRows << " rows\n";
  return failed == 0;
}

}  // namespace desktop
