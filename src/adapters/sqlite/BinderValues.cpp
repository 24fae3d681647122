#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

#include "adapters/sqlite/Binder.h"
#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Functions.h"
#include "adapters/sqlite/TokenReader.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

using Kind = Type::Kind;

/// Beyond it a text that is no nvarchar(max) would be cut on the server.
constexpr std::size_t kLongestJoin = 4000;
/// SQLite takes 127 arguments at most, and a piece has two.
constexpr std::size_t kMostPieces = 60;

std::string Collated(const std::string& sql) {
  return sql + " COLLATE " + std::string(kPersianCollation);
}

void CheckArguments(const Node& call, std::size_t count) {
  if (call.operands.size() == count) return;
  throw MakeError(kArgumentCount, "The " + call.text + " function requires " +
                                      std::to_string(count) + " argument(s).");
}

/// The column whose whole number is written in digits of which `node` takes a piece, as the batch
/// insert makes a date of an id; null for any other value.
const Node* PiecedColumn(const Node& node) {
  if (node.kind != NodeKind::kCall || node.text != "substring" || !node.prefix.empty() ||
      node.operands.size() != 3) {
    return nullptr;
  }
  const Node& text = node.operands.front();
  const bool whole =
      text.kind == NodeKind::kConvert && text.text.ends_with("varchar") && !text.length;
  return whole && text.operands.front().kind == NodeKind::kColumn ? &text.operands.front()
                                                                  : nullptr;
}

/// A place or length in SUBSTRING.
std::int64_t WrittenNumber(const Node& node, std::int64_t least) {
  std::int64_t number = -1;
  const char* end = node.text.data() + node.text.size();
  const auto [read, error] = std::from_chars(node.text.data(), end, number);
  if (node.kind != NodeKind::kNumber || error != std::errc{} || read != end || number < least) {
    RefuseNear(node, "the place of a piece is a written number from 1");
  }
  return number;
}

bool HasLatinLetters(std::string_view text) {
  return std::ranges::any_of(text, text::IsLatinLetter);
}

}  // namespace

void RefuseNear(const Node& node, std::string_view why) {
  std::string near = node.text;
  if (node.kind == NodeKind::kPlus) near = "+";
  if (node.kind == NodeKind::kLike) near = "like";
  if (node.kind == NodeKind::kIn) near = "in";
  if (node.kind == NodeKind::kNull) near = "null";
  if (node.kind == NodeKind::kSubquery) near = "(";
  throw MakeError(kIncorrectSyntax,
                  "Incorrect syntax near '" + near +
                      "'. (the embedded database does not take this: " + std::string(why) + ")");
}

Binder::Value Binder::BindValue(const Node& node, Scope& scope) {
  switch (node.kind) {
    case NodeKind::kNumber:
    case NodeKind::kText:
    case NodeKind::kNull:
      return Literal(node);
    case NodeKind::kColumn:
      return ColumnValue(node, scope);
    case NodeKind::kCall:
      return Call(node, scope);
    case NodeKind::kConvert:
      return Convert(node, scope);
    case NodeKind::kRowNumber:
      return RowNumber(node, scope);
    case NodeKind::kPlus:
      return Plus(node, scope);
    case NodeKind::kSubquery: {
      if (scope.aggregate) {
        throw MakeError(kAggregateNested,
                        "Cannot perform an aggregate function on an expression containing an "
                        "aggregate or a subquery.");
      }
      Value value;
      value.sql = "(" + OneValueQuery(*node.query, scope, value.type) + ")";
      return value;
    }
    default:
      break;
  }
  RefuseNear(node, "a condition is no value");
}

Binder::Value Binder::Literal(const Node& node) {
  if (node.kind == NodeKind::kNull) return {{}, "NULL"};
  if (node.kind == NodeKind::kText) {
    return {TextType(std::max<std::size_t>(1, text::Length(node.text))), QuotedText(node.text),
            &node};
  }
  std::int32_t whole = 0;
  const char* end = node.text.data() + node.text.size();
  const auto [read, error] = std::from_chars(node.text.data(), end, whole);
  const bool isInt = error == std::errc{} && read == end;
  return {{isInt ? Kind::kInt : Kind::kNumber}, node.text, &node};
}

