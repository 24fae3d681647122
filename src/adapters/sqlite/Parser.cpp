#include "adapters/sqlite/Parser.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Functions.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

constexpr int kDeepestNesting = 60;
constexpr int kMostConditions = 1000;

constexpr std::array<std::string_view, 7> kComparisons{"=", "<>", "!=", "<", ">", "<=", ">="};

bool IsCondition(const Node& node) {
  return node.kind >= NodeKind::kCompare;
}

Node Make(NodeKind kind, std::string text, std::vector<Node> operands = {}) {
  return {.kind = kind, .text = std::move(text), .operands = std::move(operands)};
}

std::vector<Node> Two(Node first, Node second) {
  std::vector<Node> both;
  both.push_back(std::move(first));
  both.push_back(std::move(second));
  return both;
}

/// A value to be compared twice.
Node Copy(const Node& node) {
  Node copy{.kind = node.kind, .text = node.text, .prefix = node.prefix, .length = node.length};
  for (const Node& operand : node.operands) copy.operands.push_back(Copy(operand));
  return copy;
}

bool HasQuery(const Node& node) {
  return node.query != nullptr || std::ranges::any_of(node.operands, HasQuery);
}

}  // namespace

Parser::Nesting::Nesting(int& depth) : depth_(depth) {
  if (depth_ >= kDeepestNesting) throw TooDeep();
  ++depth_;
}

sqlite::Statement Parser::Statement() {
  using Kind = sqlite::Statement::Kind;
  sqlite::Statement statement;
  if (reader_.AtKeyword("select")) {
    statement.query = Query();
  } else if (reader_.AcceptKeyword("insert")) {
    statement.kind = Kind::kInsert;
    Insert(statement);
  } else if (reader_.AcceptKeyword("update")) {
    statement.kind = Kind::kUpdate;
    Update(statement);
  } else if (reader_.AcceptKeyword("delete")) {
    statement.kind = Kind::kDelete;
    reader_.AcceptKeyword("from");
    statement.table = TableName();
    statement.where = Where();
  } else {
    reader_.Refuse();
  }
  reader_.AcceptSymbol(";");
  if (reader_.Peek().kind != TokenKind::kEnd) reader_.Refuse();
  return statement;
}

void Parser::Insert(sqlite::Statement& statement) {
  reader_.AcceptKeyword("into");
  statement.table = TableName();
  if (reader_.AcceptSymbol("(")) {
    do {
      statement.columns.push_back(reader_.ExpectName());
    } while (reader_.AcceptSymbol(","));
    reader_.ExpectSymbol(")");
  }
  if (!reader_.AcceptKeyword("values")) {
    statement.query = Query();
    return;
  }
  do {
    reader_.ExpectSymbol("(");
    statement.rows.push_back(Values());
    reader_.ExpectSymbol(")");
  } while (reader_.AcceptSymbol(","));
}

void Parser::Update(sqlite::Statement& statement) {
  statement.table = TableName();
  reader_.ExpectKeyword("set");
  std::vector<Node>& values = statement.rows.emplace_back();
  do {
    statement.columns.push_back(reader_.ExpectName());
    reader_.ExpectSymbol("=");
    values.push_back(Value());
  } while (reader_.AcceptSymbol(","));
  statement.where = Where();
}

std::optional<Node> Parser::Where() {
  if (!reader_.AcceptKeyword("where")) return std::nullopt;
  return Condition();
}

sqlite::Query Parser::Query() {
  const Nesting nesting(depth_);
  sqlite::Query query;
  reader_.ExpectKeyword("select");
  query.distinct = reader_.AcceptKeyword("distinct");
  if (reader_.AcceptKeyword("top")) query.top = WholeNumber();
  do {
    query.items.push_back(Item());
  } while (reader_.AcceptSymbol(","));
  if (reader_.AcceptKeyword("from")) query.sources = Sources();
  query.where = Where();
  if (reader_.AcceptKeyword("group")) {
    reader_.ExpectKeyword("by");
    query.groupBy = Values();
  }
  if (reader_.AtKeyword("order")) query.orderBy = OrderBy();
  return query;
}

