#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

/// Shows how far long work has come. The screen decides when it is worth showing.
class Progress {
 public:
  virtual ~Progress() = default;
  /// A total of 0: nobody can tell how much there is to do.
  virtual void Begin(std::string_view what, std::size_t total) = 0;
  /// Returns false once the user has asked to stop.
  virtual bool Advance(std::size_t done) = 0;
  virtual void End() = 0;
  /// Between Begin and End.
  virtual bool UnderWay() const = 0;
};

}  // namespace platform
