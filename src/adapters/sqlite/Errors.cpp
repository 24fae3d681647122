#include "adapters/sqlite/Errors.h"

#include <optional>

#include "adapters/sqlite/Database.h"
#include "platform/ServerErrors.h"

namespace adapters::sqlite {

namespace {

constexpr int kNumberShift = 8;

/// What stands between `before` and `after`; nothing when the text has not that shape.
std::optional<std::string> Between(std::string_view text, std::string_view before,
                                   std::string_view after = {}) {
  const std::size_t start = text.find(before);
  if (start == std::string_view::npos) return std::nullopt;
  const std::size_t from = start + before.size();
  const std::size_t to = after.empty() ? text.size() : text.find(after, from);
  if (to == std::string_view::npos) return std::nullopt;
  return std::string(text.substr(from, to - from));
}

struct Report {
  std::int32_t number;
  std::string text;
};

Report ConstraintReport(int extendedCode, std::string_view words) {
  switch (extendedCode) {
    case SQLITE_CONSTRAINT_NOTNULL: {
      const auto column = Between(words, "NOT NULL constraint failed: ");
      return {kNullNotAllowed, "Cannot insert the value NULL into column '" + column.value_or("") +
                                   "'; column does not allow nulls."};
    }
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return {kDuplicateKey,
              "Violation of PRIMARY KEY or UNIQUE KEY constraint. Cannot insert "
              "duplicate key."};
    case SQLITE_CONSTRAINT_FOREIGNKEY:
      return {kReferenceConflict, "The statement conflicted with a REFERENCE constraint."};
    case SQLITE_CONSTRAINT_CHECK:
      return {kReferenceConflict, "The statement conflicted with a CHECK constraint."};
    default:
      return {kOther, "The statement conflicted with a rule of the database."};
  }
}

Report MissingObject(const std::string& name) {
  return {kInvalidObject, "Invalid object name '" + name + "'."};
}

Report MissingColumn(const std::string& name) {
  return {kInvalidColumn, "Invalid column name '" + name + "'."};
}

/// SQLite reports what a statement names wrongly by words alone.
Report StatementReport(std::string_view words) {
  if (const auto name = Between(words, "no such table: ")) return MissingObject(*name);
  if (const auto name = Between(words, "no such column: ")) return MissingColumn(*name);
  if (const auto name = Between(words, " has no column named ")) return MissingColumn(*name);
  if (const auto name = Between(words, "ambiguous column name: ")) {
    return {kAmbiguousColumn, "Ambiguous column name '" + *name + "'."};
  }
  if (words.find(" values for ") != std::string_view::npos ||
      words.find(" values were supplied") != std::string_view::npos) {
    return {kColumnCountMismatch,
            "Column name or number of supplied values does not match table definition."};
  }
  if (words.find("sub-select returns") != std::string_view::npos) {
    return {kSubqueryColumns,
            "Only one expression can be specified in the select list when the "
            "subquery is not introduced with EXISTS."};
  }
  if (const auto near = Between(words, "near \"", "\": syntax error")) {
    return {kIncorrectSyntax, "Incorrect syntax near '" + *near + "'."};
  }
  return {kOther, "The statement failed."};
}

Report OutOfMemory() {
  return {kOutOfMemory,
          "حافظه رايانه براي اين كار كافي نيست. There is insufficient system memory to run this "
          "statement."};
}

Report NoSpace() {
  return {kNoSpace, "Could not allocate space."};
}

Report FileReport(int extendedCode, const std::string& file, sqlite3* database) {
  const std::string named = Quoted(file);
  switch (extendedCode & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
      return {kLockTimeout, "Lock request time out period exceeded."};
    case SQLITE_READONLY:
      return {kReadOnlyDatabase, "Failed to update database because the database is read-only."};
    case SQLITE_FULL:
      return NoSpace();
    case SQLITE_NOTADB:
      return {kCannotOpenDatabase, "فايل " + named + " پايگاه داده نيست. Cannot open database."};
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return {kCannotOpenDatabase, "فايل پايگاه داده " + named + " باز نشد. Cannot open database."};
    case SQLITE_CORRUPT:
      if (IsWithoutLocks(database)) {
        return {
            kInconsistentFile,
            "پايگاه داده " + named +
                " بدون قفل خوانده شد، زيرا در پوشه آن اجازه نوشتن نداريد، و آنچه خوانده شد به هم "
                "نمي خورد؛ شايد برنامه ديگري آن را تغيير مي داد. دوباره تلاش كنيد. The database "
                "file is inconsistent."};
      }
      return {kInconsistentFile, "پايگاه داده " + named +
                                     " آسيب ديده است؛ آن را از نسخه پشتيبان برگردانيد. The "
                                     "database file is inconsistent."};
    case SQLITE_IOERR:
      if (extendedCode == SQLITE_IOERR_NOMEM) return OutOfMemory();
      // The log's index could not grow.
      if (extendedCode == SQLITE_IOERR_SHMSIZE) return NoSpace();
      return {kInputOutput, "خواندن يا نوشتن پايگاه داده " + named +
                                " ناموفق بود؛ ديسك را بررسي كنيد و دوباره تلاش كنيد. The operating "
                                "system returned an error."};
    default:
      return {kOther, "The statement failed."};
  }
}

Report ReportOf(int extendedCode, std::string_view words, const std::string& file,
                sqlite3* database) {
  switch (extendedCode & 0xFF) {
    case SQLITE_CONSTRAINT:
      return ConstraintReport(extendedCode, words);
    case SQLITE_MISMATCH:
      return {kConversion, "Conversion failed when converting a value to the column's data type."};
    case SQLITE_NOMEM:
      return OutOfMemory();
    case SQLITE_ERROR:
      return StatementReport(words);
    default:
      return FileReport(extendedCode, file, database);
  }
}

}  // namespace

platform::RuntimeError MakeError(std::int32_t number, const std::string& description) {
  return {number, platform::Described(platform::ServerSentence(number), description), "SQLite"};
}

std::string Quoted(const std::string& name) {
  // Set apart: a slash at an end would else go to the wrong one.
  return "«" + platform::LeftToRight(name) + "»";
}

void SetFunctionError(sqlite3_context* context, ServerError number, const std::string& text) {
  sqlite3_result_error(context, text.data(), static_cast<int>(text.size()));
  sqlite3_result_error_code(context, SQLITE_ERROR | (number << kNumberShift));
}

platform::RuntimeError LastError(sqlite3* database, const std::string& file) {
  const int code = sqlite3_extended_errcode(database);
  const std::string words = sqlite3_errmsg(database);
  // SQLite's own extended codes of SQLITE_ERROR end at 3; a server number begins above 100.
  if ((code & 0xFF) == SQLITE_ERROR && (code >> kNumberShift) > 100) {
    return MakeError(code >> kNumberShift, words);
  }
  const Report report = ReportOf(code, words, file, database);
  return {report.number,
          platform::Described(platform::ServerSentence(report.number, file),
                              report.text + " (" + words + ")"),
          "SQLite"};
}

}  // namespace adapters::sqlite
