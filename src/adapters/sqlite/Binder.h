#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/sqlite/Catalog.h"
#include "adapters/sqlite/Syntax.h"
#include "adapters/sqlite/Translator.h"

namespace adapters::sqlite {

/// Gives every name and value of a statement's tree its meaning and writes SQLite's text for it.
/// Part of the translator: statements and queries are in Binder.cpp, values and conditions in
/// BinderValues.cpp, conversions in BinderConversions.cpp.
class Binder {
 public:
  explicit Binder(Catalog& catalog) : catalog_(catalog) {}

  Translation Bind(const Statement& statement);

 private:
  /// SQLite's text of a value is one operand of whatever stands around it.
  struct Value {
    Type type;
    std::string sql;
    const Node* literal = nullptr;  ///< the number or text that it is
    bool now = false;               ///< GETDATE()
  };
  struct Item {
    Value value;
    std::string name;
  };
  struct SourceColumn {
    std::string name;
    std::string lowerName;
    std::string sql;
    Type type;
  };
  struct BoundSource {
    std::string lowerName;  ///< by which the statement refers to it
    std::vector<SourceColumn> columns = {};
  };
  /// What the names of one query can mean.
  struct Scope {
    Scope* outer = nullptr;
    std::vector<BoundSource> sources = {};
    std::size_t first = 0;  ///< of `sources` that may be named: in ON those of its own joins
    bool output = false;    ///< in the select list and ORDER BY
    bool grouped = false;
    bool ordering = false;
    bool aggregate = false;  ///< in the argument of one
    std::vector<const SourceColumn*> groups = {};
  };
  enum class Use { kResult, kInsert, kDerived, kOneValue, kExists };
  using Columns = std::vector<const Column*>;

  // Binder.cpp
  std::string Insert(const Statement& statement, Translation& translation);
  std::string Update(const Statement& statement);
  std::string Delete(const Statement& statement);
  const Table& Written(const std::string& name);
  const Column& ColumnOf(const Table& table, const std::string& name);
  Columns NamedColumns(const Table& table, const std::vector<std::string>& names);
  Scope ScopeOf(const Table& table);
  std::string Where(const std::optional<Node>& condition, Scope& scope);
  std::string BindQuery(const Query& query, Scope* outer, Use use, std::vector<Item>& items,
                        const Columns& targets = {});
  std::vector<Item> Items(const Query& query, Scope& scope);
  std::string ItemList(const Query& query, Use use, std::vector<Item>& items);
  std::string Sources(const std::vector<Source>& sources, Scope& scope);
  std::string OneSource(const Source& source, Scope& scope);
  std::string GroupBy(const std::vector<Node>& columns, Scope& scope);
  std::string OrderBy(const Query& query, Scope& scope, const std::vector<Item>& items);
  std::string OrderTerm(const Node& node, std::size_t position, Scope& scope,
                        const std::vector<Item>& items, bool distinct, bool& isText);
  std::string OneValueQuery(const Query& query, Scope& scope, Type& type);
  std::string NextAlias() { return "t" + std::to_string(++aliases_); }

  // BinderValues.cpp
  Value BindValue(const Node& node, Scope& scope);
  Value Literal(const Node& node);
  Value ColumnValue(const Node& node, Scope& scope);
  static Value Used(const SourceColumn& column, const Scope& owner);
  std::pair<Scope*, const SourceColumn*> Find(const Node& node, Scope& scope);
  Value Plus(const Node& node, Scope& scope);
  Value Pieces(const Node& node, Scope& scope);
  Value Call(const Node& call, Scope& scope);
  Value EnglishDate(const Node& call, Scope& scope);
  Value IsNull(const Node& call, Scope& scope);
  Value Replace(const Node& call, Scope& scope);
  Value Substring(const Node& call, Scope& scope);
  Value Aggregate(const Node& call, Scope& scope);
  Value RowNumber(const Node& node, Scope& scope);
  Value TextArgument(const Node& node, Scope& scope);
  std::string Condition(const Node& node, Scope& scope);
  std::string Chain(std::span<const Node> conditions, std::string_view keyword, Scope& scope);
  std::string Compare(const Node& node, Scope& scope);
  std::string In(const Node& node, Scope& scope);
  std::string Like(const Node& node, Scope& scope);

  // BinderConversions.cpp
  static Type Common(const Value& left, const Value& right, const Node& near);
  /// As the server converts without being asked.
  static Value As(Value value, Type target, const Node& near);
  static Value AsInt(Value value, const Node& near);
  static Value AsText(Value value, const Node& near);
  static Value Cut(Value text, std::size_t length);
  static Value Assigned(Value value, const Column& column, const Node& near);
  Value Convert(const Node& node, Scope& scope);

  Catalog& catalog_;
  int aliases_ = 0;
};

/// "name" and 'text' as SQLite reads them.
std::string QuotedName(std::string_view name);
std::string QuotedText(std::string_view text);

/// 102 near what `node` is, and why this engine refuses what the server would take.
[[noreturn]] void RefuseNear(const Node& node, std::string_view why);

}  // namespace adapters::sqlite
