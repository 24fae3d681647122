#include "adapters/odbc/Rows.h"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "adapters/odbc/Utf16.h"
#include "text/CellText.h"
#include "text/Text.h"

namespace adapters::odbc {

namespace {

enum class Kind { kText, kInteger, kDecimal, kReal, kDouble, kDate, kTimestamp, kBinary };

Kind KindOf(SQLSMALLINT sqlType) {
  switch (sqlType) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      return Kind::kInteger;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return Kind::kDecimal;
    case SQL_REAL:
      return Kind::kReal;
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return Kind::kDouble;
    case SQL_TYPE_DATE:
      return Kind::kDate;
    case SQL_TYPE_TIMESTAMP:
      return Kind::kTimestamp;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
      return Kind::kBinary;
    default:
      return Kind::kText;
  }
}

void TidyDecimal(std::string& number) {
  const std::size_t point = number.find('.');
  if (point == std::string::npos) return;
  const std::size_t last = number.find_last_not_of('0');
  number.resize(last == point ? point : last + 1);
  const std::size_t first = number.starts_with('-') ? 1 : 0;
  if (point == first) number.insert(first, 1, '0');
  if (number == "-0") number = "0";
}

class Reader {
 public:
  Reader(SQLHANDLE statement, platform::RowSet& rows) : statement_(statement), rows_(rows) {}

  bool Run() {
    SQLSMALLINT count = 0;
    if (!SQL_SUCCEEDED(SQLNumResultCols(statement_, &count))) return false;
    if (count == 0) return true;
    std::vector<std::string> names;
    for (SQLSMALLINT column = 1; column <= count; ++column) {
      if (!Describe(static_cast<SQLUSMALLINT>(column), names)) return false;
    }
    rows_ = platform::RowSet(std::move(names));
    for (;;) {
      const SQLRETURN fetched = SQLFetch(statement_);
      if (fetched == SQL_NO_DATA) return true;
      if (!SQL_SUCCEEDED(fetched)) return false;
      for (std::size_t i = 0; i < kinds_.size(); ++i) {
        if (!ReadCell(static_cast<SQLUSMALLINT>(i + 1), kinds_[i])) return false;
      }
    }
  }

 private:
  bool Describe(SQLUSMALLINT column, std::vector<std::string>& names) {
    Utf16 name(kNameUnits);
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    const auto describe = [&] {
      SQLULEN size = 0;
      SQLSMALLINT digits = 0;
      SQLSMALLINT nullable = 0;
      return SQLDescribeColW(statement_, column, name.data(), static_cast<SQLSMALLINT>(name.size()),
                             &length, &type, &size, &digits, &nullable);
    };
    SQLRETURN result = describe();
    // A name that fills the buffer may have been cut: not every driver tells the whole length.
    while (SQL_SUCCEEDED(result) && static_cast<std::size_t>(length) + 1 >= name.size() &&
           name.size() < kMostNameUnits) {
      name.resize(name.size() * 2);
      result = describe();
    }
    if (!SQL_SUCCEEDED(result)) return false;
    names.push_back(ToUtf8(name, length));
    kinds_.push_back(KindOf(type));
    return true;
  }

  bool ReadCell(SQLUSMALLINT column, Kind kind) {
    cell_.clear();
    bool isNull = false;
    if (!(kind == Kind::kText || kind == Kind::kDecimal || kind == Kind::kBinary
              ? ReadPieces(column, kind, isNull)
              : ReadFixed(column, kind, isNull))) {
      return false;
    }
    if (isNull) {
      rows_.AppendNull();
    } else {
      rows_.Append(cell_);
    }
    return true;
  }

  template <typename Value>
  bool Get(SQLUSMALLINT column, SQLSMALLINT type, Value& value, bool& isNull) {
    SQLLEN length = 0;
    const SQLRETURN result = SQLGetData(statement_, column, type, &value, sizeof value, &length);
    isNull = length == SQL_NULL_DATA;
    return SQL_SUCCEEDED(result);
  }

