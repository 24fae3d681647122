#pragma once

#include <memory>
#include <string>
#include <vector>

#include "apps/tour/Hands.h"

namespace tour {

/// A user in front of the module: finds things by what they are called and works them, by mouse or
/// by keys alone, in the window that is in front. What is not there or could not be reached throws
/// Failure, which says what is there instead.
class Player {
 public:
  /// Pictures go to `folder`, which exists.
  Player(Hands& hands, std::string folder) : hands_(hands), folder_(std::move(folder)) {}

  // What is seen.
  std::string Title();
  /// Throws unless the title of the window in front begins so.
  void ExpectWindow(const std::string& title);
  /// Throws unless a label, a sign or a note there holds the text.
  void ExpectText(const std::string& text);
  std::string Text(const std::string& field);
  int Rows(const std::string& list);
  /// Rows begin at 1 below the headings, columns at 0, the first that is shown.
  std::string CellText(const std::string& list, int row, int column);
  bool IsMarked(const std::string& list, int row);
  std::string Clipboard() { return hands_.Clipboard(); }
  bool UsesOtherPrograms() const { return hands_.UsesOtherPrograms(); }

  // What is done. By keys: the access key, or Tab and Enter; arrows and a blank in lists.
  void Click(const std::string& button);
  /// Takes the keyboard to a field.
  void Go(const std::string& name);
  /// Writes over what the field holds.
  void Type(const std::string& field, const std::string& text);
  void Press(screens::Key key, int times = 1, screens::Modifiers held = {});
  /// Writes wherever the keyboard is.
  void Write(const std::string& text);
  /// Drops a field's list or month page down.
  void Open(const std::string& field);
  /// Picks from a field's list, and opens it where it is not open: a desktop that brings a window
  /// to the front late takes an open one away. The first item is 1.
  void PickItem(const std::string& field, int item);
  /// In row 0 the heading.
  void ClickCell(const std::string& list, int row, int column);
  void DoubleClickCell(const std::string& list, int row, int column);
  void DragRows(const std::string& list, int firstRow, int lastRow, int column);
  void ResizeWindow(double factor) { hands_.ResizeFront(factor); }
  void SaveAs(const std::string& fileName) { hands_.SaveAs(folder_ + "/" + fileName); }
  void OpenProgram(std::int32_t id) { hands_.OpenProgram(id); }

  /// Saves the window in front, with `below` windows under it, as a PNG file with a number and this
  /// name.
  void Picture(const std::string& name, int below = 0);
  int Pictures() const { return pictures_; }

 private:
  using ThingPtr = std::unique_ptr<Thing>;
  enum class Kind { kButton, kField, kList, kDropDown };

  bool ByKeys() const { return hands_.GetPlay() == Play::kKeys; }
  static bool Is(Kind kind, screens::Role role);
  /// The window in front, behind what lies over it.
  std::vector<ThingPtr> Front();
  /// Of that name, or where it is empty of any.
  ThingPtr Find(Kind kind, const std::string& name);
  /// Found, in sight and enabled.
  ThingPtr Reach(Kind kind, const std::string& name);
  /// It has the keyboard then.
  ThingPtr TabTo(Kind kind, const std::string& name);
  /// The cell in sight; by keys the keyboard stands on it.
  ThingPtr ReachCell(const std::string& list, int row, int column);
  void WalkTo(const std::string& list, int row, int column);
  void ClickAt(screens::Point place);

  Hands& hands_;
  std::string folder_;
  int pictures_ = 0;
};

}  // namespace tour
