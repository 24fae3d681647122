#include "adapters/windows/AdoConnection.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <type_traits>
#include <utility>

#include "adapters/windows/AdoErrors.h"
#include "adapters/windows/AdoEvents.h"
#include "adapters/windows/AdoRows.h"
#include "adapters/windows/Wide.h"
#include "platform/ResumeNext.h"

namespace adapters::windows {

namespace {

// ADO's enumerations, by its own names.
constexpr std::int32_t adOpenForwardOnly = 0;
constexpr std::int32_t adLockReadOnly = 1;
constexpr std::int32_t adCmdText = 1;
constexpr std::int32_t adCmdStoredProc = 4;
constexpr std::int32_t adExecuteNoRecords = 0x80;
constexpr std::int32_t adAsyncConnect = 0x10;
constexpr std::int32_t adAsyncExecute = 0x10;
constexpr std::int32_t adStateClosed = 0;
constexpr std::int32_t adStateOpen = 1;
constexpr std::int32_t adStateConnecting = 2;
constexpr std::int32_t adStateExecuting = 4;
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

/// Lets a moment of the wait for ADO pass. What other apartments call meanwhile is let in, since
/// ADO may need it; nothing of ours does more than refuse it. A short statement is noticed at once.
void Pause(std::chrono::steady_clock::duration waited) {
  constexpr std::chrono::milliseconds kShort{10};
  constexpr DWORD kPause = 10;
  if (waited < kShort) return Sleep(0);
  const std::unique_ptr<void, decltype(&CloseHandle)> never(
      CreateEventW(nullptr, TRUE, FALSE, nullptr), CloseHandle);
  HANDLE handle = never.get();
  DWORD index = 0;
  CoWaitForMultipleHandles(0, kPause, 1, &handle, &index);
}

class AdoSession : public server::Session {
 public:
  AdoSession(const std::string& connectionString, std::chrono::seconds statementLimit,
             platform::RunningStatement& running)
      : statementLimit_(Seconds(statementLimit)),
        connection_(Dispatch::Create("ADODB.Connection")),
        events_(connection_) {
    connection_.Put("ConnectionTimeout", Seconds(server::kLoginLimit));
    connection_.Put("CommandTimeout", statementLimit_);
    try {
      if (!running.Watched()) {
        connection_.Call("Open", {connectionString});
        return;
      }
      connection_.Call("Open",
                       {connectionString, Variant::Missing(), Variant::Missing(), adAsyncConnect});
      Await(connection_, adStateConnecting, running);
    } catch (const platform::RuntimeError& error) {
      throw ReadFailure(connection_, error);
    }
    if (connection_.Property("State").Number() == adStateOpen) return;
    if (const auto failure = ReadLateFailure(connection_)) throw *failure;
    throw server::Failure({}, "ADODB", true);
  }
  AdoSession(const AdoSession&) = delete;
  AdoSession& operator=(const AdoSession&) = delete;
  ~AdoSession() override {
    // One that is still at work would be waited for.
    if (!leftAlone_) platform::ResumeNext([&] { connection_.Call("Close"); });
  }

  platform::RowSet Execute(std::string_view statement,
                           platform::RunningStatement& running) override {
    return Tell([&] {
      events_.Forget();
      Dispatch recordset = Dispatch::Create("ADODB.Recordset");
      // Forward only and read only: any other cursor is opened through a procedure of the server,
      // in whose scope SCOPE_IDENTITY would be lost.
      recordset.Call("Open", {statement, connection_.Get(), adOpenForwardOnly, adLockReadOnly,
                              adCmdText | (running.Watched() ? adAsyncExecute : 0)});
      Await(recordset, adStateExecuting, running);
      // Every result is read to the end: an error may come after rows.
      platform::RowSet first;
      for (; recordset; recordset = NextResult(recordset)) {
        const bool hasRows = recordset.Property("State").Number() != adStateClosed;
        if (hasRows && !first.ReturnsRows()) first = ReadRows(recordset, running);
        if (running.Cancelled()) {
          platform::ResumeNext([&] { recordset.Call("Cancel"); });
          throw server::Stopped("ADODB", false);
        }
      }
      if (!first.ReturnsRows()) NoteAffectedRows(first);
      return first;
    });
  }

  std::int32_t CallProcedure(std::string_view name, std::span<const platform::Parameter> parameters,
                             platform::RunningStatement& running) override {
    return Tell([&] {
      const Dispatch command = Dispatch::Create("ADODB.Command");
      command.PutReference("ActiveConnection", connection_.Get());
      command.Put("CommandText", name);
      command.Put("CommandType", adCmdStoredProc);
      command.Put("CommandTimeout", statementLimit_);
      command.Put("NamedParameters", true);
      Append(command, kReturnValue, adInteger, adParamReturnValue, 0, Variant::Missing());
      for (const platform::Parameter& parameter : parameters) Append(command, parameter);
      // Without records the return value is there at once.
      command.Call("Execute", {Variant::Missing(), Variant::Missing(),
                               adCmdStoredProc | adExecuteNoRecords |
                                   (running.Watched() ? adAsyncExecute : 0)});
      Await(command, adStateExecuting, running);
      const std::array<Variant, 1> which{kReturnValue};
      return command.Child("Parameters").Child("Item", which).Property("Value").Number();
    });
  }

 private:
  /// The event may come a moment after the statement is said to be over.
  void NoteAffectedRows(platform::RowSet& rows) {
    constexpr std::chrono::milliseconds kMoment{50};
    using Clock = std::chrono::steady_clock;
    const Clock::time_point begun = Clock::now();
    while (events_.Listening() && !events_.Heard() && Clock::now() - begun < kMoment) {
      Pause(kMoment);
    }
    if (const auto affected = events_.AffectedRows()) rows.SetAffectedRows(*affected);
  }

  /// Until `object` is no longer at the work that `state` stands for, and tells how it ended, if it
  /// was begun without waiting.
  void Await(const Dispatch& object, std::int32_t state, platform::RunningStatement& running) {
    using Clock = std::chrono::steady_clock;
    if (!running.Watched()) return;
    const Clock::time_point begun = Clock::now();
    std::optional<Clock::time_point> cancelledAt;
    while ((object.Property("State").Number() & state) != 0) {
      Pause(Clock::now() - begun);
      if (running.GoesOn()) continue;
      if (!cancelledAt) {
        cancelledAt = Clock::now();
        platform::ResumeNext([&] { object.Call("Cancel"); });
      } else if (Clock::now() - *cancelledAt >= server::kCancelLimit) {
        leftAlone_ = true;
        throw server::Stopped("ADODB", true);
      }
    }
    if (const auto failure = ReadLateFailure(connection_)) throw *failure;
    if (cancelledAt) throw server::Stopped("ADODB", false);
  }

  /// Runs `action` and tells its failure by all that the connection says of it.
  template <typename Action>
  std::invoke_result_t<Action> Tell(Action action) {
    try {
      // ADO keeps what an earlier statement said until somebody clears it.
      connection_.Child("Errors").Call("Clear");
      return action();
    } catch (const platform::RuntimeError& error) {
      throw ReadFailure(connection_, error);
    }
  }

  std::int32_t statementLimit_;
  Dispatch connection_;
  AdoEvents events_;
  bool leftAlone_ = false;
};

}  // namespace

std::unique_ptr<server::Session> AdoConnection::LogIn(const std::string& connectionString,
                                                      std::chrono::seconds statementLimit,
                                                      platform::RunningStatement& running) {
  return std::make_unique<AdoSession>(connectionString, statementLimit, running);
}

}  // namespace adapters::windows
