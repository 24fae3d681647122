#include "adapters/sqlite/Procedures.h"

#include <array>

#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/TokenReader.h"
#include "calendar/Gregorian.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

enum class Type { kInt, kText, kDate };

struct Expected {
  std::string_view name;
  Type type;
};

struct Procedure {
  std::string_view name;
  std::span<const Expected> parameters;
  std::string_view sql;
};

constexpr std::array kPermissionParameters{Expected{"@UserID", Type::kInt},
                                           Expected{"@FormPermissionID", Type::kInt}};
constexpr std::array kActionParameters{
    Expected{"@EventID", Type::kInt},         Expected{"@FormCode", Type::kText},
    Expected{"@FormTypeID", Type::kInt},      Expected{"@Description", Type::kText},
    Expected{"@UserID", Type::kInt},          Expected{"@EventDate", Type::kDate},
    Expected{"@FarsiEventDate", Type::kText}, Expected{"@EventTime", Type::kInt}};

/// A procedure's return value is what its statement selects, 0 without rows.
const std::array kProcedures{
    Procedure{"spZomirHasPermission", kPermissionParameters,
              "SELECT EXISTS (SELECT 1 FROM tblZomirUserPermission "
              "WHERE UserID = ?1 AND FormPermissionID IN (?2, 0))"},
    Procedure{"spZomirInsertFormAction", kActionParameters,
              "INSERT INTO tblZomirFormAction (EventID, FormCode, FormTypeID, Description, UserID, "
              "EventDate, FarsiEventDate, EventTime) VALUES (?1, substr(?2, 1, 50), ?3, "
              "substr(?4, 1, 1000), ?5, ?6, substr(?7, 1, 10), ?8)"}};

const Procedure& Find(std::string_view name) {
  std::string wanted = text::Small(name);
  if (wanted.starts_with("dbo.")) wanted.erase(0, 4);
  for (const Procedure& procedure : kProcedures) {
    if (text::Small(procedure.name) == wanted) return procedure;
  }
  throw MakeError(kUnknownProcedure,
                  "Could not find stored procedure '" + std::string(name) + "'.");
}

void CheckCount(const Procedure& procedure, std::size_t given) {
  const std::string name(procedure.name);
  if (given > procedure.parameters.size()) {
    throw MakeError(kTooManyArguments,
                    "Procedure or function " + name + " has too many arguments specified.");
  }
  if (given < procedure.parameters.size()) {
    throw MakeError(kMissingArgument, "Procedure or function '" + name + "' expects parameter '" +
                                          std::string(procedure.parameters[given].name) +
                                          "', which was not supplied.");
  }
}

bool Bind(sqlite3_stmt* statement, int index, Type type, const platform::Parameter& parameter) {
  if (const auto* number = std::get_if<std::int32_t>(&parameter.value)) {
    return type == Type::kInt && sqlite3_bind_int(statement, index, *number) == SQLITE_OK;
  }
  if (const auto* day = std::get_if<std::chrono::sys_days>(&parameter.value)) {
    const std::string literal = calendar::GregorianLiteral(*day);
    return type == Type::kDate &&
           sqlite3_bind_text64(statement, index, literal.data(), literal.size(), SQLITE_TRANSIENT,
                               SQLITE_UTF8) == SQLITE_OK;
  }
  const auto& text = std::get<std::string>(parameter.value);
  return type == Type::kText && sqlite3_bind_text64(statement, index, text.data(), text.size(),
                                                    SQLITE_STATIC, SQLITE_UTF8) == SQLITE_OK;
}

}  // namespace

std::int32_t CallStoredProcedure(sqlite3* database, std::string_view name,
                                 std::span<const platform::Parameter> parameters,
                                 const std::string& file) {
  const Procedure& procedure = Find(name);
  CheckCount(procedure, parameters.size());
  const StatementHandle statement = Prepare(database, procedure.sql, file);
  int index = 0;
  for (const platform::Parameter& parameter : parameters) {
    const Expected& expected = procedure.parameters[static_cast<std::size_t>(index)];
    if (!Bind(statement.get(), ++index, expected.type, parameter)) {
      throw MakeError(kArgumentType, "Procedure " + std::string(procedure.name) +
                                         ": error converting the data type of parameter '" +
                                         std::string(expected.name) + "'.");
    }
  }
  const sqlite3_int64 identity = sqlite3_last_insert_rowid(database);
  const int result = sqlite3_step(statement.get());
  const std::int32_t value = result == SQLITE_ROW ? sqlite3_column_int(statement.get(), 0) : 0;
  sqlite3_set_last_insert_rowid(database, identity);
  if (result != SQLITE_ROW && result != SQLITE_DONE) throw LastError(database, file);
  return value;
}

}  // namespace adapters::sqlite
