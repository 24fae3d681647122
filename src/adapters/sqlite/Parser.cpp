#include "adapters/sqlite/Parser.h"

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Functions.h"

namespace adapters::sqlite {

namespace {

constexpr int kDeepestNesting = 60;

std::string Quoted(std::string_view text, char mark) {
  std::string quoted(1, mark);
  for (const char c : text) {
    quoted.push_back(c);
    if (c == mark) quoted.push_back(c);
  }
  quoted.push_back(mark);
  return quoted;
}

}  // namespace

std::string QuotedName(std::string_view name) {
  return Quoted(name, '"');
}
std::string QuotedText(std::string_view text) {
  return Quoted(text, '\'');
}

Translation Translate(std::string_view statement) {
  return Parser(statement).Statement();
}

Parser::Nesting::Nesting(int& depth) : depth_(depth) {
  if (depth_ >= kDeepestNesting) {
    throw MakeError(kNestedTooDeeply, "Some part of your SQL statement is nested too deeply.");
  }
  ++depth_;
}

Translation Parser::Statement() {
  Translation translation;
  if (reader_.AtKeyword("select")) {
    translation.returnsRows = true;
    translation.sql = Query();
  } else if (reader_.AcceptKeyword("insert")) {
    translation.sql = Insert(translation);
  } else if (reader_.AcceptKeyword("update")) {
    translation.sql = Update();
  } else if (reader_.AcceptKeyword("delete")) {
    translation.sql = Delete();
  } else {
    reader_.Refuse();
  }
  reader_.AcceptSymbol(";");
  if (reader_.Peek().kind != TokenKind::kEnd) reader_.Refuse();
  return translation;
}

std::string Parser::Insert(Translation& translation) {
  reader_.AcceptKeyword("into");
  translation.insertedTable = TableName();
  std::string sql = "INSERT INTO " + QuotedName(translation.insertedTable);
  if (reader_.AcceptSymbol("(")) {
    std::string separator = " (";
    do {
      sql += separator + QuotedName(reader_.ExpectName());
      separator = ", ";
    } while (reader_.AcceptSymbol(","));
    reader_.ExpectSymbol(")");
    sql += ")";
  }
  if (!reader_.AcceptKeyword("values")) return sql + " " + Query();
  sql += " VALUES ";
  std::string separator;
  do {
    reader_.ExpectSymbol("(");
    sql += separator + "(" + ValueList() + ")";
    reader_.ExpectSymbol(")");
    separator = ", ";
  } while (reader_.AcceptSymbol(","));
  return sql;
}

std::string Parser::Update() {
  std::string sql = "UPDATE " + QuotedName(TableName());
  reader_.ExpectKeyword("set");
  std::string separator = " SET ";
  do {
    sql += separator + QuotedName(reader_.ExpectName());
    reader_.ExpectSymbol("=");
    sql += " = " + Value().sql;
    separator = ", ";
  } while (reader_.AcceptSymbol(","));
  return sql + WhereClause();
}

std::string Parser::Delete() {
  reader_.AcceptKeyword("from");
  std::string sql = "DELETE FROM " + QuotedName(TableName());
  return sql + WhereClause();
}

std::string Parser::WhereClause() {
  return reader_.AcceptKeyword("where") ? " WHERE " + Condition() : std::string();
}

std::string Parser::Query() {
  return "SELECT " + QueryBody([this] { return SelectList(); });
}

/// A second row must be an error, so the value goes through an aggregate that counts. It stands in
/// a query of its own: one around a column of an outer query would belong to that.
std::string Parser::ScalarQuery() {
  const std::string inner =
      "SELECT " + QueryBody([this] {
        const std::string value = reader_.AtSymbol("*") ? std::string() : Value().sql;
        if (value.empty() || (Alias(), reader_.AtSymbol(","))) {
          throw MakeError(
              kSubqueryColumns,
              "Only one expression can be specified in the select list when the subquery "
              "is not introduced with EXISTS.");
        }
        return value + " AS v";
      });
  return "SELECT " + std::string(kOnlyValueFunction) + "(v) FROM (" + inner + ")";
}

std::string Parser::QueryBody(const std::function<std::string()>& selectList) {
  const Nesting nesting(depth_);
  reader_.ExpectKeyword("select");
  std::string sql;
  if (reader_.AcceptKeyword("distinct")) {
    sql = "DISTINCT ";
  } else {
    reader_.AcceptKeyword("all");
  }
  std::string limit;
  if (reader_.AcceptKeyword("top")) {
    const bool parenthesized = reader_.AcceptSymbol("(");
    limit = " LIMIT " + WholeNumber();
    if (parenthesized) reader_.ExpectSymbol(")");
  }
  sql += selectList();
  if (reader_.AcceptKeyword("from")) sql += " FROM " + Sources();
  sql += WhereClause();
  if (reader_.AcceptKeyword("group")) {
    reader_.ExpectKeyword("by");
    sql += " GROUP BY " + ValueList();
  }
  if (reader_.AcceptKeyword("having")) sql += " HAVING " + Condition();
  if (reader_.AtKeyword("order")) sql += OrderBy(kPersianCollation);
  return sql + limit;
}

std::string Parser::SelectList() {
  std::string sql;
  do {
    if (!sql.empty()) sql += ", ";
    if (reader_.AcceptSymbol("*")) {
      sql += "*";
    } else if (reader_.AtName() && reader_.AtSymbol(".", 1) && reader_.AtSymbol("*", 2)) {
      sql += QuotedName(reader_.ExpectName()) + ".*";
      reader_.ExpectSymbol(".");
      reader_.ExpectSymbol("*");
    } else {
      sql += Value().sql;
      sql += Alias();
    }
  } while (reader_.AcceptSymbol(","));
  return sql;
}

/// An alias may be a text, too, in a select list; a table's alias comes here without one.
std::string Parser::Alias() {
  const bool announced = reader_.AcceptKeyword("as");
  if (reader_.AtName() || reader_.Peek().kind == TokenKind::kText) {
    return " AS " + QuotedName(reader_.Take().text);
  }
  if (announced) reader_.Refuse();
  return {};
}

std::string Parser::Sources() {
  std::string sql = Source();
  for (;;) {
    if (reader_.AcceptSymbol(",")) {
      sql += ", " + Source();
      continue;
    }
    if (reader_.AcceptKeyword("cross")) {
      reader_.ExpectKeyword("join");
      // SQLite takes its own CROSS JOIN for an order to keep the tables' sequence.
      sql += " JOIN " + Source();
      continue;
    }
    if (reader_.AcceptKeyword("left")) {
      reader_.AcceptKeyword("outer");
      reader_.ExpectKeyword("join");
      sql += " LEFT JOIN ";
    } else if (reader_.AcceptKeyword("inner")) {
      reader_.ExpectKeyword("join");
      sql += " JOIN ";
    } else if (reader_.AcceptKeyword("join")) {
      sql += " JOIN ";
    } else {
      return sql;
    }
    sql += Source();
    reader_.ExpectKeyword("on");
    sql += " ON " + Condition();
  }
}

std::string Parser::Source() {
  std::string sql;
  if (reader_.AcceptSymbol("(")) {
    sql = "(" + Query() + ")";
    reader_.ExpectSymbol(")");
    if (!reader_.AtKeyword("as") && !reader_.AtName()) reader_.Refuse();
  } else {
    const std::string table = TableName();
    if (reader_.AcceptSymbol("(")) {
      if (LowerName(table) != LowerName(kIdListFunction)) {
        throw MakeError(kInvalidObject, "Invalid object name '" + table + "'.");
      }
      if (reader_.AtSymbol(")")) {
        throw MakeError(kTooFewArguments,
                        "An insufficient number of arguments were supplied for the procedure or "
                        "function " +
                            table + ".");
      }
      sql = std::string(kIdListFunction) + "(" + Value().sql + ")";
      if (reader_.AtSymbol(",")) {
        throw MakeError(kTooManyArguments,
                        "Procedure or function " + table + " has too many arguments specified.");
      }
      reader_.ExpectSymbol(")");
    } else {
      sql = QuotedName(table);
    }
  }
  if (reader_.Peek().kind == TokenKind::kText) reader_.Refuse();
  return sql + Alias();
}

/// One name, perhaps behind `dbo.`; no other schema is known, nor SQLite's own tables.
std::string Parser::TableName() {
  std::string name = reader_.ExpectName();
  if (reader_.AcceptSymbol(".")) {
    const std::string schema = name;
    name = reader_.ExpectName();
    if (LowerName(schema) != "dbo" || reader_.AtSymbol(".")) {
      throw MakeError(kInvalidObject, "Invalid object name '" + schema + "." + name + "'.");
    }
  }
  const std::string lower = LowerName(name);
  if (lower.starts_with("sqlite_") || lower.starts_with("pragma_")) {
    throw MakeError(kInvalidObject, "Invalid object name '" + name + "'.");
  }
  return name;
}

std::string Parser::OrderBy(std::string_view collation) {
  reader_.ExpectKeyword("order");
  reader_.ExpectKeyword("by");
  std::string sql = " ORDER BY ";
  std::string separator;
  do {
    sql += separator + Value().sql;
    if (!collation.empty()) sql += " COLLATE " + std::string(collation);
    if (reader_.AcceptKeyword("desc")) {
      sql += " DESC";
    } else {
      reader_.AcceptKeyword("asc");
    }
    separator = ", ";
  } while (reader_.AcceptSymbol(","));
  return sql;
}

}  // namespace adapters::sqlite
