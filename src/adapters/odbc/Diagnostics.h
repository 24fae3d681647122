#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/odbc/Handles.h"
#include "platform/ConnectionFault.h"
#include "platform/RuntimeError.h"

namespace adapters::odbc {

/// One record of what the driver manager, the driver or the server said.
struct Diagnostic {
  std::string state;
  std::int32_t number = 0;
  std::string text;
};

using Diagnostics = std::vector<Diagnostic>;

Diagnostics ReadDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle);

template <SQLSMALLINT kType>
Diagnostics ReadDiagnostics(const Handle<kType>& handle) {
  return ReadDiagnostics(kType, handle.Get());
}

using platform::ConnectionFault;

ConnectionFault StatementFault(const Diagnostics& diagnostics, bool connectionDead);
ConnectionFault LoginFault(const Diagnostics& diagnostics);

/// The error that is thrown: for every fault but kStatement a sentence for the user first, then
/// all diagnostics, each text once, with its SQLSTATE. The number is that of the first diagnostic
/// that has one, the server's own where the server spoke. Without any it is 1,000,000,000 and the
/// SQLSTATE read as a number of base 36, so that each state has one number and none is a server's.
platform::RuntimeError MakeError(ConnectionFault fault, const Diagnostics& diagnostics);

}  // namespace adapters::odbc