std::pair<Binder::Scope*, const Binder::SourceColumn*> Binder::Find(const Node& node,
                                                                    Scope& scope) {
  const std::string name = text::Small(node.text);
  const std::string prefix = text::Small(node.prefix);
  for (Scope* at = &scope; at != nullptr; at = at->outer) {
    const SourceColumn* found = nullptr;
    bool prefixFound = false;
    for (std::size_t i = at->first; i < at->sources.size(); ++i) {
      const BoundSource& source = at->sources[i];
      if (!prefix.empty() && source.lowerName != prefix) continue;
      prefixFound = !prefix.empty();
      for (const SourceColumn& column : source.columns) {
        if (column.lowerName != name) continue;
        if (found != nullptr) {
          throw MakeError(kAmbiguousColumn, "Ambiguous column name '" + node.text + "'.");
        }
        found = &column;
      }
    }
    if (found != nullptr) return {at, found};
    if (prefixFound) break;
    if (at->outer == nullptr && !prefix.empty()) {
      throw MakeError(kUnboundIdentifier, "The multi-part identifier \"" + node.prefix + "." +
                                              node.text + "\" could not be bound.");
    }
  }
  throw MissingColumn(node.text, catalog_.File());
}

Binder::Value Binder::ColumnValue(const Node& node, Scope& scope) {
  const auto [owner, column] = Find(node, scope);
  if (owner != &scope && scope.aggregate) {
    RefuseNear(node, "an aggregate is of its own query's columns");
  }
  return Used(*column, *owner);
}

/// A column's value, where its query gives one.
Binder::Value Binder::Used(const SourceColumn& column, const Scope& owner) {
  if (owner.output && owner.grouped && !owner.aggregate &&
      std::ranges::count(owner.groups, &column) == 0) {
    throw MakeError(owner.ordering ? kOrderNotGrouped : kNotGrouped,
                    "Column '" + column.name +
                        "' is invalid in the select list because it is not contained in either an "
                        "aggregate function or the GROUP BY clause.");
  }
  return {column.type, column.sql};
}

Binder::Value Binder::Plus(const Node& node, Scope& scope) {
  if (Value pieces = Pieces(node, scope); !pieces.sql.empty()) return pieces;
  Value sum{TextType(0), "("};
  bool unlimited = false;
  const Node* text = nullptr;
  bool number = false;
  for (const Node& operand : node.operands) {
    const Value value = BindValue(operand, scope);
    if (!value.type.IsNumeric() && !value.type.Is(Kind::kText) && !value.type.Is(Kind::kNull)) {
      throw MakeError(kTypesInPlus, "The data type " + std::string(NameOf(value.type.kind)) +
                                        " is incompatible in the add operator.");
    }
    number = number || value.type.IsNumeric();
    if (value.type.Is(Kind::kText) && value.literal != nullptr) text = value.literal;
    unlimited = unlimited || (value.type.Is(Kind::kText) && value.type.length == 0);
    sum.type.length += value.type.length;
    sum.sql.append(sum.sql.size() == 1 ? "" : " || ").append(value.sql);
  }
  if (number) {
    if (text != nullptr) IntOf(text->text);
    RefuseNear(node, "numbers are not added");
  }
  if (!unlimited && sum.type.length > kLongestJoin) {
    RefuseNear(node, "a text this long would be cut");
  }
  if (unlimited) sum.type.length = 0;
  sum.sql += ")";
  return sum;
}

/// Pieces of one number's digits and texts between them in one call; nothing for any other sum.
Binder::Value Binder::Pieces(const Node& node, Scope& scope) {
  const Node* of = nullptr;
  for (const Node& operand : node.operands) {
    if (operand.kind == NodeKind::kText) continue;
    const Node* column = PiecedColumn(operand);
    if (column == nullptr) return {};
    const bool same = of == nullptr || (text::Small(of->text) == text::Small(column->text) &&
                                        text::Small(of->prefix) == text::Small(column->prefix));
    if (!same) return {};
    of = column;
  }
  if (of == nullptr || node.operands.size() > kMostPieces) return {};
  const Value number = ColumnValue(*of, scope);
  if (!number.type.Is(Kind::kInt)) return {};
  Value pieces{TextType(0), std::string(kPiecesFunction) + "(" + number.sql};
  for (const Node& operand : node.operands) {
    if (operand.kind == NodeKind::kText) {
      pieces.sql += ", " + QuotedText(operand.text);
      pieces.type.length += text::Length(operand.text);
      continue;
    }
    const std::int64_t start = WrittenNumber(operand.operands[1], 1);
    const std::int64_t length = WrittenNumber(operand.operands[2], 0);
    pieces.sql += ", " + std::to_string(start) + ", " + std::to_string(length);
    pieces.type.length += static_cast<std::size_t>(length);
  }
  pieces.sql += ")";
  return pieces;
}

