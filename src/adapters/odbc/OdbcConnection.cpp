#include "adapters/odbc/OdbcConnection.h"

#include <array>
#include <mutex>
#include <type_traits>
#include <utility>
#include <vector>

#include "adapters/odbc/Aside.h"
#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/Diagnostics.h"
#include "adapters/odbc/Handles.h"
#include "adapters/odbc/Rows.h"
#include "adapters/odbc/Utf16.h"

namespace adapters::odbc {

namespace {

/// A procedure's argument as the driver reads it: where it lies must not change until the call is
/// over.
struct Argument {
  SQLINTEGER number = 0;
  SQL_DATE_STRUCT day{};
  Utf16 text;
  SQLLEN length = 0;
};

SQLRETURN Bind(const Statement& statement, SQLUSMALLINT place, const platform::Parameter& parameter,
               Argument& argument) {
  const auto bind = [&](SQLSMALLINT cType, SQLSMALLINT sqlType, SQLULEN size, SQLPOINTER value,
                        std::size_t bytes) {
    argument.length = static_cast<SQLLEN>(bytes);
    return SQLBindParameter(statement.Get(), place, SQL_PARAM_INPUT, cType, sqlType, size, 0, value,
                            static_cast<SQLLEN>(bytes), &argument.length);
  };
  if (const auto* number = std::get_if<std::int32_t>(&parameter.value)) {
    argument.number = *number;
    return bind(SQL_C_SLONG, SQL_INTEGER, 0, &argument.number, sizeof argument.number);
  }
  if (const auto* day = std::get_if<std::chrono::sys_days>(&parameter.value)) {
    constexpr SQLULEN kDateDigits = 10;
    const std::chrono::year_month_day date(*day);
    argument.day.year = static_cast<SQLSMALLINT>(static_cast<int>(date.year()));
    argument.day.month = static_cast<SQLUSMALLINT>(static_cast<unsigned>(date.month()));
    argument.day.day = static_cast<SQLUSMALLINT>(static_cast<unsigned>(date.day()));
    return bind(SQL_C_TYPE_DATE, SQL_TYPE_DATE, kDateDigits, &argument.day, sizeof argument.day);
  }
  // Beyond what nvarchar(n) can declare, text travels as a long one.
  constexpr std::size_t kLongestDeclared = 4000;
  argument.text = ToUtf16(std::get<std::string>(parameter.value));
  const std::size_t units = argument.text.size() - 1;
  return bind(SQL_C_WCHAR, units > kLongestDeclared ? SQL_WLONGVARCHAR : SQL_WVARCHAR,
              units == 0 ? 1 : units, argument.text.data(), units * sizeof(SQLWCHAR));
}

[[noreturn]] void Fail(platform::DatabaseErrors errors, bool sessionDead = false) {
  throw server::Failure(std::move(errors), "ODBC", sessionDead);
}

/// The driver's session; calls block, and go one at a time, but for Cancel. Statements are made for
/// one use, so that none is ever left with rows open.
class Line {
 public:
  Line(const std::string& odbcString, std::chrono::seconds loginLimit,
       std::chrono::seconds statementLimit)
      : statementLimit_(statementLimit), environment_(MakeEnvironment()) {
    if (environment_) database_ = DatabaseHandle(environment_.Get());
    if (!database_) Fail(ReadDiagnostics(environment_));
    SQLSetConnectAttrW(database_.Get(), SQL_ATTR_LOGIN_TIMEOUT,
                       AttributeValue(static_cast<std::size_t>(loginLimit.count())), 0);
    Utf16 wide = ToUtf16(odbcString);
    SQLSMALLINT length = 0;
    const SQLRETURN result = SQLDriverConnectW(database_.Get(), nullptr, wide.data(), SQL_NTS,
                                               nullptr, 0, &length, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result)) Fail(ReadDiagnostics(database_));
  }
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;
  ~Line() { SQLDisconnect(database_.Get()); }

  /// On any thread: tells the driver to end the statement under way, if there is one.
  void Cancel() {
    const std::lock_guard lock(mutex_);
    if (current_ != nullptr) SQLCancel(current_);
  }

  platform::RowSet Execute(std::string_view text) {
    const Statement statement = NewStatement();
    const Current current(*this, statement);
    // The text is the server's: braces in it are no ODBC escapes. A driver that does not know the
    // attribute loses nothing.
    SQLSetStmtAttrW(statement.Get(), SQL_ATTR_NOSCAN, AttributeValue(SQL_NOSCAN_ON), 0);
    return Run(statement, text);
  }

