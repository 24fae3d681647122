#pragma once

#include "adapters/odbc/Handles.h"
#include "platform/ConnectionFault.h"

namespace adapters::odbc {

/// What the driver manager, the driver or the server said of the last call.
platform::DatabaseErrors ReadDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle);

template <SQLSMALLINT kType>
platform::DatabaseErrors ReadDiagnostics(const Handle<kType>& handle) {
  return ReadDiagnostics(kType, handle.Get());
}

}  // namespace adapters::odbc