SelectItem Parser::Item() {
  if (reader_.AcceptSymbol("*")) return {};
  if (reader_.AtName() && reader_.AtSymbol(".", 1) && reader_.AtSymbol("*", 2)) {
    SelectItem item{.prefix = reader_.ExpectName()};
    reader_.ExpectSymbol(".");
    reader_.ExpectSymbol("*");
    return item;
  }
  SelectItem item{.value = Value()};
  item.alias = Alias();
  return item;
}

/// An alias may be a text, too, in a select list; a table's alias comes here without one.
std::string Parser::Alias() {
  const bool announced = reader_.AcceptKeyword("as");
  if (reader_.AtName() || reader_.Peek().kind == TokenKind::kText) return reader_.Take().text;
  if (announced) reader_.Refuse();
  return {};
}

std::vector<Source> Parser::Sources() {
  std::vector<Source> sources;
  sources.push_back(OneSource(Join::kComma));
  for (;;) {
    Join join = Join::kInner;
    if (reader_.AcceptSymbol(",")) {
      sources.push_back(OneSource(Join::kComma));
      continue;
    }
    if (reader_.AcceptKeyword("left")) {
      join = Join::kLeft;
      reader_.AcceptKeyword("outer");
      reader_.ExpectKeyword("join");
    } else if (reader_.AcceptKeyword("inner")) {
      reader_.ExpectKeyword("join");
    } else if (!reader_.AcceptKeyword("join")) {
      return sources;
    }
    sources.push_back(OneSource(join));
    reader_.ExpectKeyword("on");
    sources.back().on = Condition();
  }
}

Source Parser::OneSource(Join join) {
  Source source{.join = join};
  if (reader_.AcceptSymbol("(")) {
    source.query = std::make_unique<sqlite::Query>(Query());
    reader_.ExpectSymbol(")");
    if (!reader_.AtKeyword("as") && !reader_.AtName()) reader_.Refuse();
  } else {
    source.table = TableName();
    if (reader_.AcceptSymbol("(")) {
      if (text::Small(source.table) != text::Small(kIdListFunction)) {
        throw MakeError(kInvalidObject, "Invalid object name '" + source.table + "'.");
      }
      if (reader_.AtSymbol(")")) {
        throw MakeError(kTooFewArguments,
                        "An insufficient number of arguments were supplied for the procedure or "
                        "function " +
                            source.table + ".");
      }
      source.list = Value();
      if (reader_.AtSymbol(",")) {
        throw MakeError(kTooManyArguments, "Procedure or function " + source.table +
                                               " has too many arguments specified.");
      }
      reader_.ExpectSymbol(")");
    }
  }
  if (reader_.Peek().kind == TokenKind::kText) reader_.Refuse();
  source.alias = Alias();
  return source;
}

/// One name, perhaps behind `dbo.`; no other schema is known.
std::string Parser::TableName() {
  std::string name = reader_.ExpectName();
  if (!reader_.AcceptSymbol(".")) return name;
  const std::string schema = std::move(name);
  name = reader_.ExpectName();
  if (text::Small(schema) != "dbo" || reader_.AtSymbol(".")) {
    throw MakeError(kInvalidObject, "Invalid object name '" + schema + "." + name + "'.");
  }
  return name;
}

std::vector<Ordering> Parser::OrderBy() {
  reader_.ExpectKeyword("order");
  reader_.ExpectKeyword("by");
  std::vector<Ordering> orderings;
  do {
    Ordering ordering{.value = Value()};
    ordering.descending = reader_.AcceptKeyword("desc");
    if (!ordering.descending) reader_.AcceptKeyword("asc");
    orderings.push_back(std::move(ordering));
  } while (reader_.AcceptSymbol(","));
  return orderings;
}

Node Parser::Value() {
  Node value = Or();
  if (IsCondition(value)) reader_.Refuse();
  return value;
}

