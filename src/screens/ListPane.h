#pragma once

#include <functional>
#include <string>
#include <utility>

#include "screens/SizedPane.h"

namespace screens {

struct ListRow {
  std::string name{};
  std::string detail{};  // beside it at the left, muted
};

/// The rows of a list that drops down. They are asked for while they are in sight, so that 100,000
/// open as quickly as ten.
class ListRows {
 public:
  virtual ~ListRows() = default;
  virtual int Count() const = 0;
  virtual ListRow At(int row) const = 0;
};

/// A list that drops down below a field, which keeps the keyboard and tells it what to do.
class ListPane : public SizedPane {
 public:
  static constexpr int kShownRows = 12;
  /// `rows` outlives it. `onPicked` is called when a row was clicked, which is the current one
  /// then.
  ListPane(PaneHost& host, const ListRows& rows, std::function<void()> onPicked)
      : SizedPane(host), rows_(rows), onPicked_(std::move(onPicked)) {}

  /// The rows are others: shows them from the first, or around `current` (-1 for none) where
  /// `centred`.
  void Reset(int current, bool centred);
  /// As wide as the first rows want it, but within `least` and the room; no higher than its rows.
  Size Wanted(int least, Size room) const;
  int Current() const { return current_; }
  void MoveBy(int rows);

  void Paint(Surface& surface, const Rect& dirty) const override;
  void Pointer(const PointerEvent& event) override;
  void Wheel(const WheelEvent& event) override;
  void Scrolled(Axis axis, int place) override;

  Accessible Describe() const override;
  int PartCount() const override { return Count(); }
  Accessible DescribePart(int part) const override;
  int PartAt(Point place) const override { return RowAt(place); }
  int FocusedPart() const override { return current_; }
  void Act(int part) override;

  /// Where a row is painted; empty when it is scrolled away.
  Rect RowPlace(int row) const;

 private:
  int Count() const { return rows_.Count(); }
  int RowHeight() const;
  int RowAt(Point place) const;
  void ScrollTo(int top);
  void PaintRow(Surface& surface, int row, const Rect& place) const;

  const ListRows& rows_;
  std::function<void()> onPicked_;
  int current_ = -1;
  int hovered_ = -1;
  int top_ = 0;
};

}  // namespace screens