  bool ReadFixed(SQLUSMALLINT column, Kind kind, bool& isNull) {
    switch (kind) {
      case Kind::kInteger: {
        SQLBIGINT value = 0;
        if (!Get(column, SQL_C_SBIGINT, value, isNull)) return false;
        cell_ = std::to_string(value);
        return true;
      }
      case Kind::kReal: {
        SQLREAL value = 0;
        if (!Get(column, SQL_C_FLOAT, value, isNull)) return false;
        cell_ = text::RealText(value);
        return true;
      }
      case Kind::kDouble: {
        SQLDOUBLE value = 0;
        if (!Get(column, SQL_C_DOUBLE, value, isNull)) return false;
        cell_ = text::DecimalText(value);
        return true;
      }
      case Kind::kDate: {
        SQL_DATE_STRUCT value{};
        if (!Get(column, SQL_C_TYPE_DATE, value, isNull)) return false;
        text::AppendDay(cell_, value.year, value.month, value.day);
        return true;
      }
      default: {
        SQL_TIMESTAMP_STRUCT value{};
        if (!Get(column, SQL_C_TYPE_TIMESTAMP, value, isNull)) return false;
        text::AppendDay(cell_, value.year, value.month, value.day);
        text::AppendTimeOfDay(cell_, value.hour, value.minute, value.second);
        return true;
      }
    }
  }

  /// The sizes that a driver declares may be 0 or 2 GiB, so no buffer is made for them: the cell
  /// comes in pieces of the buffer there is. A piece that was cut fills the buffer, for text but
  /// for the terminator.
  bool ReadPieces(SQLUSMALLINT column, Kind kind, bool& isNull) {
    const bool isBinary = kind == Kind::kBinary;
    const SQLSMALLINT type = isBinary ? SQL_C_BINARY : SQL_C_WCHAR;
    constexpr SQLLEN kBytes = sizeof(SQLWCHAR) * kPieceUnits;
    const SQLLEN room = isBinary ? kBytes : kBytes - static_cast<SQLLEN>(sizeof(SQLWCHAR));
    wide_.clear();
    if (isBinary) cell_ = "0x";
    for (;;) {
      SQLLEN length = 0;
      const SQLRETURN result = SQLGetData(statement_, column, type, piece_.data(), kBytes, &length);
      if (result == SQL_NO_DATA) break;
      if (!SQL_SUCCEEDED(result)) return false;
      if (length == SQL_NULL_DATA) {
        isNull = true;
        return true;
      }
      const bool cut = length == SQL_NO_TOTAL || length > room;
      const auto bytes = static_cast<std::size_t>(cut ? room : length);
      if (isBinary) {
        text::AppendHex(cell_, std::as_bytes(std::span(piece_)).first(bytes));
      } else {
        const std::span units = std::span(piece_).first(bytes / sizeof(SQLWCHAR));
        // Pieces are put together first: a pair of surrogates may be split between two.
        if (!cut && wide_.empty()) AppendUtf8(cell_, units);
        if (cut || !wide_.empty()) wide_.insert(wide_.end(), units.begin(), units.end());
      }
      if (!cut) break;
    }
    AppendUtf8(cell_, wide_);
    if (kind == Kind::kDecimal) TidyDecimal(cell_);
    return true;
  }

  static constexpr std::size_t kPieceUnits = 8192;
  static constexpr std::size_t kNameUnits = 256;
  static constexpr std::size_t kMostNameUnits = 16384;  // lengths are 16-bit

  SQLHANDLE statement_;
  platform::RowSet& rows_;
  std::vector<Kind> kinds_;
  std::string cell_;
  Utf16 wide_;
  std::array<SQLWCHAR, kPieceUnits> piece_{};
};

}  // namespace

bool ReadRows(const Statement& statement, platform::RowSet& rows) {
  return Reader(statement.Get(), rows).Run();
}

}  // namespace adapters::odbc