Binder::Value Binder::Call(const Node& call, Scope& scope) {
  if (!call.prefix.empty()) return EnglishDate(call, scope);
  const std::string& name = call.text;
  if (name == "count" || name == "sum" || name == "min" || name == "max") {
    return Aggregate(call, scope);
  }
  if (name == "isnull") return IsNull(call, scope);
  if (name == "replace") return Replace(call, scope);
  if (name == "substring") return Substring(call, scope);
  if (name == "ltrim" || name == "rtrim") {
    CheckArguments(call, 1);
    Value value = TextArgument(call.operands.front(), scope);
    return {value.type, name + "(" + value.sql + ")"};
  }
  if (name == "getdate") {
    CheckArguments(call, 0);
    return {{Kind::kMoment}, "datetime('now', 'localtime')", nullptr, true};
  }
  if (name == "scope_identity") {
    CheckArguments(call, 0);
    return {kIntType, std::string(kIdentityFunction) + "()"};
  }
  throw MakeError(kUnknownBuiltIn, "'" + name + "' is not a recognized built-in function name.");
}

Binder::Value Binder::EnglishDate(const Node& call, Scope& scope) {
  if (call.text != text::Small(kEnglishDateFunction)) {
    throw MakeError(kUnknownFunction,
                    "Cannot find either column \"dbo\" or the user-defined function or aggregate "
                    "\"dbo." +
                        call.text + "\", or the name is ambiguous.");
  }
  if (call.operands.size() != 1) {
    throw MakeError(call.operands.empty() ? kTooFewArguments : kTooManyArguments,
                    "The function dbo." + call.text + " takes one argument.");
  }
  const Node& farsi = call.operands.front();
  const Value value = AsText(BindValue(farsi, scope), farsi);
  return {kDateType, std::string(kEnglishDateFunction) + "(" + value.sql + ")"};
}

Binder::Value Binder::TextArgument(const Node& node, Scope& scope) {
  Value value = BindValue(node, scope);
  if (value.type.Is(Kind::kNull)) value.type = TextType(1);
  if (!value.type.Is(Kind::kText)) RefuseNear(node, "it is no text");
  return value;
}

/// Of the first value's type.
Binder::Value Binder::IsNull(const Node& call, Scope& scope) {
  CheckArguments(call, 2);
  const Value value = BindValue(call.operands[0], scope);
  Value other = BindValue(call.operands[1], scope);
  if (value.type.Is(Kind::kNull)) return other;
  if (value.now) RefuseNear(call, "the day is never NULL");
  const Node& near = call.operands[1];
  other = value.type.Is(Kind::kText) ? Cut(AsText(std::move(other), near), value.type.length)
                                     : As(std::move(other), value.type, near);
  return {value.type, "ifnull(" + value.sql + ", " + other.sql + ")"};
}

/// The server looks for what is to go in either case, SQLite letter by letter.
Binder::Value Binder::Replace(const Node& call, Scope& scope) {
  CheckArguments(call, 3);
  const Node& from = call.operands[1];
  if (from.kind != NodeKind::kText || HasLatinLetters(from.text)) {
    RefuseNear(call, "only a written text without Latin letters is replaced");
  }
  std::string sql = "replace(" + TextArgument(call.operands[0], scope).sql + ", " +
                    QuotedText(from.text) + ", " + TextArgument(call.operands[2], scope).sql + ")";
  return {TextType(0), std::move(sql)};
}

