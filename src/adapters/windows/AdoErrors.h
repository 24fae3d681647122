#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "adapters/windows/Com.h"
#include "platform/ConnectionFault.h"
#include "platform/RuntimeError.h"

namespace adapters::windows {

/// One member of a connection's Errors collection.
struct AdoError {
  std::string state;        ///< SQLSTATE; empty when the provider gave none
  std::int32_t number = 0;  ///< the server's own (NativeError)
  std::int32_t result = 0;  ///< the provider's HRESULT (Number)
  std::string text;
  std::string source;
};

struct AdoFailure {
  platform::RuntimeError raised;  ///< what the failed call itself said
  std::vector<AdoError> errors;   ///< what the provider said; empty when ADO alone failed
  bool connectionOpen = false;
};

using platform::ConnectionFault;

AdoFailure ReadFailure(const Dispatch& connection, const platform::RuntimeError& raised);
ConnectionFault StatementFault(const AdoFailure& failure);
ConnectionFault LoginFault(const AdoFailure& failure);

/// The error that is thrown. Number: the server's own of the first error that has one, else that of
/// the failed call. Description: a sentence for the user where the fault has one, then every text
/// of the provider once, a line each. Source: the provider's.
platform::RuntimeError MakeError(ConnectionFault fault, const AdoFailure& failure);

}  // namespace adapters::windows
