#include "adapters/sqlite/Types.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <limits>
#include <optional>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/TokenReader.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

/// Of digits alone, nine at most.
std::optional<std::int32_t> Digits(std::string_view text) {
  std::int32_t number = 0;
  if (text.empty() || text.size() > 9 || !std::ranges::all_of(text, text::IsDigit))
    return std::nullopt;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

bool IsDay(std::int32_t date) {
  using namespace std::chrono;
  return date >= 10101 &&
         year_month_day(year(date / 10000), month(static_cast<unsigned>(date) / 100 % 100),
                        day(static_cast<unsigned>(date) % 100))
             .ok();
}

[[noreturn]] void RefuseDate(std::string_view text) {
  throw MakeError(kDateConversion,
                  "Conversion failed when converting date and/or time from character string '" +
                      std::string(text) + "'.");
}

/// Each time's two digits, from 0 to 23 or 59.
bool IsTime(std::string_view text) {
  if (text.size() != 8 || text[2] != ':' || text[5] != ':') return false;
  const auto hour = Digits(text.substr(0, 2));
  const auto minute = Digits(text.substr(3, 2));
  const auto second = Digits(text.substr(6, 2));
  return hour && minute && second && *hour < 24 && *minute < 60 && *second < 60;
}

}  // namespace

std::string_view NameOf(Type::Kind kind) {
  switch (kind) {
    case Type::Kind::kInt:
      return "int";
    case Type::Kind::kBigint:
      return "bigint";
    case Type::Kind::kNumber:
      return "float";
    case Type::Kind::kBit:
      return "bit";
    case Type::Kind::kText:
      return "nvarchar";
    case Type::Kind::kDate:
      return "date";
    case Type::Kind::kMoment:
      return "datetime";
    case Type::Kind::kBlob:
      return "varbinary";
    case Type::Kind::kNull:
      break;
  }
  return "void type";
}

Type DeclaredType(std::string_view declared) {
  using Kind = Type::Kind;
  const std::string type = text::Small(declared);
  if (type == "int" || type == "integer") return {Kind::kInt};
  if (type == "bigint") return {Kind::kBigint};
  if (type == "bit") return {Kind::kBit};
  if (type == "date") return {Kind::kDate};
  if (type == "datetime") return {Kind::kMoment};
  if (type == "blob") return {Kind::kBlob};
  if (type == "real" || type == "float" || type.starts_with("decimal")) return {Kind::kNumber};
  const std::size_t open = type.find('(');
  if (open == std::string::npos) return {Kind::kText};
  return TextType(static_cast<std::size_t>(
      Digits(std::string_view(type).substr(open + 1, type.find(')') - open - 1)).value_or(0)));
}

std::int32_t IntOf(std::string_view text) {
  std::string_view digits = text::Trim(text);
  if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
  if (digits.empty() || digits == "-") return 0;
  std::int32_t number = 0;
  const char* end = digits.data() + digits.size();
  const auto [read, error] = std::from_chars(digits.data(), end, number);
  if (read != end || error == std::errc::invalid_argument) {
    throw MakeError(kConversion, "Conversion failed when converting the varchar value '" +
                                     std::string(text) + "' to data type int.");
  }
  if (error != std::errc{}) {
    throw MakeError(kIntOverflow, "The conversion of the varchar value '" + std::string(text) +
                                      "' overflowed an int column.");
  }
  return number;
}

std::int32_t IntOf(std::int64_t number) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (number < Limits::min() || number > Limits::max()) {
    throw MakeError(kArithmeticOverflow,
                    "Arithmetic overflow error converting expression to data type int.");
  }
  return static_cast<std::int32_t>(number);
}

std::int32_t DateOf(std::string_view text) {
  std::string digits(text);
  if (digits.size() == 10 && digits[4] == '-' && digits[7] == '-') {
    digits.erase(7, 1).erase(4, 1);
  }
  const auto date = digits.size() == 8 ? Digits(digits) : std::nullopt;
  if (!date || !IsDay(*date)) RefuseDate(text);
  return *date;
}

std::string MomentOf(std::string_view text) {
  const auto date = text.size() >= 8 ? Digits(text.substr(0, 8)) : std::nullopt;
  const std::string_view time = text.substr(std::min<std::size_t>(text.size(), 8));
  if (!date || !(time.empty() || time.starts_with(' '))) RefuseDate(text);
  if (!IsDay(*date) || !(time.empty() || IsTime(time.substr(1)))) {
    throw MakeError(kMomentOutOfRange,
                    "The conversion of a varchar data type to a datetime data type resulted in an "
                    "out-of-range value.");
  }
  return std::string(text);
}

std::string DateText(std::int64_t date) {
  std::string text = std::to_string(date);
  if (text.size() < 8) text.insert(0, 8 - text.size(), '0');
  return text.insert(6, "-").insert(4, "-");
}

}  // namespace adapters::sqlite
