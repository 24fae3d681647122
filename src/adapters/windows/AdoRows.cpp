#include "adapters/windows/AdoRows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "adapters/windows/Wide.h"
#include "text/CellText.h"
#include "text/Text.h"

namespace adapters::windows {

namespace {

constexpr std::int32_t kCurrencyDigits = 4;
constexpr std::int32_t kRowsAtOnce = 1000;

/// The data of an array, locked as long as this lives.
class ArrayData {
 public:
  explicit ArrayData(SAFEARRAY* array) : array_(array) {
    Check(SafeArrayAccessData(array, &data_));
  }
  ~ArrayData() { SafeArrayUnaccessData(array_); }
  ArrayData(const ArrayData&) = delete;
  ArrayData& operator=(const ArrayData&) = delete;

  template <typename Element>
  std::span<const Element> As() const {
    std::size_t count = 1;
    for (USHORT i = 0; i < array_->cDims; ++i) count *= array_->rgsabound[i].cElements;
    return {static_cast<const Element*>(data_), count};
  }

 private:
  SAFEARRAY* array_;
  void* data_ = nullptr;
};

/// Days from kFirstDateDay, the time of day as the fraction, which counts forward before it too.
std::string DateText(DATE date) {
  using std::chrono::days;
  constexpr double kMillisecondsOfDay = 86400000;
  const double whole = std::trunc(date);
  auto day = kFirstDateDay + days(static_cast<int>(whole));
  // The double is off by less than a millisecond; only whole seconds are shown.
  long long milliseconds = std::llround(std::fabs(date - whole) * kMillisecondsOfDay);
  if (milliseconds >= static_cast<long long>(kMillisecondsOfDay)) {
    day += days(1);
    milliseconds = 0;
  }
  const std::chrono::year_month_day calendar(day);
  std::string out;
  text::AppendDay(out, static_cast<int>(calendar.year()), static_cast<unsigned>(calendar.month()),
                  static_cast<unsigned>(calendar.day()));
  const auto seconds = static_cast<unsigned>(milliseconds / 1000);
  text::AppendTimeOfDay(out, seconds / 3600, seconds / 60 % 60, seconds % 60);
  return out;
}

/// The 96 bits of a decimal, most significant part first, divided by ten; the remainder is a digit.
char TakeDigit(std::array<std::uint32_t, 3>& parts) {
  std::uint64_t rest = 0;
  for (std::uint32_t& part : parts) {
    const std::uint64_t value = (rest << 32U) | part;
    part = static_cast<std::uint32_t>(value / 10);
    rest = value % 10;
  }
  return static_cast<char>('0' + rest);
}

std::string DecimalText(const DECIMAL& decimal) {
  std::array<std::uint32_t, 3> parts{decimal.Hi32, decimal.Mid32, decimal.Lo32};
  std::string reversed;
  bool shows = false;  // no zeros behind the last digit after the point
  const auto isZero = [&] { return parts == std::array<std::uint32_t, 3>{}; };
  for (unsigned digit = 0; digit < decimal.scale; ++digit) {
    const char c = TakeDigit(parts);
    shows = shows || c != '0';
    if (shows) reversed += c;
  }
  if (shows) reversed += '.';
  do {
    const char c = TakeDigit(parts);
    reversed += c;
  } while (!isZero());
  if ((decimal.sign & DECIMAL_NEG) != 0 && reversed != "0") reversed += '-';
  return {reversed.rbegin(), reversed.rend()};
}

std::string CurrencyText(CY value) {
  DECIMAL decimal{};
  const auto magnitude = value.int64 < 0 ? 0 - static_cast<std::uint64_t>(value.int64)
                                         : static_cast<std::uint64_t>(value.int64);
  decimal.Lo64 = magnitude;
  decimal.scale = kCurrencyDigits;
  decimal.sign = value.int64 < 0 ? BYTE{DECIMAL_NEG} : BYTE{0};
  return DecimalText(decimal);
}

std::string BinaryText(SAFEARRAY* array) {
  std::string out = "0x";
  if (array != nullptr) text::AppendHex(out, ArrayData(array).As<std::byte>());
  return out;
}

}  // namespace

void AppendCell(platform::RowSet& rows, const VARIANT& value) {
  switch (value.vt) {
    case VT_EMPTY:
    case VT_NULL:
      return rows.AppendNull();
    case VT_BSTR:
      return rows.Append(Utf8({value.bstrVal, SysStringLen(value.bstrVal)}));
    case VT_BOOL:
      return rows.Append(value.boolVal == VARIANT_FALSE ? "0" : "1");
    case VT_UI1:
      return rows.Append(std::to_string(value.bVal));
    case VT_I2:
      return rows.Append(std::to_string(value.iVal));
    case VT_I4:
      return rows.Append(std::to_string(value.lVal));
    case VT_I8:
      return rows.Append(std::to_string(value.llVal));
    case VT_R4:
      return rows.Append(text::RealText(value.fltVal));
    case VT_R8:
      return rows.Append(text::DecimalText(value.dblVal));
    case VT_CY:
      return rows.Append(CurrencyText(value.cyVal));
    case VT_DECIMAL:
      return rows.Append(DecimalText(value.decVal));
    case VT_DATE:
      return rows.Append(DateText(value.date));
    case VT_ARRAY | VT_UI1:
      return rows.Append(BinaryText(value.parray));
    default: {
      Variant copy;
      Check(VariantCopy(copy.Out(), const_cast<VARIANT*>(&value)));
      return rows.Append(copy.Text());
    }
  }
}

platform::RowSet ReadRows(const Dispatch& recordset, platform::RunningStatement& running) {
  const Dispatch fields = recordset.Child("Fields");
  const std::int32_t count = fields.Property("Count").Number();
  std::vector<std::string> names;
  for (std::int32_t i = 0; i < count; ++i) {
    const std::array<Variant, 1> index{i};
    names.push_back(fields.Child("Item", index).Property("Name").Text());
  }
  platform::RowSet rows(std::move(names));
  // At the end GetRows is an error.
  while (!recordset.Property("EOF").Flag() && running.GoesOn()) {
    const Variant block = recordset.Call("GetRows", {kRowsAtOnce});
    if (block.Type() != (VT_ARRAY | VT_VARIANT) || block.Raw().parray == nullptr) {
      throw platform::RuntimeError(platform::kTypeMismatch, "Type mismatch: GetRows");
    }
    // Indexed (field, row), and the first index runs fastest: the cells lie row by row.
    const ArrayData data(block.Raw().parray);
    for (const VARIANT& cell : data.As<VARIANT>()) AppendCell(rows, cell);
  }
  return rows;
}

}  // namespace adapters::windows
