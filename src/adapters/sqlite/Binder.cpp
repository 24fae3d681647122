#include "adapters/sqlite/Binder.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Functions.h"
#include "adapters/sqlite/Parser.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

std::string Quoted(std::string_view text, char mark) {
  std::string quoted(1, mark);
  for (const char c : text) {
    quoted.push_back(c);
    if (c == mark) quoted.push_back(c);
  }
  quoted.push_back(mark);
  return quoted;
}

/// Of the query that the node stands in itself.
bool HasAggregate(const Node& node) {
  constexpr std::array<std::string_view, 4> kAggregates{"count", "sum", "min", "max"};
  if (node.kind == NodeKind::kCall && std::ranges::count(kAggregates, node.text) != 0) return true;
  return std::ranges::any_of(node.operands, HasAggregate);
}

bool HasAggregate(const Query& query) {
  return std::ranges::any_of(
             query.items, [](const SelectItem& i) { return i.value && HasAggregate(*i.value); }) ||
         std::ranges::any_of(query.orderBy,
                             [](const Ordering& o) { return HasAggregate(o.value); });
}

bool IsTheSameForAllRows(const Node& node) {
  return node.kind != NodeKind::kColumn && node.query == nullptr &&
         std::ranges::all_of(node.operands, IsTheSameForAllRows);
}

platform::RuntimeError NullRefused(const Table& table, const Column& column) {
  return MakeError(kNullNotAllowed, "Cannot insert the value NULL into column '" + column.name +
                                        "', table '" + table.name +
                                        "'; column does not allow nulls.");
}

void CheckCount(std::size_t columns, std::size_t values, ServerError fewer, ServerError more) {
  if (columns == values) return;
  throw MakeError(columns > values ? fewer : more,
                  "The number of values does not match the number of columns of the INSERT.");
}

}  // namespace

std::string QuotedName(std::string_view name) {
  return Quoted(name, '"');
}
std::string QuotedText(std::string_view text) {
  return Quoted(text, '\'');
}

Translation Translate(std::string_view statement, Catalog& catalog) {
  return Binder(catalog).Bind(Parser(statement).Statement());
}

Translation Binder::Bind(const Statement& statement) {
  Translation translation;
  switch (statement.kind) {
    case Statement::Kind::kSelect: {
      std::vector<Item> items;
      translation.sql = BindQuery(*statement.query, nullptr, Use::kResult, items);
      for (Item& item : items) {
        translation.columns.push_back({std::move(item.name), item.value.type.kind});
      }
      break;
    }
    case Statement::Kind::kInsert:
      translation.sql = Insert(statement, translation);
      break;
    case Statement::Kind::kUpdate:
      translation.sql = Update(statement);
      break;
    case Statement::Kind::kDelete:
      translation.sql = Delete(statement);
      break;
  }
  return translation;
}

std::string Binder::Insert(const Statement& statement, Translation& translation) {
  const Table& table = Written(statement.table);
  const bool listed = !statement.columns.empty();
  Columns columns = NamedColumns(table, statement.columns);
  for (const Column& column : table.columns) {
    translation.givesIdentity = translation.givesIdentity || column.identity;
    if (!listed && !column.identity) columns.push_back(&column);
    const bool given = std::ranges::count(columns, &column) != 0;
    if (given && column.identity) {
      throw MakeError(kExplicitIdentity,
                      "Cannot insert explicit value for identity column in "
                      "table '" +
                          table.name + "' when IDENTITY_INSERT is set to OFF.");
    }
    if (!given && column.Required()) throw NullRefused(table, column);
  }
  std::string sql = "INSERT INTO " + QuotedName(table.name);
  std::string separator = " (";
  for (const Column* column : columns) {
    sql += separator + QuotedName(column->name);
    separator = ", ";
  }
  sql += ")";
  if (statement.query) {
    std::vector<Item> items;
    const std::string query = BindQuery(*statement.query, nullptr, Use::kInsert, items, columns);
    return sql + " " + query;
  }
  separator = " VALUES (";
  for (const std::vector<Node>& row : statement.rows) {
    CheckCount(columns.size(), row.size(), listed ? kMoreColumnsThanValues : kColumnCountMismatch,
               listed ? kFewerColumnsThanValues : kColumnCountMismatch);
    Scope none;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const Value value = Assigned(BindValue(row[i], none), *columns[i], row[i]);
      if (columns[i]->Required() && row[i].kind == NodeKind::kNull) {
        throw NullRefused(table, *columns[i]);
      }
      sql += separator + value.sql;
      separator = ", ";
    }
    sql += ")";
    separator = ", (";
  }
  return sql;
}

