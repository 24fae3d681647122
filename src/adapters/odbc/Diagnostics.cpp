#include "adapters/odbc/Diagnostics.h"

#include <algorithm>

#include "adapters/odbc/Utf16.h"

namespace adapters::odbc {

namespace {

constexpr std::int32_t kFirstOwnNumber = 1'000'000'000;

bool AnyOf(const Diagnostics& diagnostics, bool (*holds)(const Diagnostic&)) {
  return std::any_of(diagnostics.begin(), diagnostics.end(), holds);
}

bool IsTimeOut(const Diagnostic& diagnostic) {
  return diagnostic.state == "HYT00" || diagnostic.state == "HYT01" || diagnostic.state == "S1T00";
}

bool IsAboutTheConnection(const Diagnostic& diagnostic) {
  return diagnostic.state.starts_with("08");
}

bool IsRefusal(const Diagnostic& diagnostic) {
  return platform::IsRefusal(diagnostic.state, diagnostic.number);
}

/// IM... is the driver manager's own: no such data source, no such driver, a library that would
/// not load.
bool IsAboutTheDriver(const Diagnostic& diagnostic) {
  return diagnostic.state.starts_with("IM") ||
         diagnostic.text.find("Can't open lib") != std::string::npos;
}

std::int32_t NumberOfState(std::string_view state) {
  constexpr std::int32_t kBase = 36;
  std::int32_t number = 0;
  for (const char c : state.substr(0, SQL_SQLSTATE_SIZE)) {
    const bool isDigit = c >= '0' && c <= '9';
    const bool isLetter = c >= 'A' && c <= 'Z';
    number = number * kBase + (isDigit ? c - '0' : isLetter ? c - 'A' + 10 : 0);
  }
  return kFirstOwnNumber + number;
}

/// A message that only informs (class 01) may come before the error itself.
std::int32_t NumberOf(const Diagnostics& diagnostics) {
  const auto isError = [](const Diagnostic& d) {
    return d.number != 0 && !d.state.starts_with("01");
  };
  const auto hasNumber = [](const Diagnostic& d) { return d.number != 0; };
  auto found = std::find_if(diagnostics.begin(), diagnostics.end(), isError);
  if (found == diagnostics.end()) {
    found = std::find_if(diagnostics.begin(), diagnostics.end(), hasNumber);
  }
  if (found != diagnostics.end()) return found->number;
  return NumberOfState(diagnostics.empty() ? "HY000" : diagnostics.front().state);
}

}  // namespace

Diagnostics ReadDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle) {
  Diagnostics diagnostics;
  Utf16 text(SQL_MAX_MESSAGE_LENGTH);
  Utf16 state(SQL_SQLSTATE_SIZE + 1);
  for (SQLSMALLINT record = 1;; ++record) {
    SQLINTEGER number = 0;
    SQLSMALLINT length = 0;
    const auto read = [&] {
      return SQLGetDiagRecW(handleType, handle, record, state.data(), &number, text.data(),
                            static_cast<SQLSMALLINT>(text.size()), &length);
    };
    SQLRETURN result = read();
    if (SQL_SUCCEEDED(result) && static_cast<std::size_t>(length) >= text.size()) {
      text.resize(static_cast<std::size_t>(length) + 1);
      result = read();
    }
    if (!SQL_SUCCEEDED(result)) return diagnostics;
    diagnostics.push_back({ToUtf8(state, SQL_SQLSTATE_SIZE), number, ToUtf8(text, length)});
  }
}

ConnectionFault StatementFault(const Diagnostics& diagnostics, bool connectionDead) {
  if (AnyOf(diagnostics, IsAboutTheConnection)) return ConnectionFault::kLost;
  // First of the two: a driver may give the connection up itself when a statement's time is over.
  if (AnyOf(diagnostics, IsTimeOut)) return ConnectionFault::kSilent;
  return connectionDead ? ConnectionFault::kLost : ConnectionFault::kStatement;
}

ConnectionFault LoginFault(const Diagnostics& diagnostics) {
  if (AnyOf(diagnostics, IsRefusal)) return ConnectionFault::kRefused;
  if (AnyOf(diagnostics, IsTimeOut)) return ConnectionFault::kNoAnswer;
  return AnyOf(diagnostics, IsAboutTheDriver) ? ConnectionFault::kNoDriver
                                              : ConnectionFault::kUnreachable;
}

platform::RuntimeError MakeError(ConnectionFault fault, const Diagnostics& diagnostics) {
  std::string description(platform::UserSentence(fault));
  // So FreeTDS does with a "?" outside the texts of a statement, which it takes for a parameter.
  if (description.empty() && diagnostics.empty()) {
    description = "درايور پايگاه داده دستور را نپذيرفت. The driver refused without a reason.";
  }
  for (std::size_t i = 0; i < diagnostics.size(); ++i) {
    const Diagnostic& diagnostic = diagnostics[i];
    const auto sameText = [&](const Diagnostic& other) { return other.text == diagnostic.text; };
    const auto here = diagnostics.begin() + static_cast<std::ptrdiff_t>(i);
    if (std::any_of(diagnostics.begin(), here, sameText)) continue;
    if (!description.empty()) description += '\n';
    description += diagnostic.text + " (SQLSTATE " + diagnostic.state + ")";
  }
  return {NumberOf(diagnostics), description, "ODBC"};
}

}  // namespace adapters::odbc