Node Parser::Condition() {
  Node condition = Or();
  if (!IsCondition(condition)) {
    throw MakeError(kNotACondition,
                    "An expression of non-boolean type specified in a context where a condition "
                    "is expected, near '" +
                        reader_.Peek().text + "'.");
  }
  return condition;
}

Node Parser::Chain(NodeKind kind, std::string_view keyword, Node (Parser::*part)()) {
  Node first = (this->*part)();
  if (!IsCondition(first) || !reader_.AtKeyword(keyword)) return first;
  Node chain = Make(kind, {});
  chain.operands.push_back(std::move(first));
  while (reader_.AcceptKeyword(keyword)) {
    if (++conditions_ > kMostConditions) throw TooComplex();
    chain.operands.push_back((this->*part)());
    if (!IsCondition(chain.operands.back())) reader_.Refuse();
  }
  return chain;
}

Node Parser::Not() {
  if (!reader_.AcceptKeyword("not")) return Predicate();
  const Nesting nesting(depth_);
  Node negated = Make(NodeKind::kNot, {});
  negated.operands.push_back(Not());
  if (!IsCondition(negated.operands.front())) reader_.Refuse();
  return negated;
}

Node Parser::Predicate() {
  if (reader_.AcceptKeyword("exists")) {
    reader_.ExpectSymbol("(");
    Node exists = Make(NodeKind::kExists, {});
    exists.query = std::make_unique<sqlite::Query>(Query());
    reader_.ExpectSymbol(")");
    return exists;
  }
  Node left = Sum();
  if (IsCondition(left)) return left;
  if (reader_.AcceptKeyword("is")) {
    Node isNull = Make(NodeKind::kIsNull, {});
    isNull.operands.push_back(std::move(left));
    isNull.negated = reader_.AcceptKeyword("not");
    reader_.ExpectKeyword("null");
    return isNull;
  }
  const bool negated = reader_.AcceptKeyword("not");
  if (reader_.AcceptKeyword("like")) {
    Node like = Make(NodeKind::kLike, {}, Two(std::move(left), ValueSum()));
    like.negated = negated;
    return like;
  }
  if (reader_.AcceptKeyword("in")) return In(std::move(left), negated);
  if (reader_.AcceptKeyword("between")) return Between(std::move(left), negated);
  if (negated) reader_.Refuse();
  for (const std::string_view sign : kComparisons) {
    if (!reader_.AcceptSymbol(sign)) continue;
    return Make(NodeKind::kCompare, sign == "!=" ? "<>" : std::string(sign),
                Two(std::move(left), ValueSum()));
  }
  return left;
}

Node Parser::In(Node left, bool negated) {
  Node in = Make(NodeKind::kIn, {});
  in.negated = negated;
  in.operands.push_back(std::move(left));
  reader_.ExpectSymbol("(");
  if (reader_.AtKeyword("select")) {
    in.query = std::make_unique<sqlite::Query>(Query());
  } else {
    for (Node& value : Values()) in.operands.push_back(std::move(value));
  }
  reader_.ExpectSymbol(")");
  return in;
}

/// Two comparisons.
Node Parser::Between(Node left, bool negated) {
  if (HasQuery(left)) reader_.Refuse();
  Node again = Copy(left);
  Node low = Make(NodeKind::kCompare, ">=", Two(std::move(left), ValueSum()));
  reader_.ExpectKeyword("and");
  Node high = Make(NodeKind::kCompare, "<=", Two(std::move(again), ValueSum()));
  Node both = Make(NodeKind::kAnd, {}, Two(std::move(low), std::move(high)));
  if (!negated) return both;
  Node outside = Make(NodeKind::kNot, {});
  outside.operands.push_back(std::move(both));
  return outside;
}

Node Parser::ValueSum() {
  Node value = Sum();
  if (IsCondition(value)) reader_.Refuse();
  return value;
}

Node Parser::Sum() {
  Node first = Operand();
  if (!reader_.AtSymbol("+")) return first;
  if (IsCondition(first)) reader_.Refuse();
  Node plus = Make(NodeKind::kPlus, {});
  plus.operands.push_back(std::move(first));
  while (reader_.AcceptSymbol("+")) {
    plus.operands.push_back(Operand());
    if (IsCondition(plus.operands.back())) reader_.Refuse();
  }
  return plus;
}

