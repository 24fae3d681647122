#pragma once

#include <functional>
#include <vector>

#include "adapters/windows/Paint.h"
#include "adapters/windows/PopupWindow.h"
#include "controls/Selector.h"

namespace adapters::windows {

/// The drop-down list of a selector: each row's name at the right, its code and the like muted at
/// the left. It keeps no texts: each painting asks the model for the rows that are in sight, so
/// that 100,000 rows open as quickly as ten.
class SelectorList : public PopupWindow {
 public:
  static constexpr int kShownRows = 12;
  SelectorList(const Surroundings& surroundings, HWND field);

  /// Opens it with `rows`, indexes into selector.List(), or shows them in the open one; at least
  /// `least` pixels wide. `current` is a place in `rows`, -1 for none. The selector must outlive
  /// what is shown: see Forget().
  void Show(const controls::Selector& selector, std::vector<std::size_t> rows, int current,
            int least);
  /// Closes it and shows nothing of a selector any more.
  void Forget();
  int Count() const { return static_cast<int>(rows_.size()); }
  /// -1 for none.
  int Current() const { return current_; }
  void MoveBy(int rows);
  /// Index into Selector::List() of a shown row.
  std::size_t ListRow(int row) const { return rows_[static_cast<std::size_t>(row)]; }
  int RowHeight() const;
  /// First row in sight.
  int Top() const { return top_; }

  /// A row was clicked: it is the current one.
  std::function<void()> onPicked;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  const controls::Selector::Row* RowAt(int row) const;
  int RowUnder(POINT place) const;
  int WidthForRows() const;
  void ScrollTo(int top);
  void OnScrollBar(int request);
  void Paint() const;
  void PaintRow(const Canvas& canvas, int row, const RECT& place) const;
  void PaintBorder() const;

  const controls::Selector* selector_ = nullptr;
  std::vector<std::size_t> rows_;
  int current_ = -1;
  int hover_ = -1;
  int top_ = 0;
  int wheelRest_ = 0;
};

}  // namespace adapters::windows