std::string Binder::Update(const Statement& statement) {
  const Table& table = Written(statement.table);
  const Columns columns = NamedColumns(table, statement.columns);
  Scope scope = ScopeOf(table);
  std::string sql = "UPDATE " + QuotedName(table.name) + " AS t" + std::to_string(aliases_);
  std::string separator = " SET ";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Column& column = *columns[i];
    const Node& node = statement.rows.front()[i];
    if (column.identity) {
      throw MakeError(kIdentityUpdated, "Cannot update identity column '" + column.name + "'.");
    }
    if (column.Required() && node.kind == NodeKind::kNull) throw NullRefused(table, column);
    const Value value = Assigned(BindValue(node, scope), column, node);
    // SQLite looks for duplicates row by row, the server when all rows are changed.
    if (!IsTheSameForAllRows(node) && catalog_.IsInUniqueKey(table, column)) {
      RefuseNear(node, "a column of a key is given one value for all rows");
    }
    sql.append(separator).append(QuotedName(column.name)).append(" = ").append(value.sql);
    separator = ", ";
  }
  return sql + Where(statement.where, scope);
}

std::string Binder::Delete(const Statement& statement) {
  const Table& table = Written(statement.table);
  Scope scope = ScopeOf(table);
  const std::string sql =
      "DELETE FROM " + QuotedName(table.name) + " AS t" + std::to_string(aliases_);
  return sql + Where(statement.where, scope);
}

const Table& Binder::Written(const std::string& name) {
  const Table& table = catalog_.Find(name);
  if (table.view) RefuseNear({.kind = NodeKind::kColumn, .text = name}, "a view is only read");
  return table;
}

const Column& Binder::ColumnOf(const Table& table, const std::string& name) {
  const std::string lower = text::Small(name);
  const auto found = std::ranges::find_if(
      table.columns, [&](const Column& column) { return text::Small(column.name) == lower; });
  if (found == table.columns.end()) throw MissingColumn(name, catalog_.File());
  return *found;
}

Binder::Columns Binder::NamedColumns(const Table& table, const std::vector<std::string>& names) {
  Columns columns;
  for (const std::string& name : names) {
    const Column& column = ColumnOf(table, name);
    if (std::ranges::count(columns, &column) != 0) {
      throw MakeError(kColumnTwice, "The column name '" + name +
                                        "' is specified more than once in the SET clause or "
                                        "column list of an INSERT.");
    }
    columns.push_back(&column);
  }
  return columns;
}

/// Under the next alias.
Binder::Scope Binder::ScopeOf(const Table& table) {
  const std::string alias = NextAlias();
  BoundSource source{.lowerName = text::Small(table.name)};
  for (const Column& column : table.columns) {
    source.columns.push_back({column.name, text::Small(column.name),
                              alias + "." + QuotedName(column.name), column.type});
  }
  Scope scope;
  scope.sources.push_back(std::move(source));
  return scope;
}

std::string Binder::Where(const std::optional<Node>& condition, Scope& scope) {
  return condition ? " WHERE " + Condition(*condition, scope) : std::string();
}

std::string Binder::BindQuery(const Query& query, Scope* outer, Use use, std::vector<Item>& items,
                              const Columns& targets) {
  Scope scope{.outer = outer};
  const std::string sources = Sources(query.sources, scope);
  const std::string where = Where(query.where, scope);
  const std::string groupBy = GroupBy(query.groupBy, scope);
  scope.output = true;
  scope.grouped = !query.groupBy.empty() || HasAggregate(query);
  items = Items(query, scope);
  if (use == Use::kOneValue && items.size() != 1) {
    throw MakeError(kSubqueryColumns,
                    "Only one expression can be specified in the select list when the subquery is "
                    "not introduced with EXISTS.");
  }
  if (!query.orderBy.empty() && use != Use::kResult && use != Use::kInsert && !query.top) {
    throw MakeError(kOrderInSubquery,
                    "The ORDER BY clause is invalid in views, inline functions, derived tables, "
                    "subqueries, and common table expressions, unless TOP is also specified.");
  }
  const std::string orderBy = OrderBy(query, scope, items);
  if (use == Use::kInsert) {
    CheckCount(targets.size(), items.size(), kSelectListTooShort, kSelectListTooLong);
    const Node near{.kind = NodeKind::kColumn, .text = "select"};
    for (std::size_t i = 0; i < items.size(); ++i) {
      items[i].value = Assigned(std::move(items[i].value), *targets[i], near);
    }
  }
  // The rows of EXISTS are only counted; without their cells an index alone may answer.
  const bool onlyRows = use == Use::kExists && !scope.grouped && !query.distinct;
  std::string sql = query.distinct ? "SELECT DISTINCT " : "SELECT ";
  sql += (onlyRows ? "1" : ItemList(query, use, items)) + sources + where + groupBy + orderBy;
  if (query.top) sql += " LIMIT " + std::to_string(*query.top);
  return sql;
}

