#pragma once

#include <optional>

#include "adapters/server/Session.h"
#include "adapters/windows/Com.h"
#include "platform/RuntimeError.h"

namespace adapters::windows {

/// What a call on `connection`, or on what was made of it, failed with: the connection's Errors, by
/// the server's number (NativeError) where it gave one, else the provider's (Number), and last what
/// the call itself raised.
server::Failure ReadFailure(const Dispatch& connection, const platform::RuntimeError& raised);

/// What a call that went on after it returned failed with, by the connection's Errors alone;
/// nothing when none of them is more than information (SQLSTATE 01..., or no failed Number).
std::optional<server::Failure> ReadLateFailure(const Dispatch& connection);

}  // namespace adapters::windows
