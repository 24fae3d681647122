#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "controls/Controls.h"
#include "controls/Form.h"
#include "platform/Progress.h"
#include "screens/PlainPointer.h"

namespace screens {

/// A small window with a bar and a button to stop, which comes up once work has taken long enough
/// to make one wait. Esc and the close box ask to stop as well.
class ProgressForm : public platform::Progress, public controls::Form {
 public:
  /// Time that never goes back.
  using Now = std::function<std::chrono::milliseconds()>;
  ProgressForm(controls::Screen& screen, Now now);

  void Begin(std::string_view what, std::size_t total) override;
  bool Advance(std::size_t done) override;
  void End() override;
  bool UnderWay() const override { return begun_.has_value(); }

  controls::Label lblWhat;
  controls::ProgressBar bar;
  controls::Label lblPercent;
  controls::Button cmdStop;

 protected:
  void FormClose() override { stopped_ = true; }

 private:
  void ShowShare(std::size_t done);

  Now now_;
  std::size_t total_ = 0;
  std::optional<std::chrono::milliseconds> begun_;  // nothing where no work is under way
  std::chrono::milliseconds shown_{};               // when the share was last shown
  std::optional<PlainPointer> plain_;
  bool stopped_ = false;
};

}  // namespace screens
