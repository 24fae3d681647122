#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <utility>
#include <vector>

#include "controls/FlexGrid.h"
#include "host/modMain.h"

namespace tools {

/// The last changes of a grid's marks, kept by the names of the rows, so that sorting in between
/// confuses none. It ends when rows are added, removed or loaded anew. Which rows are marked stands
/// in the grid alone: a row that something else has marked since stays as it is where that is what
/// a step wants.
class MarkHistory : public controls::FlexGrid::MarkSteps {
 public:
  static constexpr std::size_t kMostSteps = 50;

  /// `mark` marks a row or takes its mark away, as by hand. Nothing is taken back while `mayMark`
  /// says no.
  MarkHistory(host::modMain& module, controls::FlexGrid& grid,
              std::function<void(int row, bool marked)> mark, std::function<bool()> mayMark = {})
      : module_(module), grid_(grid), mark_(std::move(mark)), mayMark_(std::move(mayMark)) {}

  /// A row is about to be marked, or to lose its mark: outside of a gesture this is one.
  void Note(int row, bool marked);

  void Begin() override;
  void End() override;
  /// While `mark` throws the step stays what comes next.
  std::pair<int, int> Undo() override { return Play(done_, undone_, false); }
  std::pair<int, int> Redo() override { return Play(undone_, done_, true); }

 private:
  /// Rows whose names follow each other and that changed the same way.
  struct Run {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    bool marked = false;
  };
  using Step = std::vector<Run>;  // by name
  using Steps = std::deque<Step>;

  static const Run* Find(const Step& step, std::uint32_t name);
  std::pair<int, int> Play(Steps& from, Steps& to, bool again);
  void KeepToThisEdition();
  void ForgetTheOldest();

  host::modMain& module_;
  controls::FlexGrid& grid_;
  std::function<void(int row, bool marked)> mark_;
  std::function<bool()> mayMark_;
  Steps done_;
  Steps undone_;
  Step gesture_;
  int depth_ = 0;
  bool playing_ = false;
  std::uint64_t edition_ = 0;
};

/// Makes what is marked while it lives one gesture.
class MarkGesture {
 public:
  explicit MarkGesture(MarkHistory& history) : history_(history) { history_.Begin(); }
  ~MarkGesture() { history_.End(); }
  MarkGesture(const MarkGesture&) = delete;
  MarkGesture& operator=(const MarkGesture&) = delete;

 private:
  MarkHistory& history_;
};

}  // namespace tools
