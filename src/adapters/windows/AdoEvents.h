#pragma once

#include <windows.h>

#include <ocidl.h>

#include <cstdint>
#include <optional>

#include "adapters/windows/Com.h"

namespace adapters::windows {

/// Hears from an ADO connection how many rows its statements changed: of what is executed without
/// waiting ADO tells it by an event alone.
class AdoEvents {
 public:
  /// A connection without events is listened to in vain.
  explicit AdoEvents(const Dispatch& connection);
  AdoEvents(const AdoEvents&) = delete;
  AdoEvents& operator=(const AdoEvents&) = delete;
  ~AdoEvents();

  /// Whether anything can be heard.
  bool Listening() const { return static_cast<bool>(point_); }
  /// What was heard before is forgotten.
  void Forget();
  /// Of the first statement that was over since; nothing while none was, or where it did not say.
  std::optional<std::int64_t> AffectedRows() const;
  bool Heard() const;

 private:
  class Sink;
  ComPtr<Sink> sink_;
  ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

}  // namespace adapters::windows
