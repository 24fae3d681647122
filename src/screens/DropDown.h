#pragma once

#include <functional>
#include <memory>

#include "screens/ListPane.h"

namespace screens {

/// The list that a field drops down, made when it first opens.
class DropDown {
 public:
  /// All live as long as this does.
  DropDown(PaneHost& field, const ListRows& rows, std::function<void()> onPicked);
  DropDown(const DropDown&) = delete;
  DropDown& operator=(const DropDown&) = delete;

  bool Open() const { return popup_ && popup_->Visible(); }
  /// Opens it, or shows in the open one that the rows are others. At least `least` pixels wide;
  /// `current` is the row that stands chosen, -1 for none.
  void Show(int current, int least);
  void Close();
  /// -1 for none.
  int Current() const { return list_ == nullptr ? -1 : list_->Current(); }
  void Wheel(const WheelEvent& event) { list_->Wheel(event); }
  /// Up and down by rows and pages while it is open; false for another key.
  bool PressKey(const KeyEvent& event);

 private:
  PaneHost& field_;
  const ListRows& rows_;
  std::function<void()> onPicked_;
  std::unique_ptr<Popup> popup_;
  ListPane* list_ = nullptr;  // null until it was opened
};

}  // namespace screens
