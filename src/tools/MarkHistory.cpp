#include "tools/MarkHistory.h"

#include <algorithm>

#include "tools/BusyGrid.h"
#include "tools/RowMarks.h"

namespace tools {

namespace {

// Of all steps together, but for the last one: runs of 12 bytes.
constexpr std::size_t kMostRuns = 100000;

}  // namespace

void MarkHistory::KeepToThisEdition() {
  if (std::exchange(edition_, grid_.RowsEdition()) == grid_.RowsEdition()) return;
  done_.clear();
  undone_.clear();
  gesture_.clear();
}

void MarkHistory::Begin() {
  KeepToThisEdition();
  ++depth_;
}

void MarkHistory::Note(int row, bool marked) {
  if (playing_ || row < grid_.FixedRows() || row >= grid_.Rows()) return;
  if (IsRowMarked(grid_, row) == marked) return;
  Begin();
  const std::uint32_t name = grid_.RowName(row);
  if (!gesture_.empty() && gesture_.back().marked == marked && gesture_.back().last + 1 == name) {
    gesture_.back().last = name;
  } else {
    gesture_.push_back({name, name, marked});
  }
  End();
}

void MarkHistory::End() {
  KeepToThisEdition();
  if (--depth_ > 0 || gesture_.empty()) return;
  // Rows in another order than their names.
  std::ranges::stable_sort(gesture_, {}, &Run::first);
  Step step{gesture_.front()};
  for (const Run& run : gesture_) {
    if (step.back().marked == run.marked && step.back().last + 1 == run.first) {
      step.back().last = run.last;
    } else if (run.first > step.back().last) {
      step.push_back(run);
    }
  }
  step.shrink_to_fit();
  gesture_ = {};
  done_.push_back(std::move(step));
  undone_.clear();
  ForgetTheOldest();
}

void MarkHistory::ForgetTheOldest() {
  std::size_t runs = 0;
  for (const Step& step : done_) runs += step.size();
  while (done_.size() > kMostSteps || (done_.size() > 1 && runs > kMostRuns)) {
    runs -= done_.front().size();
    done_.pop_front();
  }
}

const MarkHistory::Run* MarkHistory::Find(const Step& step, std::uint32_t name) {
  const auto behind = std::ranges::upper_bound(step, name, {}, &Run::first);
  if (behind == step.begin() || std::prev(behind)->last < name) return nullptr;
  return &*std::prev(behind);
}

std::pair<int, int> MarkHistory::Play(Steps& from, Steps& to, bool again) {
  KeepToThisEdition();
  std::pair changed{0, -1};
  if (from.empty() || playing_ || (mayMark_ && !mayMark_())) return changed;
  const std::uint64_t edition = edition_;
  const BusyGrid busy(module_, grid_);
  const struct Playing {
    explicit Playing(bool& flag) : on(flag) { on = true; }
    ~Playing() { on = false; }
    Playing(const Playing&) = delete;
    Playing& operator=(const Playing&) = delete;
    bool& on;
  } playing(playing_);
  for (int row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
    const Run* const run = Find(from.back(), grid_.RowName(row));
    const bool marked = run != nullptr && run->marked == again;
    if (run == nullptr || IsRowMarked(grid_, row) == marked) continue;
    if (changed.second < 0) changed.first = row;
    changed.second = row;
    mark_(row, marked);
    // Whoever hears of the mark may have loaded the list anew.
    if (grid_.RowsEdition() != edition) return changed;
  }
  to.push_back(std::move(from.back()));
  from.pop_back();
  return changed;
}

}  // namespace tools
