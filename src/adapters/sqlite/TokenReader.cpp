#include "adapters/sqlite/TokenReader.h"

#include <algorithm>
#include <array>

#include "adapters/sqlite/Errors.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

constexpr auto kReserved = std::to_array<std::string_view>({
    "add",      "all",         "alter",    "and",       "any",       "as",         "asc",
    "backup",   "begin",       "between",  "break",     "by",        "cascade",    "case",
    "check",    "close",       "coalesce", "collate",   "column",    "commit",     "constraint",
    "contains", "continue",    "convert",  "create",    "cross",     "current",    "cursor",
    "database", "deallocate",  "declare",  "default",   "delete",    "deny",       "desc",
    "distinct", "drop",        "else",     "end",       "escape",    "except",     "exec",
    "execute",  "exists",      "exit",     "fetch",     "for",       "foreign",    "from",
    "full",     "function",    "goto",     "grant",     "group",     "having",     "holdlock",
    "identity", "if",          "in",       "index",     "inner",     "insert",     "intersect",
    "into",     "is",          "join",     "key",       "left",      "like",       "merge",
    "not",      "null",        "nullif",   "of",        "off",       "on",         "open",
    "option",   "or",          "order",    "outer",     "over",      "percent",    "pivot",
    "primary",  "print",       "proc",     "procedure", "raiserror", "references", "restore",
    "return",   "revoke",      "right",    "rollback",  "save",      "schema",     "select",
    "set",      "shutdown",    "some",     "table",     "then",      "to",         "top",
    "tran",     "transaction", "trigger",  "truncate",  "union",     "unique",     "unpivot",
    "update",   "use",         "user",     "values",    "view",      "waitfor",    "when",
    "where",    "while",       "with",
});

bool IsReserved(std::string_view name) {
  return std::find(kReserved.begin(), kReserved.end(), text::Small(name)) != kReserved.end();
}

}  // namespace

const Token& TokenReader::Peek(std::size_t ahead) const {
  return tokens_[std::min(position_ + ahead, tokens_.size() - 1)];
}

bool TokenReader::AtKeyword(std::string_view keyword, std::size_t ahead) const {
  const Token& token = Peek(ahead);
  return token.kind == TokenKind::kName && token.text.size() == keyword.size() &&
         text::Small(token.text) == keyword;
}

bool TokenReader::AtSymbol(std::string_view symbol, std::size_t ahead) const {
  const Token& token = Peek(ahead);
  return token.kind == TokenKind::kSymbol && token.text == symbol;
}

bool TokenReader::AtName(std::size_t ahead) const {
  const Token& token = Peek(ahead);
  return token.kind == TokenKind::kQuotedName ||
         (token.kind == TokenKind::kName && token.text.front() != '@' && !IsReserved(token.text));
}

Token TokenReader::Take() {
  Token token = Peek();
  if (position_ + 1 < tokens_.size()) ++position_;
  return token;
}

bool TokenReader::AcceptKeyword(std::string_view keyword) {
  if (!AtKeyword(keyword)) return false;
  ++position_;
  return true;
}

bool TokenReader::AcceptSymbol(std::string_view symbol) {
  if (!AtSymbol(symbol)) return false;
  ++position_;
  return true;
}

void TokenReader::ExpectKeyword(std::string_view keyword) {
  if (!AcceptKeyword(keyword)) Refuse();
}

void TokenReader::ExpectSymbol(std::string_view symbol) {
  if (!AcceptSymbol(symbol)) Refuse();
}

std::string TokenReader::ExpectName() {
  if (!AtName()) Refuse();
  return Take().text;
}

void TokenReader::Refuse() const {
  const Token& token = Peek();
  if (token.kind == TokenKind::kEnd) {
    ThrowIncorrectSyntax(position_ == 0 ? std::string_view{} : tokens_[position_ - 1].text);
  }
  if (token.kind == TokenKind::kName && token.text.front() == '@') {
    throw MakeError(kVariableNotDeclared,
                    "Must declare the scalar variable \"" + token.text + "\".");
  }
  if (token.kind == TokenKind::kName && IsReserved(token.text)) {
    throw MakeError(kReservedKeyword, "Incorrect syntax near the keyword '" + token.text + "'.");
  }
  ThrowIncorrectSyntax(token.text);
}

}  // namespace adapters::sqlite
