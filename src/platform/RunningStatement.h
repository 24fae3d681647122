#pragma once

#include "platform/Progress.h"
#include "platform/RuntimeError.h"

namespace platform {

/// A statement that runs, for as long as this lives: engines make one for each and ask it on the
/// user-interface thread, where windows are painted meanwhile and the user may cancel.
class RunningStatement {
 public:
  /// `progress` is shared by all connections of a program; null where nobody is there to wait. What
  /// a screen does while it breathes must ask no database: throws 3711 while another one runs.
  explicit RunningStatement(Progress* progress);
  ~RunningStatement() {
    if (progress_ != nullptr) progress_->End();
  }
  RunningStatement(const RunningStatement&) = delete;
  RunningStatement& operator=(const RunningStatement&) = delete;

  /// Whether anybody waits; else GoesOn always says so and need not be asked.
  bool Watched() const { return progress_ != nullptr; }
  /// To be asked every 50 ms or oftener. False once the user has cancelled.
  bool GoesOn() {
    if (progress_ != nullptr && !progress_->Advance(0)) cancelled_ = true;
    return !cancelled_;
  }
  bool Cancelled() const { return cancelled_; }

 private:
  Progress* progress_;
  bool cancelled_ = false;
};

/// What is left behind by a statement that the user cancelled.
enum class Cancelled {
  kReading,       ///< nothing: it only read, or was never sent
  kTakenBack,     ///< nothing: what it had stored was taken back
  kPerhapsStored  ///< nobody knows
};

/// RuntimeError 18 in words for the user, before those of the engine, which may be empty.
RuntimeError CancelledError(Cancelled left, const std::string& words, const std::string& source);

}  // namespace platform
