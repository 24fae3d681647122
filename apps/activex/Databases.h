#pragma once

#include "adapters/windows/AdoConnection.h"
#include "apps/connection/Connections.h"

namespace activex {

/// Embedded databases, to try the control without a server; everything else is for ADO to
/// understand. Their statements are logged where the environment variable DISTPROMOTER_LOG, else
/// the registry's setting Log, names a file.
class Databases : public connection::Connections<adapters::windows::AdoConnection> {
 public:
  explicit Databases(platform::Progress* progress = nullptr);
};

}  // namespace activex