std::vector<Binder::Item> Binder::Items(const Query& query, Scope& scope) {
  std::vector<Item> items;
  for (const SelectItem& item : query.items) {
    if (item.value) {
      Value value = BindValue(*item.value, scope);
      std::string name = item.alias;
      if (name.empty() && item.value->kind == NodeKind::kColumn) {
        name = Find(*item.value, scope).second->name;
      }
      items.push_back({std::move(value), std::move(name)});
      continue;
    }
    const std::string prefix = text::Small(item.prefix);
    const std::size_t before = items.size();
    for (const BoundSource& source : scope.sources) {
      if (!prefix.empty() && source.lowerName != prefix) continue;
      for (const SourceColumn& column : source.columns) {
        items.push_back({Used(column, scope), column.name});
      }
    }
    if (items.size() > before) continue;
    if (prefix.empty()) throw MakeError(kNoSource, "Must specify table to select from.");
    throw MakeError(kUnknownPrefixOfStar, "The column prefix '" + item.prefix +
                                              "' does not match with a table name or alias name "
                                              "used in the query.");
  }
  return items;
}

std::string Binder::ItemList(const Query& query, Use use, std::vector<Item>& items) {
  std::string sql;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const Value& value = items[i].value;
    const Node near{.kind = NodeKind::kColumn, .text = items[i].name};
    if (use != Use::kExists && value.type.Is(Type::Kind::kBlob)) {
      RefuseNear(near, "bytes are not read");
    }
    const bool hasFraction = value.literal != nullptr && value.type.Is(Type::Kind::kNumber) &&
                             value.literal->text.find('.') != std::string::npos;
    if (hasFraction) RefuseNear(*value.literal, "a number keeps no digits behind its point");
    sql.append(i == 0 ? "" : ", ").append(value.sql);
    if (query.distinct && value.type.Is(Type::Kind::kText)) {
      sql.append(" COLLATE ").append(kPersianCollation);
    }
    if (use == Use::kDerived || use == Use::kOneValue) sql += " AS c" + std::to_string(i + 1);
  }
  return sql;
}

std::string Binder::Sources(const std::vector<Source>& sources, Scope& scope) {
  std::string sql;
  std::size_t joined = 0;
  for (const Source& source : sources) {
    if (source.join == Join::kComma) joined = scope.sources.size();
    sql += scope.sources.empty()         ? " FROM "
           : source.join == Join::kComma ? ", "
           : source.join == Join::kLeft  ? " LEFT JOIN "
                                         : " JOIN ";
    sql += OneSource(source, scope);
    if (!source.on) continue;
    scope.first = joined;
    sql += " ON " + Condition(*source.on, scope);
    scope.first = 0;
  }
  return sql;
}

std::string Binder::OneSource(const Source& source, Scope& scope) {
  BoundSource bound;
  std::string sql;
  std::string alias;
  if (source.query) {
    std::vector<Item> items;
    sql = "(" + BindQuery(*source.query, nullptr, Use::kDerived, items) + ")";
    alias = NextAlias();
    for (const Item& item : items) {
      const std::string number = std::to_string(bound.columns.size() + 1);
      const std::string lower = text::Small(item.name);
      if (lower.empty()) {
        throw MakeError(kUnnamedColumn, "No column name was specified for column " + number +
                                            " of '" + source.alias + "'.");
      }
      const auto same = [&](const SourceColumn& column) { return column.lowerName == lower; };
      if (std::ranges::any_of(bound.columns, same)) {
        throw MakeError(kColumnNamedTwice, "The column '" + item.name +
                                               "' was specified multiple times for '" +
                                               source.alias + "'.");
      }
      bound.columns.push_back(
          {item.name, lower, std::string(alias).append(".c").append(number), item.value.type});
    }
  } else if (source.list) {
    Scope none;
    sql = std::string(kIdListFunction) + "(" +
          AsText(BindValue(*source.list, none), *source.list).sql + ")";
    alias = NextAlias();
    bound.columns.push_back({"ID", "id", alias + ".ID", kIntType});
  } else {
    const Table& table = catalog_.Find(source.table);
    sql = QuotedName(table.name);
    bound = std::move(ScopeOf(table).sources.front());
    alias = "t" + std::to_string(aliases_);
  }
  bound.lowerName = text::Small(source.alias.empty() ? source.table : source.alias);
  const auto same = [&](const BoundSource& other) { return other.lowerName == bound.lowerName; };
  if (std::ranges::any_of(scope.sources, same)) {
    throw MakeError(source.alias.empty() ? kExposedTwice : kCorrelationTwice,
                    "The name '" + bound.lowerName +
                        "' is specified multiple times in a FROM clause. Use correlation names to "
                        "distinguish them.");
  }
  scope.sources.push_back(std::move(bound));
  return sql + " AS " + alias;
}

