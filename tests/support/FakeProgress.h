#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Progress.h"

namespace support {

class FakeProgress : public platform::Progress {
 public:
  /// The user asks to stop once this much is done.
  std::optional<std::size_t> stopAt;
  /// The user asks to stop at this call of Advance, 1 is the next one after Begin; 0: never.
  std::size_t stopAtCall = 0;
  /// What the screen does while it breathes.
  std::function<void()> onAdvance;
  std::vector<std::pair<std::string, std::size_t>> begun;
  std::vector<std::size_t> advanced;
  int ended = 0;

  void Begin(std::string_view what, std::size_t total) override {
    begun.emplace_back(what, total);
    calls_ = 0;
    underWay_ = true;
  }
  bool Advance(std::size_t done) override {
    advanced.push_back(done);
    ++calls_;
    if (onAdvance) onAdvance();
    return (!stopAt || done < *stopAt) && (stopAtCall == 0 || calls_ < stopAtCall);
  }
  void End() override {
    ++ended;
    underWay_ = false;
  }
  bool UnderWay() const override { return underWay_; }
  void Forget() {
    begun.clear();
    advanced.clear();
  }

 private:
  std::size_t calls_ = 0;
  bool underWay_ = false;
};

}  // namespace support
