#include <algorithm>
#include <array>
#include <vector>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Functions.h"
#include "adapters/sqlite/Parser.h"

namespace adapters::sqlite {

namespace {

/// Functions that differ from SQLite's by their name at most.
struct PlainFunction {
  std::string_view name;
  std::string_view sqlite;
  std::size_t fewest;
  std::size_t most;
  bool givesText;
};
constexpr std::array kPlainFunctions{
    PlainFunction{"isnull", "ifnull", 2, 2, false},
    PlainFunction{"coalesce", "coalesce", 2, 100, false},
    PlainFunction{"ltrim", "ltrim", 1, 1, true},
    PlainFunction{"rtrim", "rtrim", 1, 1, true},
    PlainFunction{"replace", "replace", 3, 3, true},
    PlainFunction{"scope_identity", kIdentityFunction, 0, 0, false},
};
constexpr std::array<std::string_view, 3> kAggregates{"sum", "min", "max"};

constexpr std::array<std::array<std::string_view, 2>, 9> kComparisons{{{"=", "="},
                                                                       {"<>", "<>"},
                                                                       {"!=", "<>"},
                                                                       {"<", "<"},
                                                                       {">", ">"},
                                                                       {"<=", "<="},
                                                                       {">=", ">="},
                                                                       {"!<", ">="},
                                                                       {"!>", "<="}}};

/// SQLite takes 127 arguments at most, and a piece has two.
constexpr std::size_t kMostPieces = 60;

constexpr std::string_view kCastToText = "CAST(";
constexpr std::string_view kCastEnd = " AS TEXT)";

/// Whether the text is one cast of a plain column to text, and nothing behind it.
bool IsWholeCast(std::string_view sql) {
  return sql.starts_with(kCastToText) && sql.find(')') == sql.size() - 1 &&
         sql.ends_with(kCastEnd) && sql.find('(', kCastToText.size()) == std::string_view::npos;
}

/// Whether the text is a call of replace(), whose result is text.
bool IsReplace(std::string_view sql) {
  return sql.starts_with("replace(");
}

bool IsTextType(std::string_view type) {
  return type == "varchar" || type == "nvarchar" || type == "char" || type == "nchar";
}

}  // namespace

Parser::Expression Parser::Value() {
  Expression value = Or();
  if (value.kind == Kind::kCondition) reader_.Refuse();
  return value;
}

std::string Parser::Condition() {
  const Expression condition = Or();
  if (condition.kind != Kind::kCondition) {
    throw MakeError(kNotACondition,
                    "An expression of non-boolean type specified in a context where a condition "
                    "is expected, near '" +
                        reader_.Peek().text + "'.");
  }
  return condition.sql;
}

Parser::Expression Parser::Or() {
  Expression left = And();
  while (left.kind == Kind::kCondition && reader_.AcceptKeyword("or")) {
    const Expression right = And();
    if (right.kind != Kind::kCondition) reader_.Refuse();
    left.sql += " OR " + right.sql;
  }
  return left;
}

Parser::Expression Parser::And() {
  Expression left = Not();
  while (left.kind == Kind::kCondition && reader_.AcceptKeyword("and")) {
    const Expression right = Not();
    if (right.kind != Kind::kCondition) reader_.Refuse();
    left.sql += " AND " + right.sql;
  }
  return left;
}

Parser::Expression Parser::Not() {
  if (!reader_.AcceptKeyword("not")) return Predicate();
  const Nesting nesting(depth_);
  const Expression negated = Not();
  if (negated.kind != Kind::kCondition) reader_.Refuse();
  return {"NOT " + negated.sql, Kind::kCondition};
}

Parser::Expression Parser::Predicate() {
  if (reader_.AcceptKeyword("exists")) {
    reader_.ExpectSymbol("(");
    std::string sql = "EXISTS (" + Query() + ")";
    reader_.ExpectSymbol(")");
    return {std::move(sql), Kind::kCondition};
  }
  Expression left = Sum();
  if (left.kind == Kind::kCondition) return left;
  if (reader_.AcceptKeyword("is")) {
    const bool negated = reader_.AcceptKeyword("not");
    reader_.ExpectKeyword("null");
    return {left.sql + (negated ? " IS NOT NULL" : " IS NULL"), Kind::kCondition};
  }
  const bool negated = reader_.AcceptKeyword("not");
  const std::string negation = negated ? " NOT" : "";
  if (reader_.AcceptKeyword("like")) {
    const Expression pattern = Sum();
    if (pattern.kind == Kind::kCondition) reader_.Refuse();
    return {left.sql + negation + " LIKE " + pattern.sql, Kind::kCondition};
  }
  if (reader_.AcceptKeyword("in")) return InList(left, negation);
  if (reader_.AcceptKeyword("between")) {
    const Expression low = Sum();
    reader_.ExpectKeyword("and");
    const Expression high = Sum();
    if (low.kind == Kind::kCondition || high.kind == Kind::kCondition) reader_.Refuse();
    return {left.sql + negation + " BETWEEN " + low.sql + " AND " + high.sql, Kind::kCondition};
  }
  if (negated) reader_.Refuse();
  for (const auto& [symbol, sqlite] : kComparisons) {
    if (!reader_.AcceptSymbol(symbol)) continue;
    const Expression right = Sum();
    if (right.kind == Kind::kCondition) reader_.Refuse();
    // A plus takes the affinity from a cast: beside what is text anyway it changes no result, and
    // an index on the other side's expression can serve.
    const std::string_view plus = IsReplace(left.sql) && IsWholeCast(right.sql) ? "+" : "";
    return {left.sql.append(" ").append(sqlite).append(" ").append(plus).append(right.sql),
            Kind::kCondition};
  }
  return left;
}

Parser::Expression Parser::InList(const Expression& left, std::string_view negation) {
  reader_.ExpectSymbol("(");
  std::string sql = left.sql + std::string(negation) + " IN (";
  sql += reader_.AtKeyword("select") ? Query() : ValueList();
  reader_.ExpectSymbol(")");
  return {sql + ")", Kind::kCondition};
}

Parser::Expression Parser::Sum() {
  Expression first = Operand();
  if (!reader_.AtSymbol("+")) return first;
  std::vector<Expression> operands;
  operands.push_back(std::move(first));
  while (reader_.AcceptSymbol("+")) operands.push_back(Operand());

  const auto has = [&](Kind kind) {
    return std::any_of(operands.begin(), operands.end(),
                       [kind](const Expression& operand) { return operand.kind == kind; });
  };
  if (has(Kind::kCondition)) reader_.Refuse();
  if (has(Kind::kText) && has(Kind::kNumber)) {
    throw MakeError(kConversion, "Conversion failed when converting a text to data type int.");
  }
  const Kind kind = has(Kind::kText)      ? Kind::kText
                    : has(Kind::kUnknown) ? Kind::kUnknown
                                          : Kind::kNumber;
  std::string sql = JoinedPieces(operands);
  if (!sql.empty()) return {std::move(sql), Kind::kText};
  sql = operands.front().sql;
  for (auto operand = operands.begin() + 1; operand != operands.end(); ++operand) {
    if (kind == Kind::kUnknown) {
      sql.insert(0, std::string(kPlusFunction) + "(");
      sql.append(", ").append(operand->sql).append(")");
    } else {
      sql += (kind == Kind::kText ? " || " : " + ") + operand->sql;
    }
  }
  return {"(" + sql + ")", kind};
}

/// Pieces of one value's text and literals between them, as the batch insert makes a date of an id,
/// in one call; empty for any other sum.
std::string Parser::JoinedPieces(const std::vector<Expression>& operands) {
  const auto first = std::find_if(operands.begin(), operands.end(), [](const Expression& operand) {
    return !operand.pieceOf.empty();
  });
  if (first == operands.end() || operands.size() > kMostPieces) return {};
  std::string sql = std::string(kPiecesFunction) + "(" + first->pieceOf;
  for (const Expression& operand : operands) {
    if (operand.pieceArguments.empty()) return {};
    if (!operand.pieceOf.empty() && operand.pieceOf != first->pieceOf) return {};
    sql.append(", ").append(operand.pieceArguments);
  }
  return sql + ")";
}

Parser::Expression Parser::Operand() {
  switch (reader_.Peek().kind) {
    case TokenKind::kNumber:
      return {reader_.Take().text, Kind::kNumber};
    case TokenKind::kText: {
      const std::string text = QuotedText(reader_.Take().text);
      return {text, Kind::kText, text};
    }
    case TokenKind::kName:
    case TokenKind::kQuotedName:
      return NameOrCall();
    case TokenKind::kSymbol:
      if (reader_.AtSymbol("(")) return Parenthesized();
      if (reader_.AtSymbol("-") && reader_.Peek(1).kind == TokenKind::kNumber) {
        reader_.Take();
        return {"-" + reader_.Take().text, Kind::kNumber};
      }
      reader_.Refuse();
    case TokenKind::kEnd:
      break;
  }
  reader_.Refuse();
}

Parser::Expression Parser::Parenthesized() {
  const Nesting nesting(depth_);
  reader_.ExpectSymbol("(");
  Expression inner;
  if (reader_.AtKeyword("select")) {
    inner.sql = ScalarQuery();
  } else {
    inner = Or();
  }
  reader_.ExpectSymbol(")");
  return {"(" + inner.sql + ")", inner.kind};
}

Parser::Expression Parser::NameOrCall() {
  if (reader_.AcceptKeyword("null")) return {"NULL", Kind::kUnknown};
  const bool mayBeCalled = reader_.AtKeyword("convert") || reader_.AtKeyword("coalesce") ||
                           (reader_.Peek().kind == TokenKind::kName && reader_.AtName());
  if (mayBeCalled && reader_.AtSymbol("(", 1)) {
    return Call(LowerName(reader_.Take().text), false);
  }
  std::string name = reader_.ExpectName();
  if (!reader_.AcceptSymbol(".")) return {QuotedName(name), Kind::kUnknown};
  const bool ofSuite = LowerName(name) == "dbo";
  if (ofSuite && reader_.AtName() && reader_.AtSymbol("(", 1)) {
    return Call(LowerName(reader_.Take().text), true);
  }
  if (ofSuite) {
    name = reader_.ExpectName();
    reader_.ExpectSymbol(".");
  }
  return {QuotedName(name) + "." + QuotedName(reader_.ExpectName()), Kind::kUnknown};
}

Parser::Expression Parser::Call(const std::string& name, bool ofSuite) {
  const Nesting nesting(depth_);
  reader_.ExpectSymbol("(");
  if (ofSuite) {
    if (name != LowerName(kEnglishDateFunction)) {
      throw MakeError(kUnknownFunction,
                      "Cannot find either column \"dbo\" or the user-defined function or "
                      "aggregate \"dbo." +
                          name + "\", or the name is ambiguous.");
    }
    const std::string argument = Value().sql;
    reader_.ExpectSymbol(")");
    return {std::string(kEnglishDateFunction) + "(" + argument + ")", Kind::kUnknown};
  }
  if (name == "convert") return ConvertCall();
  if (name == "substring") return SubstringCall();
  if (name == "count") return CountCall();
  if (name == "row_number") return RowNumberCall();
  if (name == "getdate") {
    reader_.ExpectSymbol(")");
    return {"datetime('now', 'localtime')", Kind::kUnknown};
  }
  if (name == "len") {
    const std::string argument = Value().sql;
    reader_.ExpectSymbol(")");
    return {"length(rtrim(" + argument + "))", Kind::kNumber};
  }
  if (std::find(kAggregates.begin(), kAggregates.end(), name) != kAggregates.end()) {
    const Expression argument = Value();
    reader_.ExpectSymbol(")");
    return {name + "(" + argument.sql + ")", argument.kind};
  }
  for (const PlainFunction& function : kPlainFunctions) {
    if (function.name != name) continue;
    std::string sql = std::string(function.sqlite) + "(";
    Kind kind = function.givesText ? Kind::kText : Kind::kUnknown;
    std::size_t count = 0;
    if (function.most > 0) {
      do {
        const Expression argument = Value();
        sql += (count++ == 0 ? "" : ", ") + argument.sql;
        if (argument.kind == Kind::kText) kind = Kind::kText;
      } while (count < function.most && reader_.AcceptSymbol(","));
    }
    if (count < function.fewest) reader_.Refuse();
    reader_.ExpectSymbol(")");
    return {sql + ")", kind};
  }
  throw MakeError(kUnknownBuiltIn, "'" + name + "' is not a recognized built-in function name.");
}

/// CONVERT(type, value) for the two types whose text is the same on both sides; no style.
Parser::Expression Parser::ConvertCall() {
  const std::string type = LowerName(reader_.ExpectName());
  std::string length;
  if (IsTextType(type)) {
    if (reader_.AcceptSymbol("(")) {
      length = WholeNumber();
      reader_.ExpectSymbol(")");
    }
  } else if (type != "int" && type != "bigint") {
    ThrowIncorrectSyntax(type);
  }
  reader_.ExpectSymbol(",");
  const Expression value = Value();
  reader_.ExpectSymbol(")");
  if (!IsTextType(type)) {
    return {std::string(kToIntegerFunction) + "(" + value.sql + ")", Kind::kNumber};
  }
  std::string sql = std::string(kCastToText) + value.sql + std::string(kCastEnd);
  if (!length.empty()) sql = "substr(" + sql + ", 1, " + length + ")";
  return {std::move(sql), Kind::kText};
}

/// Positions must be written numbers: below 1 the two engines disagree.
Parser::Expression Parser::SubstringCall() {
  const std::string text = Value().sql;
  std::string castValue;
  if (IsWholeCast(text)) {
    castValue = text.substr(kCastToText.size(), text.size() - kCastToText.size() - kCastEnd.size());
  }
  reader_.ExpectSymbol(",");
  if (reader_.Peek().text == "0") reader_.Refuse();
  const std::string start = WholeNumber();
  reader_.ExpectSymbol(",");
  const std::string length = WholeNumber();
  reader_.ExpectSymbol(")");
  return {"substr(" + text + ", " + start + ", " + length + ")", Kind::kText,
          castValue.empty() ? "" : start + ", " + length, castValue};
}

Parser::Expression Parser::CountCall() {
  std::string sql = "count(";
  if (reader_.AcceptSymbol("*")) {
    sql += "*";
  } else {
    if (reader_.AcceptKeyword("distinct")) sql += "DISTINCT ";
    sql += Value().sql;
  }
  reader_.ExpectSymbol(")");
  return {sql + ")", Kind::kNumber};
}

Parser::Expression Parser::RowNumberCall() {
  reader_.ExpectSymbol(")");
  reader_.ExpectKeyword("over");
  reader_.ExpectSymbol("(");
  std::string sql = "row_number() OVER (";
  if (reader_.AcceptKeyword("partition")) {
    reader_.ExpectKeyword("by");
    sql += "PARTITION BY " + ValueList();
  }
  if (!reader_.AtKeyword("order")) reader_.Refuse();
  // The numbering is by ids; another collation than the columns' own would slow its sort.
  sql += OrderBy({});
  reader_.ExpectSymbol(")");
  return {sql + ")", Kind::kNumber};
}

std::string Parser::ValueList() {
  std::string sql = Value().sql;
  while (reader_.AcceptSymbol(",")) sql += ", " + Value().sql;
  return sql;
}

std::string Parser::WholeNumber() {
  const Token& token = reader_.Peek();
  if (token.kind != TokenKind::kNumber || token.text.find('.') != std::string::npos) {
    reader_.Refuse();
  }
  return reader_.Take().text;
}

}  // namespace adapters::sqlite
