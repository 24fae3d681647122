#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "screens/Accessible.h"
#include "screens/Pane.h"
#include "screens/Rect.h"

namespace tour {

/// Something on the screen was not as a step expects it.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A node of the platform's accessible tree, as a screen reader meets it. Good for the moment: a
/// step asks for it anew.
class Thing {
 public:
  virtual ~Thing() = default;
  /// Its place is on the screen, in pixels, and empty where nothing of it is in sight. The name of
  /// a window is its title, its role kNone.
  virtual screens::Accessible Tell() const = 0;
  /// None of a table or list, which may be long.
  virtual std::vector<std::unique_ptr<Thing>> Children() const = 0;
  /// Rows of a table below its headings, items of a list.
  virtual int Rows() const = 0;
  /// Of a table or list. Rows begin at 1, above which are a table's headings; columns are those
  /// that are shown, from 0. Null where there is no such cell.
  virtual std::unique_ptr<Thing> Cell(int row, int column) const = 0;
};

/// How a tour is played.
enum class Play { kMouse, kKeys };

/// What a host brings for a tour: eyes that read the accessible tree, and hands on mouse and
/// keyboard, which work through the platform's own events. Texts are UTF-8.
class Hands {
 public:
  enum class Mouse { kPress, kMove, kRelease, kDoubleClick };

  /// The control's View, with the id of a program.
  using Open = std::function<void(std::int32_t program)>;

  Hands(Play play, Open open) : play_(play), open_(std::move(open)) {}
  virtual ~Hands() = default;
  Hands(const Hands&) = delete;
  Hands& operator=(const Hands&) = delete;

  Play GetPlay() const { return play_; }

  /// The program's windows in sight, the one in front first. What lies over a window without being
  /// one (lists, month pages, notes) comes before it or is among its children.
  virtual std::vector<std::unique_ptr<Thing>> Windows() = 0;
  /// The left button, or the mouse alone. Throws Failure in a tour by keys.
  void Point(Mouse action, screens::Point place) {
    if (play_ == Play::kKeys) throw Failure("this tour has no mouse");
    MoveMouse(action, place);
  }
  /// A stroke, wherever the keyboard is. A text of Alt is the letter on the key.
  virtual void Press(const screens::KeyEvent& stroke) = 0;

  /// A PNG file of the first `windows` windows and what lies over them.
  virtual void Picture(int windows, const std::string& path) = 0;
  /// Drags the edge of the window in front until it is `factor` times as large.
  virtual void ResizeFront(double factor) = 0;
  /// Names a file in the Save As dialog that is up.
  virtual void SaveAs(const std::string& path) = 0;
  /// Opens a program as the suite does, through the control.
  void OpenProgram(std::int32_t id) { open_(id); }
  virtual std::string Clipboard() = 0;
  /// Whether reports and workbooks are shown by other programs, which may not be there: then a
  /// message says so.
  virtual bool UsesOtherPrograms() const = 0;
  /// How many windows wait for one that is in front of them: grows while a modal one is up.
  virtual int Depth() const = 0;

 private:
  virtual void MoveMouse(Mouse action, screens::Point place) = 0;

  Play play_;
  Open open_;
};

}  // namespace tour