std::string Binder::GroupBy(const std::vector<Node>& columns, Scope& scope) {
  std::string sql;
  for (const Node& node : columns) {
    if (node.kind == NodeKind::kColumn) {
      const auto [owner, column] = Find(node, scope);
      if (owner == &scope) {
        if (column->type.Is(Type::Kind::kBlob)) RefuseNear(node, "bytes are not compared");
        scope.groups.push_back(column);
        sql.append(sql.empty() ? " GROUP BY " : ", ").append(column->sql);
        if (column->type.Is(Type::Kind::kText)) sql.append(" COLLATE ").append(kPersianCollation);
        continue;
      }
    } else if (!IsTheSameForAllRows(node)) {
      RefuseNear(node, "rows are grouped by columns");
    }
    throw MakeError(kConstantGroup,
                    "Each GROUP BY expression must contain at least one column that is not an "
                    "outer reference.");
  }
  return sql;
}

std::string Binder::OrderBy(const Query& query, Scope& scope, const std::vector<Item>& items) {
  std::string sql;
  std::vector<std::string> terms;
  scope.ordering = true;
  for (const Ordering& ordering : query.orderBy) {
    bool isText = false;
    std::string term =
        OrderTerm(ordering.value, terms.size() + 1, scope, items, query.distinct, isText);
    if (std::ranges::count(terms, term) != 0) {
      throw MakeError(kOrderedTwice,
                      "A column has been specified more than once in the order by "
                      "list.");
    }
    sql.append(terms.empty() ? " ORDER BY " : ", ").append(term);
    if (isText) sql.append(" COLLATE ").append(kPersianCollation);
    if (ordering.descending) sql += " DESC";
    terms.push_back(std::move(term));
  }
  scope.ordering = false;
  return sql;
}

/// The place of an item of the select list, else the value itself.
std::string Binder::OrderTerm(const Node& node, std::size_t position, Scope& scope,
                              const std::vector<Item>& items, bool distinct, bool& isText) {
  std::size_t place = 0;
  const auto take = [&](std::size_t index) {
    place = index + 1;
    isText = items[index].value.type.Is(Type::Kind::kText);
  };
  if (node.kind == NodeKind::kNumber) {
    std::from_chars(node.text.data(), node.text.data() + node.text.size(), place);
    if (place == 0 || place > items.size() || std::to_string(place) != node.text) {
      throw MakeError(kOrderPositionOutOfRange,
                      "The ORDER BY position number " + node.text +
                          " is out of range of the number of items in the select list.");
    }
    take(place - 1);
    return node.text;
  }
  if (node.kind == NodeKind::kText || node.kind == NodeKind::kNull) {
    throw MakeError(kConstantOrder,
                    "A constant expression was encountered in the ORDER BY list, position " +
                        std::to_string(position) + ".");
  }
  if (node.kind == NodeKind::kColumn && node.prefix.empty()) {
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (text::Small(items[i].name) != text::Small(node.text)) continue;
      if (place > 0) {
        throw MakeError(kAmbiguousColumn, "Ambiguous column name '" + node.text + "'.");
      }
      take(i);
    }
    if (place > 0) return std::to_string(place);
  }
  const Value value = BindValue(node, scope);
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i].value.sql != value.sql) continue;
    take(i);
    return std::to_string(place);
  }
  if (distinct) {
    throw MakeError(kDistinctOrder,
                    "ORDER BY items must appear in the select list if SELECT DISTINCT is "
                    "specified.");
  }
  if (value.type.Is(Type::Kind::kBlob)) RefuseNear(node, "bytes are not compared");
  isText = value.type.Is(Type::Kind::kText);
  return value.sql;
}

/// A second row must be an error, so the value goes through an aggregate that counts. It stands in
/// a query of its own: one around a column of an outer query would belong to that.
std::string Binder::OneValueQuery(const Query& query, Scope& scope, Type& type) {
  std::vector<Item> items;
  const std::string sql = BindQuery(query, &scope, Use::kOneValue, items);
  type = items.front().value.type;
  return "SELECT " + std::string(kOnlyValueFunction) + "(c1) FROM (" + sql + ")";
}

}  // namespace adapters::sqlite
