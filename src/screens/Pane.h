#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "controls/Control.h"
#include "screens/Accessible.h"
#include "screens/Rect.h"
#include "screens/Scale.h"
#include "screens/Surface.h"

namespace screens {

struct Modifiers {
  bool shift = false;
  bool control = false;
  bool alt = false;
  bool None() const { return !shift && !control && !alt; }
};

/// The numbers are those that the models' handlers are given.
enum class MouseButton { kLeft = 1, kRight = 2, kMiddle = 4 };

/// From a press to its release every move comes to the pane, from outside of it too. kLeave says
/// that the pointer is over the pane no more; it has no place.
struct PointerEvent {
  enum class Action { kPress, kMove, kRelease, kLeave };
  Action action = Action::kMove;
  Point place;
  MouseButton button = MouseButton::kLeft;  // of a press or release
  int clicks = 1;                           // of a press: 2 for the second of a double click
  bool leftHeld = false;                    // during a move
  Modifiers modifiers{};
};

/// A turn of the wheel in notches, parts of which come from fine wheels and touch pads.
struct WheelEvent {
  double up = 0;
  double left = 0;
  int lines = 3;  // that a notch moves, as the system is set; 0 for a page
  Modifiers modifiers{};
};

/// The keys that some pane gives a meaning. Letters are named by the Latin letter of their key and
/// come with Control; what is typed comes as kText, but a blank as kSpace. kTab comes with shift
/// for the way back. Toolkits list theirs in this order.
enum class Key {
  kText,
  kSpace,
  kEnter,
  kEscape,
  kBackspace,
  kInsert,
  kUp,
  kDown,
  kLeft,
  kRight,
  kPageUp,
  kPageDown,
  kHome,
  kEnd,
  kTab,
  kF3,
  kF4,
  kF6,
  kA,
  kC,
  kD,
  kF,
  kI,
  kY,
  kZ
};

struct KeyEvent {
  Key key = Key::kText;
  Modifiers modifiers{};
  std::string text{};  // UTF-8, of kText
};

enum class Cursor { kArrow, kColumnBorder };
enum class Axis { kDown, kAcross };

/// `count` steps or pixels, of which `page` are seen from `place` on. Across, both are counted from
/// the right edge.
struct ScrollRange {
  int count = 0;
  int page = 0;
  int place = 0;
  int step = 1;  // of the bar's arrows
  friend bool operator==(const ScrollRange&, const ScrollRange&) = default;
};

/// A text that explains a part of a pane; empty for none.
struct Tip {
  Rect place;
  std::string text;
};

/// The toolkit's own field for one line of text: input methods, the caret, selecting, undo, the
/// clipboard and its menu are its work. It has no border and the ground of the field that it stands
/// in. Its keys go to Pane::PressKey first, what goes into it through Pane::Taken and Pasted; a
/// change by the user is told by Pane::Edited.
class TextField {
 public:
  virtual ~TextField() = default;
  /// Shows it there.
  virtual void Move(const Rect& place) = 0;
  /// Until it is moved it is as if the pane had none, and the keyboard, where it has it, goes to
  /// the pane itself.
  virtual void Hide() = 0;
  virtual std::string Text() const = 0;
  /// Is not told by Edited. The caret stays where it was, as far as the text goes; without the
  /// keyboard the text's beginning is shown.
  virtual void SetText(const std::string& text) = 0;
  virtual void SelectAll() = 0;
  virtual void SetLocked(bool locked) = 0;
};

enum class PopupKind {
  kDropDown,  // over everything; a press elsewhere, or the form moved, is told by Pane::PopupLeft
  kNote       // on the form, over its other controls; the mouse goes through it
};

/// A small window beside a control with a pane of its own. It never takes the keyboard.
class Popup {
 public:
  virtual ~Popup() = default;
  /// Opens it where PopupPlace says, or gives an open one another size.
  virtual void Show(Size size) = 0;
  virtual void Hide() = 0;
  virtual bool Visible() const = 0;
};

class Pane;
class PaneHost;
using PaneMaker = std::function<std::unique_ptr<Pane>(PaneHost&)>;

/// What a pane asks of the toolkit whose window it fills. Lives longer than the pane.
class PaneHost {
 public:
  virtual ~PaneHost() = default;

