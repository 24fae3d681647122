#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "screens/Pane.h"

namespace screens {

/// The line above a grid in which a text is looked for: from the right the field, what was found,
/// and signs for the previous and the next place and for closing.
class FindLine {
 public:
  enum class Button { kPrevious, kNext, kClose };

  /// `press` is called for a button that was pressed.
  FindLine(PaneHost& host, std::function<void(Button)> press)
      : host_(host), press_(std::move(press)) {}

  bool IsOpen() const { return open_; }
  /// Its field shows and takes what is typed; the text sought before is in it.
  void Open();
  void Close();
  /// 0 while it is closed.
  int Height() const;
  void Resized(int width);
  static constexpr char kNothing[] = "يافت نشد";
  /// What was found; `refused` where nothing was. True when that says something else than before.
  bool Show(const std::string& found, bool refused);
  void Paint(Surface& surface, bool focused) const;

  bool Contains(Point place) const { return Place().Contains(place); }
  /// True for what is on it or belongs to a press that began on it.
  bool Pointer(const PointerEvent& event);
  void PointerLost();
  Tip TipAt(Point place) const;

  /// What was found, the buttons, and at last the field.
  static constexpr int kParts = 5;
  static constexpr int kFoundPart = 0;
  static constexpr int kFieldPart = 4;
  /// `list` is what the list is called.
  Accessible DescribePart(int part, const std::string& list, bool focused) const;
  int PartAt(Point place) const;
  void Act(int part);

 private:
  Rect Place() const { return {0, 0, width_, Height()}; }
  Rect ButtonPlace(Button button) const;
  Rect FoundPlace() const;
  Rect BoxPlace() const;
  std::optional<Button> ButtonAt(Point place) const;
  void PaintButton(Surface& surface, Button button) const;
  void MoveField();

  PaneHost& host_;
  std::function<void(Button)> press_;
  bool open_ = false;
  int width_ = 0;
  std::string found_;
  bool refused_ = false;
  bool pressing_ = false;
  std::optional<Button> pressed_;
  std::optional<Button> hovered_;
};

}  // namespace screens
