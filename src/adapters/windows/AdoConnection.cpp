#include "adapters/windows/AdoConnection.h"

#include <algorithm>
#include <array>
#include <utility>

#include "adapters/windows/AdoErrors.h"
#include "adapters/windows/AdoRows.h"
#include "adapters/windows/Wide.h"
#include "platform/ResumeNext.h"
#include "text/Secrets.h"

namespace adapters::windows {

namespace {

// ADO's enumerations, by its own names.
constexpr std::int32_t adOpenForwardOnly = 0;
constexpr std::int32_t adLockReadOnly = 1;
constexpr std::int32_t adCmdText = 1;
constexpr std::int32_t adCmdStoredProc = 4;
constexpr std::int32_t adExecuteNoRecords = 0x80;
constexpr std::int32_t adStateClosed = 0;
constexpr std::int32_t adParamInput = 1;
constexpr std::int32_t adParamReturnValue = 4;
constexpr std::int32_t adInteger = 3;
constexpr std::int32_t adDBTimeStamp = 135;
constexpr std::int32_t adVarWChar = 202;
constexpr std::int32_t adLongVarWChar = 203;

constexpr const char* kReturnValue = "@RETURN_VALUE";
constexpr std::int32_t kFeatureNotAvailable = 3251;
// Beyond what nvarchar(n) can declare, text travels as a long one.
constexpr std::int32_t kLongestDeclared = 4000;

std::int32_t Seconds(std::chrono::seconds time) {
  return static_cast<std::int32_t>(time.count());
}

/// The next result of a batch; empty after the last. A recordset that holds no rows and no further
/// result may say that it is closed, a provider with one result a statement that it cannot.
Dispatch NextResult(const Dispatch& recordset) {
  try {
    return Dispatch(recordset.Call("NextRecordset").Object());
  } catch (const platform::RuntimeError& error) {
    if (error.Number() == platform::kObjectClosed || error.Number() == kFeatureNotAvailable) {
      return {};
    }
    throw;
  }
}

Variant DateVariant(std::chrono::sys_days day) {
  Variant variant;
  VARIANT* const raw = variant.Out();
  raw->vt = VT_DATE;
  raw->date = static_cast<double>((day - kFirstDateDay).count());
  return variant;
}

void Append(const Dispatch& command, const char* name, std::int32_t type, std::int32_t direction,
            std::int32_t size, const Variant& value) {
  const Variant parameter = command.Call("CreateParameter", {name, type, direction, size, value});
  command.Child("Parameters").Call("Append", {parameter});
}

void Append(const Dispatch& command, const platform::Parameter& parameter) {
  const char* const name = parameter.name.c_str();
  if (const auto* number = std::get_if<std::int32_t>(&parameter.value)) {
    Append(command, name, adInteger, adParamInput, 0, *number);
  } else if (const auto* day = std::get_if<std::chrono::sys_days>(&parameter.value)) {
    Append(command, name, adDBTimeStamp, adParamInput, 0, DateVariant(*day));
  } else {
    const auto& text = std::get<std::string>(parameter.value);
    const auto units = static_cast<std::int32_t>(Wide(text).size());
    Append(command, name, units > kLongestDeclared ? adLongVarWChar : adVarWChar, adParamInput,
           std::max(units, 1), text);
  }
}

}  // namespace

void AdoConnection::Open() {
  const Dispatch connection = Dispatch::Create("ADODB.Connection");
  connection.Put("ConnectionTimeout", Seconds(kConnectionTimeout));
  connection.Put("CommandTimeout", Seconds(kCommandTimeout));
  try {
    connection.Call("Open", {connectionString_});
  } catch (const platform::RuntimeError& error) {
    const AdoFailure failure = ReadFailure(connection, error);
    throw MakeError(LoginFault(failure), failure);
  }
  connection_ = connection;
}

void AdoConnection::Close() {
  if (!connection_) return;
  const Dispatch connection = std::exchange(connection_, {});
  platform::ResumeNext([&] { connection.Call("Close"); });
}

template <typename Action>
auto AdoConnection::InSession(Action action) {
  try {
    if (!connection_) Open();
    // ADO keeps what an earlier statement said until somebody clears it.
    connection_.Child("Errors").Call("Clear");
    try {
      return action();
    } catch (const platform::RuntimeError& error) {
      const AdoFailure failure = ReadFailure(connection_, error);
      const ConnectionFault fault = StatementFault(failure);
      if (fault != ConnectionFault::kStatement) Close();
      throw MakeError(fault, failure);
    }
  } catch (const platform::RuntimeError& error) {
    throw platform::RuntimeError(error.Number(),
                                 text::WithoutPasswords(error.Description(), connectionString_),
                                 error.Source());
  }
}

platform::RowSet AdoConnection::Execute(std::string_view statement) {
  return InSession([&] {
    Dispatch recordset = Dispatch::Create("ADODB.Recordset");
    // Forward only and read only: any other cursor is opened through a procedure of the server,
    // in whose scope SCOPE_IDENTITY would be lost.
    recordset.Call("Open",
                   {statement, connection_.Get(), adOpenForwardOnly, adLockReadOnly, adCmdText});
    // Every result is read to the end: an error may come after rows.
    platform::RowSet first;
    for (; recordset; recordset = NextResult(recordset)) {
      const bool hasRows = recordset.Property("State").Number() != adStateClosed;
      if (hasRows && !first.ReturnsRows()) first = ReadRows(recordset);
    }
    return first;
  });
}

std::int32_t AdoConnection::CallProcedure(std::string_view name,
                                          std::span<const platform::Parameter> parameters) {
  return InSession([&] {
    const Dispatch command = Dispatch::Create("ADODB.Command");
    command.PutReference("ActiveConnection", connection_.Get());
    command.Put("CommandText", name);
    command.Put("CommandType", adCmdStoredProc);
    command.Put("CommandTimeout", Seconds(kCommandTimeout));
    command.Put("NamedParameters", true);
    Append(command, kReturnValue, adInteger, adParamReturnValue, 0, Variant::Missing());
    for (const platform::Parameter& parameter : parameters) Append(command, parameter);
    // Without records the return value is there at once.
    command.Call("Execute",
                 {Variant::Missing(), Variant::Missing(), adCmdStoredProc | adExecuteNoRecords});
    const std::array<Variant, 1> which{kReturnValue};
    return command.Child("Parameters").Child("Item", which).Property("Value").Number();
  });
}

}  // namespace adapters::windows