/// Places must be written numbers: below 1 the two engines disagree.
Binder::Value Binder::Substring(const Node& call, Scope& scope) {
  CheckArguments(call, 3);
  const std::int64_t start = WrittenNumber(call.operands[1], 1);
  const std::int64_t length = WrittenNumber(call.operands[2], 0);
  const Value value = BindValue(call.operands[0], scope);
  if (!value.type.Is(Kind::kText)) {
    throw MakeError(kTypeOfArgument, "Argument data type " + std::string(NameOf(value.type.kind)) +
                                         " is invalid for argument 1 of substring function.");
  }
  return {
      TextType(std::max<std::size_t>(1, static_cast<std::size_t>(length))),
      "substr(" + value.sql + ", " + std::to_string(start) + ", " + std::to_string(length) + ")"};
}

Binder::Value Binder::Aggregate(const Node& call, Scope& scope) {
  if (!scope.output) {
    throw MakeError(kAggregateInWhere, "An aggregate may not appear in the WHERE clause.");
  }
  if (scope.aggregate) {
    throw MakeError(kAggregateNested,
                    "Cannot perform an aggregate function on an expression containing an aggregate "
                    "or a subquery.");
  }
  const bool counts = call.text == "count";
  if (counts && call.operands.empty()) return {kIntType, "count(*)"};
  CheckArguments(call, 1);
  scope.aggregate = true;
  Value value = BindValue(call.operands.front(), scope);
  scope.aggregate = false;
  const std::string sql = call.text + "(" + value.sql + ")";
  const bool isInt = value.type.Is(Kind::kInt) || value.type.Is(Kind::kBigint);
  if (counts && !value.type.Is(Kind::kNull) && !value.type.Is(Kind::kBlob)) return {kIntType, sql};
  if (call.text == "sum" && value.type.Is(Kind::kInt)) {
    return {kIntType, std::string(kToIntegerFunction) + "(" + sql + ")"};
  }
  if (isInt || (value.type.Is(Kind::kNumber) && value.literal == nullptr)) {
    return {value.type, sql};
  }
  if (call.text != "sum" && value.type.Is(Kind::kText)) {
    return {value.type, call.text + "(" + Collated(value.sql) + ")"};
  }
  if (call.text != "sum" && value.type.Is(Kind::kDate)) return {value.type, sql};
  throw MakeError(kTypeOfAggregate, "Operand data type " + std::string(NameOf(value.type.kind)) +
                                        " is invalid for " + call.text + " operator.");
}

Binder::Value Binder::RowNumber(const Node& node, Scope& scope) {
  if (!scope.output) {
    throw MakeError(kWindowInWhere,
                    "Windowed functions can only appear in the SELECT or ORDER BY clauses.");
  }
  const Node near{.kind = NodeKind::kCall, .text = "row_number"};
  if (scope.grouped) RefuseNear(near, "groups are not numbered");
  std::string sql = "row_number() OVER (ORDER BY ";
  for (const Ordering& ordering : node.query->orderBy) {
    if (ordering.value.kind != NodeKind::kColumn) RefuseNear(near, "rows are numbered by columns");
    const Value value = ColumnValue(ordering.value, scope);
    if (&ordering != &node.query->orderBy.front()) sql += ", ";
    sql += value.type.Is(Kind::kText) ? Collated(value.sql) : value.sql;
    if (ordering.descending) sql += " DESC";
  }
  return {kIntType, sql + ")"};
}

std::string Binder::Condition(const Node& node, Scope& scope) {
  switch (node.kind) {
    case NodeKind::kAnd:
      return Chain(node.operands, " AND ", scope);
    case NodeKind::kOr:
      return Chain(node.operands, " OR ", scope);
    case NodeKind::kNot:
      return "NOT (" + Condition(node.operands.front(), scope) + ")";
    case NodeKind::kExists: {
      std::vector<Item> items;
      return "EXISTS (" + BindQuery(*node.query, &scope, Use::kExists, items) + ")";
    }
    case NodeKind::kIsNull:
      return BindValue(node.operands.front(), scope).sql +
             (node.negated ? " IS NOT NULL" : " IS NULL");
    case NodeKind::kCompare:
      return Compare(node, scope);
    case NodeKind::kIn:
      return In(node, scope);
    case NodeKind::kLike:
      return Like(node, scope);
    default:
      RefuseNear(node, "a value is no condition");
  }
}