  std::int32_t CallProcedure(std::string_view name,
                             std::span<const platform::Parameter> parameters) {
    // What is bound outlives the statement, which may still read results when it is freed.
    SQLINTEGER returned = 0;
    SQLLEN returnedLength = 0;
    std::vector<Argument> arguments(parameters.size());
    const Statement statement = NewStatement();
    const Current current(*this, statement);
    Check(statement, SQLBindParameter(statement.Get(), 1, SQL_PARAM_OUTPUT, SQL_C_SLONG,
                                      SQL_INTEGER, 0, 0, &returned, 0, &returnedLength));
    std::string call = "{? = CALL ";
    call += name;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      call += i == 0 ? "(?" : ", ?";
      Check(statement,
            Bind(statement, static_cast<SQLUSMALLINT>(i + 2), parameters[i], arguments[i]));
    }
    call += parameters.empty() ? "}" : ")}";
    Run(statement, call);
    return returned;
  }

 private:
  /// Cancel finds the statement while this lives, and lets it end only afterwards.
  class Current {
   public:
    Current(Line& line, const Statement& statement) : line_(line) { Set(statement.Get()); }
    ~Current() { Set(nullptr); }
    Current(const Current&) = delete;
    Current& operator=(const Current&) = delete;

   private:
    void Set(SQLHANDLE statement) {
      const std::lock_guard lock(line_.mutex_);
      line_.current_ = statement;
    }
    Line& line_;
  };

  Statement NewStatement() {
    Statement statement(database_.Get());
    if (!statement) FailIn(database_);
    SQLSetStmtAttrW(statement.Get(), SQL_ATTR_QUERY_TIMEOUT,
                    AttributeValue(static_cast<std::size_t>(statementLimit_.count())), 0);
    return statement;
  }

  /// Executes and reads every result to the end: an error may come after rows, and a procedure's
  /// return value comes last.
  platform::RowSet Run(const Statement& statement, std::string_view text) {
    Utf16 wide = ToUtf16(text);
    platform::RowSet first;
    SQLRETURN result =
        SQLExecDirectW(statement.Get(), wide.data(), static_cast<SQLINTEGER>(wide.size() - 1));
    // SQL_NO_DATA of the execution itself: a statement that changed no row.
    if (result == SQL_NO_DATA) result = SQL_SUCCESS;
    while (result != SQL_NO_DATA) {
      Check(statement, result);
      if (!first.ReturnsRows()) {
        NoteAffectedRows(statement, first);
        if (!ReadRows(statement, first)) FailIn(statement);
      }
      result = SQLMoreResults(statement.Get());
    }
    return first;
  }

  /// Drivers say -1 where they do not know, and of a result with rows.
  static void NoteAffectedRows(const Statement& statement, platform::RowSet& rows) {
    SQLLEN count = -1;
    if (SQL_SUCCEEDED(SQLRowCount(statement.Get(), &count)) && count >= 0) {
      rows.SetAffectedRows(count);
    }
  }

  void Check(const Statement& statement, SQLRETURN result) {
    if (!SQL_SUCCEEDED(result)) FailIn(statement);
  }

  template <SQLSMALLINT kType>
  [[noreturn]] void FailIn(const Handle<kType>& handle) {
    platform::DatabaseErrors errors = ReadDiagnostics(handle);
    SQLUINTEGER dead = SQL_CD_FALSE;
    SQLGetConnectAttrW(database_.Get(), SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead, nullptr);
    Fail(std::move(errors), dead == SQL_CD_TRUE);
  }

  std::chrono::seconds statementLimit_;
  Environment environment_;
  DatabaseHandle database_;
  std::mutex mutex_;
  SQLHANDLE current_ = nullptr;
};

class OdbcSession : public server::Session {
 public:
  explicit OdbcSession(std::shared_ptr<Line> line) : line_(std::move(line)) {}

  platform::RowSet Execute(std::string_view statement,
                           platform::RunningStatement& running) override {
    return Run(running,
               [line = line_, text = std::string(statement)] { return line->Execute(text); });
  }

  std::int32_t CallProcedure(std::string_view name, std::span<const platform::Parameter> parameters,
                             platform::RunningStatement& running) override {
    return Run(running, [line = line_, name = std::string(name),
                         given = std::vector(parameters.begin(), parameters.end())] {
      return line->CallProcedure(name, given);
    });
  }

 private:
  template <typename Work>
  std::invoke_result_t<Work> Run(platform::RunningStatement& running, Work work) {
    return RunAside(
        running, std::move(work), [this] { line_->Cancel(); }, server::kCancelLimit);
  }

  std::shared_ptr<Line> line_;
};

}  // namespace

std::unique_ptr<server::Session> OdbcConnection::LogIn(const std::string& connectionString,
                                                       std::chrono::seconds statementLimit,
                                                       platform::RunningStatement& running) {
  const auto logIn = [=, login = OdbcConnectionString(connectionString),
                      limit = ConnectTimeout(connectionString).value_or(loginLimit_)] {
    return std::make_shared<Line>(login, limit, statementLimit);
  };
  return std::make_unique<OdbcSession>(RunAside(running, logIn, [] {}, {}));
}

}  // namespace adapters::odbc
