#include <algorithm>
#include <charconv>

#include "adapters/sqlite/Binder.h"
#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Functions.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

using Kind = Type::Kind;

constexpr std::size_t kDefaultLength = 30;
constexpr std::int64_t kLongestVarchar = 8000;
constexpr std::int64_t kLongestNvarchar = 4000;
constexpr std::size_t kIntCharacters = 11;
constexpr std::size_t kBigintCharacters = 20;
constexpr std::size_t kDateCharacters = 10;

[[noreturn]] void RefuseClash(Type from, Type to) {
  throw MakeError(kTypesClash, "Operand type clash: " + std::string(NameOf(from.kind)) +
                                   " is incompatible with " + std::string(NameOf(to.kind)));
}

std::string CallOf(std::string_view function, const std::string& argument) {
  return std::string(function) + "(" + argument + ")";
}

/// A written number without what stands behind its point. Throws 8115.
template <typename Int>
std::string WholeOf(std::string_view number) {
  Int whole = 0;
  const std::size_t point = std::min(number.find('.'), number.size());
  if (std::from_chars(number.data(), number.data() + point, whole).ec != std::errc{}) {
    throw MakeError(kArithmeticOverflow,
                    "Arithmetic overflow error converting expression to data type int.");
  }
  return std::to_string(whole);
}

bool HasCharactersBeyond(const Type& text, std::size_t length) {
  return length > 0 && (text.length == 0 || text.length > length);
}

}  // namespace

/// The type in which two values are compared.
Type Binder::Common(const Value& left, const Value& right, const Node& near) {
  const Type& a = left.type;
  const Type& b = right.type;
  if (a.Is(Kind::kBlob) || b.Is(Kind::kBlob)) RefuseNear(near, "bytes are not compared");
  if (a.Is(Kind::kMoment) || b.Is(Kind::kMoment)) RefuseNear(near, "moments are not compared");
  if (a.Is(Kind::kNull)) return b;
  if (b.Is(Kind::kNull)) return a;
  if (a.IsNumeric() && b.IsNumeric()) return a.Is(b.kind) ? a : Type{Kind::kNumber};
  if (a.Is(Kind::kText) && b.Is(Kind::kText)) return TextType(0);
  if (a.Is(Kind::kDate) && b.IsNumeric()) RefuseClash(a, b);
  if (b.Is(Kind::kDate) && a.IsNumeric()) RefuseClash(b, a);
  return a.Is(Kind::kText) ? b : a;
}

Binder::Value Binder::As(Value value, Type target, const Node& near) {
  const Type from = value.type;
  if (from.Is(Kind::kNull)) return {target, std::move(value.sql)};
  const bool isLiteral = value.literal != nullptr;
  const bool isText = from.Is(Kind::kText);
  if (target.Is(Kind::kInt)) return AsInt(std::move(value), near);
  if (target.Is(Kind::kText)) return AsText(std::move(value), near);
  const bool isWhole = from.Is(Kind::kInt) || from.Is(Kind::kBit);
  const bool isDay = target.Is(Kind::kDate) || target.Is(Kind::kMoment);
  if (isDay && from.IsNumeric()) RefuseClash(from, target);
  if (target.Is(Kind::kDate) && isText && isLiteral) {
    return {target, std::to_string(DateOf(value.literal->text))};
  }
  if (target.Is(Kind::kDate) && value.now) {
    return {target, "CAST(strftime('%Y%m%d', 'now', 'localtime') AS INTEGER)"};
  }
  if (target.Is(Kind::kMoment) && isText && isLiteral) {
    return {target, QuotedText(MomentOf(value.literal->text))};
  }
  if (target.Is(Kind::kMoment) && value.now) {
    return {target, "strftime('%Y%m%d %H:%M:%S', 'now', 'localtime')"};
  }
  if (target.Is(Kind::kMoment) && from.Is(Kind::kDate)) return {target, std::move(value.sql)};
  if (target.Is(Kind::kBigint) && isWhole) return {target, std::move(value.sql)};
  if (target.Is(Kind::kBigint) && isLiteral) {
    return isText ? AsInt(std::move(value), near) : Value{target, WholeOf<std::int64_t>(value.sql)};
  }
  if (target.Is(Kind::kNumber) && from.IsNumeric()) return value;
  if (target.Is(Kind::kBit) && from.Is(Kind::kInt) && isLiteral) {
    return {target, IntOf(value.literal->text) == 0 ? "0" : "1"};
  }
  if (from.kind != target.kind) {
    RefuseNear(near, std::string(NameOf(from.kind)) + " does not become " +
                         std::string(NameOf(target.kind)));
  }
  return value;
}

