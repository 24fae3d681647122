#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/Syntax.h"
#include "adapters/sqlite/TokenReader.h"

namespace adapters::sqlite {

/// Reads one statement of the server's dialect, as much of it as the suite's forms, the selectors
/// and report templates use. Anything else, a second statement included, is refused with a
/// RuntimeError of the server's number and words.
class Parser {
 public:
  explicit Parser(std::string_view statement) : reader_(statement) {}

  sqlite::Statement Statement();

 private:
  /// Counts nesting while it lives; throws 191 when a statement nests deeper than any honest one.
  class Nesting {
   public:
    explicit Nesting(int& depth);
    ~Nesting() { --depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

   private:
    int& depth_;
  };

  void Insert(sqlite::Statement& statement);
  void Update(sqlite::Statement& statement);
  sqlite::Query Query();
  SelectItem Item();
  std::vector<Source> Sources();
  Source OneSource(Join join);
  std::vector<Ordering> OrderBy();
  std::string TableName();
  std::string Alias();
  std::optional<Node> Where();

  /// Any expression but a condition.
  Node Value();
  Node Condition();
  Node Chain(NodeKind kind, std::string_view keyword, Node (Parser::*part)());
  Node Or() { return Chain(NodeKind::kOr, "or", &Parser::And); }
  Node And() { return Chain(NodeKind::kAnd, "and", &Parser::Not); }
  Node Not();
  Node Predicate();
  Node In(Node left, bool negated);
  Node Between(Node left, bool negated);
  /// A value, or a condition in parentheses.
  Node Sum();
  Node ValueSum();
  Node Operand();
  Node Parenthesized();
  Node NameOrCall();
  Node Call(const std::string& name);
  Node Convert();
  Node RowNumber();
  std::vector<Node> Values();
  std::int64_t WholeNumber();

  TokenReader reader_;
  int depth_ = 0;
  int conditions_ = 0;  // joined by AND and OR
};

}  // namespace adapters::sqlite