Node Parser::Operand() {
  switch (reader_.Peek().kind) {
    case TokenKind::kNumber:
      return Make(NodeKind::kNumber, reader_.Take().text);
    case TokenKind::kText:
      return Make(NodeKind::kText, reader_.Take().text);
    case TokenKind::kName:
    case TokenKind::kQuotedName:
      return NameOrCall();
    case TokenKind::kSymbol:
      if (reader_.AtSymbol("(")) return Parenthesized();
      if (reader_.AtSymbol("-") && reader_.Peek(1).kind == TokenKind::kNumber) {
        reader_.Take();
        return Make(NodeKind::kNumber, "-" + reader_.Take().text);
      }
      break;
    case TokenKind::kEnd:
      break;
  }
  reader_.Refuse();
}

Node Parser::Parenthesized() {
  const Nesting nesting(depth_);
  reader_.ExpectSymbol("(");
  Node inner;
  if (reader_.AtKeyword("select")) {
    inner.kind = NodeKind::kSubquery;
    inner.query = std::make_unique<sqlite::Query>(Query());
  } else {
    inner = Or();
  }
  reader_.ExpectSymbol(")");
  return inner;
}

Node Parser::NameOrCall() {
  if (reader_.AcceptKeyword("null")) return {};
  const bool mayBeCalled =
      reader_.AtKeyword("convert") || (reader_.Peek().kind == TokenKind::kName && reader_.AtName());
  if (mayBeCalled && reader_.AtSymbol("(", 1)) return Call(text::Small(reader_.Take().text));
  Node column = Make(NodeKind::kColumn, reader_.ExpectName());
  if (!reader_.AcceptSymbol(".")) return column;
  if (text::Small(column.text) == "dbo" && reader_.AtName() && reader_.AtSymbol("(", 1)) {
    Node call = Call(text::Small(reader_.Take().text));
    call.prefix = "dbo";
    return call;
  }
  column.prefix = std::exchange(column.text, reader_.ExpectName());
  return column;
}

Node Parser::Call(const std::string& name) {
  const Nesting nesting(depth_);
  reader_.ExpectSymbol("(");
  if (name == "convert") return Convert();
  if (name == "row_number") return RowNumber();
  Node call = Make(NodeKind::kCall, name);
  if (name == "count" && reader_.AcceptSymbol("*")) {
    reader_.ExpectSymbol(")");
    return call;
  }
  if (!reader_.AtSymbol(")")) call.operands = Values();
  reader_.ExpectSymbol(")");
  return call;
}

/// Without a style.
Node Parser::Convert() {
  Node convert = Make(NodeKind::kConvert, text::Small(reader_.ExpectName()));
  if (reader_.AcceptSymbol("(")) {
    convert.length = WholeNumber();
    reader_.ExpectSymbol(")");
  }
  reader_.ExpectSymbol(",");
  convert.operands.push_back(Value());
  reader_.ExpectSymbol(")");
  return convert;
}

Node Parser::RowNumber() {
  reader_.ExpectSymbol(")");
  reader_.ExpectKeyword("over");
  reader_.ExpectSymbol("(");
  Node number = Make(NodeKind::kRowNumber, {});
  number.query = std::make_unique<sqlite::Query>();
  number.query->orderBy = OrderBy();
  reader_.ExpectSymbol(")");
  return number;
}

std::vector<Node> Parser::Values() {
  std::vector<Node> values;
  do {
    values.push_back(Value());
  } while (reader_.AcceptSymbol(","));
  return values;
}

std::int64_t Parser::WholeNumber() {
  const Token token = reader_.Peek();
  std::int64_t number = 0;
  const char* end = token.text.data() + token.text.size();
  const auto [read, error] = std::from_chars(token.text.data(), end, number);
  if (token.kind != TokenKind::kNumber || error != std::errc{} || read != end) reader_.Refuse();
  reader_.Take();
  return number;
}

}  // namespace adapters::sqlite