Binder::Value Binder::AsInt(Value value, const Node& near) {
  const bool isLiteral = value.literal != nullptr;
  switch (value.type.kind) {
    case Kind::kNull:
    case Kind::kInt:
    case Kind::kBit:
      return {kIntType, std::move(value.sql)};
    case Kind::kText:
      if (isLiteral) return {kIntType, std::to_string(IntOf(value.literal->text))};
      return {kIntType, CallOf(kToIntegerFunction, value.sql)};
    case Kind::kBigint:
      return {kIntType, CallOf(kToIntegerFunction, value.sql)};
    case Kind::kNumber:
      if (isLiteral) return {kIntType, WholeOf<std::int32_t>(value.sql)};
      break;
    case Kind::kDate:
      RefuseClash(value.type, kIntType);
    case Kind::kMoment:
    case Kind::kBlob:
      break;
  }
  RefuseNear(near, std::string(NameOf(value.type.kind)) + " does not become int");
}

Binder::Value Binder::AsText(Value value, const Node& near) {
  switch (value.type.kind) {
    case Kind::kNull:
      return {TextType(1), std::move(value.sql)};
    case Kind::kText:
      return value;
    case Kind::kInt:
      return {TextType(kIntCharacters), CallOf("CAST", value.sql + " AS TEXT")};
    case Kind::kBigint:
      return {TextType(kBigintCharacters), CallOf("CAST", value.sql + " AS TEXT")};
    case Kind::kDate:
      return {TextType(kDateCharacters), CallOf(kDateTextFunction, value.sql)};
    default:
      RefuseNear(near, std::string(NameOf(value.type.kind)) + " does not become a text");
  }
}

/// The first characters of a text.
Binder::Value Binder::Cut(Value text, std::size_t length) {
  if (!HasCharactersBeyond(text.type, length)) return text;
  return {TextType(length), "substr(" + text.sql + ", 1, " + std::to_string(length) + ")"};
}

/// What is stored in a column: a text that does not fit is refused, as on the server.
Binder::Value Binder::Assigned(Value value, const Column& column, const Node& near) {
  value = As(std::move(value), column.type, near);
  if (!column.type.Is(Kind::kText) || !HasCharactersBeyond(value.type, column.type.length)) {
    return value;
  }
  return {column.type, std::string(kFitFunction) + "(" + value.sql + ", " +
                           std::to_string(column.type.length) + ", " + QuotedText(column.name) +
                           ")"};
}

/// To int, or to varchar or nvarchar, which cut; without a style.
Binder::Value Binder::Convert(const Node& node, Scope& scope) {
  const Node& operand = node.operands.front();
  const bool isNvarchar = node.text == "nvarchar";
  const bool isInt = node.text == "int" && !node.length;
  if (!isInt && node.text != "varchar" && !isNvarchar) {
    RefuseNear(node, "values become int, varchar or nvarchar");
  }
  Value value = BindValue(operand, scope);
  if (isInt) {
    if (value.type.Is(Kind::kDate)) {
      throw MakeError(kConversionNotAllowed,
                      "Explicit conversion from data type date to int is not allowed.");
    }
    return AsInt(std::move(value), operand);
  }
  const std::int64_t length = node.length.value_or(kDefaultLength);
  if (length <= 0) {
    throw MakeError(kLengthInvalid,
                    "Length or precision " + std::to_string(length) + " is invalid.");
  }
  if (length > (isNvarchar ? kLongestNvarchar : kLongestVarchar)) {
    throw MakeError(kTypeTooLong, "The size (" + std::to_string(length) + ") given to the type '" +
                                      node.text +
                                      "' exceeds the maximum allowed for any data type.");
  }
  const bool isNumber = value.type.IsNumeric();
  value = AsText(std::move(value), operand);
  if (isNumber && HasCharactersBeyond(value.type, static_cast<std::size_t>(length))) {
    throw MakeError(kArithmeticOverflow,
                    "Arithmetic overflow error converting expression to data type " + node.text +
                        ". (a number may have " + std::to_string(value.type.length) +
                        " characters)");
  }
  return Cut(std::move(value), static_cast<std::size_t>(length));
}

}  // namespace adapters::sqlite