/// By halves: a chain that leans to one side would soon be too deep for SQLite.
std::string Binder::Chain(std::span<const Node> conditions, std::string_view keyword,
                          Scope& scope) {
  if (conditions.size() == 1) return Condition(conditions.front(), scope);
  const std::size_t half = conditions.size() / 2;
  return ("(" + Chain(conditions.first(half), keyword, scope))
      .append(keyword)
      .append(Chain(conditions.subspan(half), keyword, scope))
      .append(")");
}

std::string Binder::Compare(const Node& node, Scope& scope) {
  const Node& first = node.operands[0];
  const Node& second = node.operands[1];
  Value left = BindValue(first, scope);
  Value right = BindValue(second, scope);
  std::string sign = " " + node.text + " ";
  if ((left.now && right.type.Is(Kind::kDate)) || (right.now && left.type.Is(Kind::kDate))) {
    // A day begins with its midnight: today's is over, tomorrow's to come.
    if (node.text == "=" || node.text == "<>") RefuseNear(node, "a day is no moment");
    const bool later = (node.text[0] == '>') == right.now;
    const std::string& day = right.now ? left.sql : right.sql;
    const Value today = As(right.now ? right : left, kDateType, node);
    return day + (later ? " > " : " <= ") + today.sql;
  }
  const Type type = Common(left, right, node);
  const bool digits = second.kind == NodeKind::kConvert && !left.literal && !right.literal &&
                      first.kind == NodeKind::kCall && first.text == "replace" &&
                      node.text == "=" && right.type.Is(Kind::kText) &&
                      second.operands.front().kind == NodeKind::kColumn &&
                      ColumnValue(second.operands.front(), scope).type.Is(Kind::kInt);
  // A number's digits are written in one way, so an index of any collation may find them. The plus
  // takes the affinity from the cast, which would keep that index from being used.
  if (digits) return left.sql + " = +" + right.sql;
  left = As(std::move(left), type, node);
  right = As(std::move(right), type, node);
  return (type.Is(Kind::kText) ? Collated(left.sql) : left.sql) + sign + right.sql;
}

std::string Binder::In(const Node& node, Scope& scope) {
  Value left = BindValue(node.operands.front(), scope);
  std::vector<Value> values;
  std::string query;
  if (node.query) {
    std::vector<Item> items;
    query = BindQuery(*node.query, &scope, Use::kOneValue, items);
    values.push_back(std::move(items.front().value));
    const bool alike =
        left.type.Is(values[0].type.kind) || (left.type.IsNumeric() && values[0].type.IsNumeric());
    if (!alike) RefuseNear(node, "its two sides are of different types");
  }
  for (const Node& operand : std::span(node.operands).subspan(1)) {
    values.push_back(BindValue(operand, scope));
  }
  Type type = left.type;
  bool known = false;
  for (Value& value : values) {
    if (value.type.Is(Kind::kNull)) continue;
    const Type common = Common(left, value, node);
    if (known && type.kind != common.kind && !(type.IsNumeric() && common.IsNumeric())) {
      RefuseNear(node, "its values are of different types");
    }
    known = true;
    type = common;
    value = As(std::move(value), common, node);
  }
  left = As(std::move(left), type, node);
  std::string sql = type.Is(Kind::kText) ? Collated(left.sql) : left.sql;
  sql += node.negated ? " NOT IN (" : " IN (";
  if (node.query) return sql + query + ")";
  for (const Value& value : values) {
    if (&value != &values.front()) sql += ", ";
    sql += value.sql;
  }
  return sql + ")";
}

std::string Binder::Like(const Node& node, Scope& scope) {
  const Value text = TextArgument(node.operands[0], scope);
  const Value pattern = TextArgument(node.operands[1], scope);
  // Of two texts that are no nvarchar the server forgets the blanks at the end.
  if (text.literal != nullptr) RefuseNear(node, "a written text is not looked through");
  return text.sql + (node.negated ? " NOT LIKE " : " LIKE ") + pattern.sql;
}

}  // namespace adapters::sqlite
