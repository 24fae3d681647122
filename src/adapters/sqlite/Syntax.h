#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// The tree of one statement as it was written: no name is looked up, nothing has a type.
namespace adapters::sqlite {

struct Query;

enum class NodeKind {
  // Values.
  kNumber,     ///< `text` with its sign
  kText,       ///< `text` without quotes
  kNull,       ///< NULL
  kColumn,     ///< `text`, perhaps with a `prefix`
  kCall,       ///< the function `text`, in lower case; `prefix` is dbo. COUNT(*) has no operand
  kConvert,    ///< of the operand to the type `text`, in lower case
  kRowNumber,  ///< by the `query`'s ORDER BY
  kPlus,       ///< of two operands or more
  kSubquery,   ///< the one value of `query`
  // Conditions.
  kCompare,  ///< by the sign `text`
  kLike,     ///< the first operand by the pattern in the second
  kIn,       ///< the first operand among the others, or in `query`
  kIsNull,   ///< of the operand
  kExists,   ///< rows of `query`
  kNot,      ///< the operand
  kAnd,      ///< of two operands or more
  kOr,       ///< of two operands or more
};

struct Node {
  NodeKind kind = NodeKind::kNull;
  std::string text = {};
  std::string prefix = {};
  bool negated = false;                     ///< NOT LIKE, NOT IN, IS NOT NULL
  std::optional<std::int64_t> length = {};  ///< of kConvert's type, where one is given
  std::vector<Node> operands = {};
  std::unique_ptr<Query> query = {};
};

struct SelectItem {
  std::optional<Node> value = {};  ///< nothing for *
  std::string prefix = {};         ///< of *
  std::string alias = {};
};

struct Ordering {
  Node value;
  bool descending = false;
};

enum class Join { kComma, kInner, kLeft };

struct Source {
  Join join = Join::kComma;           ///< with the sources before
  std::string table = {};             ///< a table, a view, or the function of `list`
  std::optional<Node> list = {};      ///< the argument of a table-valued function
  std::unique_ptr<Query> query = {};  ///< a derived table
  std::string alias = {};
  std::optional<Node> on = {};
};

struct Query {
  bool distinct = false;
  std::optional<std::int64_t> top = {};
  std::vector<SelectItem> items = {};
  std::vector<Source> sources = {};
  std::optional<Node> where = {};
  std::vector<Node> groupBy = {};
  std::vector<Ordering> orderBy = {};
};

struct Statement {
  enum class Kind { kSelect, kInsert, kUpdate, kDelete };
  Kind kind = Kind::kSelect;
  std::string table = {};                    ///< that is written to
  std::vector<std::string> columns = {};     ///< of INSERT, if it has a list, or UPDATE
  std::vector<std::vector<Node>> rows = {};  ///< of VALUES; one of UPDATE's values
  std::optional<Query> query = {};           ///< of SELECT, or of INSERT without VALUES
  std::optional<Node> where = {};
};

}  // namespace adapters::sqlite
