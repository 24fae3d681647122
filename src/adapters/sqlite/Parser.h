#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/TokenReader.h"
#include "adapters/sqlite/Translator.h"

namespace adapters::sqlite {

/// Reads one statement from left to right and writes SQLite's text for it on the way. Part of the
/// translator: statements and queries are in Parser.cpp, expressions in ParserExpressions.cpp.
class Parser {
 public:
  explicit Parser(std::string_view statement) : reader_(statement) {}

  Translation Statement();

 private:
  /// What can be known of an expression without the schema.
  enum class Kind { kCondition, kText, kNumber, kUnknown };
  struct Expression {
    std::string sql;
    Kind kind = Kind::kUnknown;
    /// For a text that may be a piece of a joined one: its arguments in a call of kPiecesFunction,
    /// and the value it is cut from, empty for a literal.
    std::string pieceArguments = {};
    std::string pieceOf = {};
  };

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

  // Parser.cpp
  std::string Insert(Translation& translation);
  std::string Update();
  std::string Delete();
  std::string Query();
  std::string ScalarQuery();
  std::string QueryBody(const std::function<std::string()>& selectList);
  std::string SelectList();
  std::string Sources();
  std::string Source();
  std::string OrderBy(std::string_view collation);
  std::string TableName();
  std::string Alias();
  std::string WhereClause();

  // ParserExpressions.cpp
  /// Any expression but a condition.
  Expression Value();
  std::string Condition();
  Expression Or();
  Expression And();
  Expression Not();
  Expression Predicate();
  Expression InList(const Expression& left, std::string_view negation);
  Expression Sum();
  static std::string JoinedPieces(const std::vector<Expression>& operands);
  Expression Operand();
  Expression Parenthesized();
  Expression NameOrCall();
  Expression Call(const std::string& name, bool ofSuite);
  Expression ConvertCall();
  Expression SubstringCall();
  Expression CountCall();
  Expression RowNumberCall();
  std::string ValueList();
  /// The whole number that must stand here.
  std::string WholeNumber();

  TokenReader reader_;
  int depth_ = 0;
};

/// "name" and 'text' as SQLite reads them.
std::string QuotedName(std::string_view name);
std::string QuotedText(std::string_view text);

}  // namespace adapters::sqlite