  virtual Scale GetScale() const = 0;
  /// Height of a line of text, and the width of a text on one line.
  virtual int LineHeight() const = 0;
  virtual int TextWidth(std::string_view text, Weight weight) const = 0;
  /// Whether the control and all that it stands in is enabled.
  virtual bool Enabled() const = 0;

  /// The area is painted again, once the event under way is over.
  virtual void Repaint(const Rect& area) = 0;
  /// Moves what is painted in the area down (or up), and repaints what comes into sight.
  virtual void ScrollPart(const Rect& area, int down) = 0;
  /// Shows a bar where there is more than a page. May change the pane's size (see Pane::Resized)
  /// before it returns.
  virtual void SetScrollBar(Axis axis, const ScrollRange& range) = 0;
  /// Begins to call Pane::Tick, or ends it with 0.
  virtual void SetTimer(int milliseconds) = 0;
  virtual void CopyToClipboard(const std::string& text) = 0;

  /// The field in this pane, made when it is first asked for; while it has the keyboard, so has the
  /// pane.
  virtual TextField& Field() = 0;
  /// Closed at first. Ends before the pane that asked for it does.
  virtual std::unique_ptr<Popup> MakePopup(PopupKind kind, const PaneMaker& make) = 0;
  /// How much room a popup has at most: the work area, for a note the form.
  virtual Size PopupRoom(PopupKind kind) const = 0;
  virtual void TakeFocus() = 0;
  virtual std::chrono::sys_days Today() const = 0;
  /// For whoever listens to what a screen reader is told; `part` is -1 for the pane itself.
  virtual void Announce(Tidings what, int part) = 0;
};

/// A control that is painted and worked by plain code, in a window of any toolkit. The host calls
/// every method that is not const under its error guard: what a model's handler throws travels
/// through. Any event of the user's may end with the model gone and the pane detached. What a pane
/// has no use for it leaves as it is here.
class Pane {
 public:
  virtual ~Pane() = default;

  /// The model is not touched again; everything else is still called.
  virtual void Detach() {}
  virtual void Changed(const controls::Change& /*change*/) {}
  /// Another size, scale or font.
  virtual void Resized(Size size) = 0;
  /// Paints `dirty` at least; the ground is undefined before.
  virtual void Paint(Surface& surface, const Rect& dirty) const = 0;

  virtual void Pointer(const PointerEvent& /*event*/) {}
  /// The rest of a press will not come: something else took the mouse.
  virtual void PointerLost() {}
  virtual void Wheel(const WheelEvent& /*event*/) {}
  /// Returns false for a key that it has no use for, which is then the form's.
  virtual bool PressKey(const KeyEvent& /*event*/) { return false; }
  virtual void FocusChanged(bool /*focused*/) {}
  virtual void Tick() {}
  /// The user moved a scroll bar.
  virtual void Scrolled(Axis /*axis*/, int /*place*/) {}

  /// The user changed the text of the pane's field.
  virtual void Edited() {}
  /// What goes into the field instead of what was typed; instead of what was pasted or dropped.
  virtual std::string Taken(const std::string& typed) const { return typed; }
  virtual std::string Pasted(const std::string& text) const { return text; }
  /// The user turned elsewhere while the pane's drop-down was open.
  virtual void PopupLeft() {}

  virtual Cursor CursorAt(Point /*place*/) const { return Cursor::kArrow; }
  virtual Tip TipAt(Point /*place*/) const { return {}; }

  /// The pane as a screen reader knows it, and what is in it. Parts are numbered from 0; those of a
  /// table by rows, headings included, what else there is in it behind them.
  virtual Accessible Describe() const { return {}; }
  /// What the field in it goes by: the pane itself, unless the field is one of its parts. Then it
  /// is the last of them.
  virtual Accessible DescribeField() const { return Describe(); }
  virtual int PartCount() const { return 0; }
  virtual Accessible DescribePart(int /*part*/) const { return {}; }
  /// -1 where there is none.
  virtual int PartAt(Point /*place*/) const { return -1; }
  virtual int FocusedPart() const { return -1; }
  /// Does what the action of a part (-1: of the pane) says.
  virtual void Act(int /*part*/) {}
};

}  // namespace screens
