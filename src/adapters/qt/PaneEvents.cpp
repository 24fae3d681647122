#include "adapters/qt/PaneEvents.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <iterator>

#include "adapters/qt/Convert.h"

namespace adapters::qt {

using screens::Key;
using screens::PointerEvent;

namespace {

screens::Modifiers ModifiersOf(Qt::KeyboardModifiers held) {
  return {.shift = held.testFlag(Qt::ShiftModifier),
          .control = held.testFlag(Qt::ControlModifier),
          .alt = held.testFlag(Qt::AltModifier)};
}

screens::MouseButton ButtonOf(Qt::MouseButton button) {
  if (button == Qt::RightButton) return screens::MouseButton::kRight;
  return button == Qt::MiddleButton ? screens::MouseButton::kMiddle : screens::MouseButton::kLeft;
}

PointerEvent::Action ActionOf(QEvent::Type type) {
  if (type == QEvent::MouseMove) return PointerEvent::Action::kMove;
  return type == QEvent::MouseButtonRelease ? PointerEvent::Action::kRelease
                                            : PointerEvent::Action::kPress;
}

/// Of screens::Key, from kEnter on.
constexpr int kKeys[] = {
    Qt::Key_Return, Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_Insert,   Qt::Key_Up,   Qt::Key_Down,
    Qt::Key_Left,   Qt::Key_Right,  Qt::Key_PageUp,    Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End,
    Qt::Key_Tab,    Qt::Key_F3,     Qt::Key_F4,        Qt::Key_F6,       Qt::Key_A,    Qt::Key_C,
    Qt::Key_D,      Qt::Key_F,      Qt::Key_I,         Qt::Key_Y,        Qt::Key_Z};
static_assert(std::size(kKeys) == static_cast<int>(Key::kZ) - static_cast<int>(Key::kEnter) + 1);

/// kText for a key that has no name.
Key KeyOf(int key) {
  if (key == Qt::Key_Enter) key = Qt::Key_Return;
  if (key == Qt::Key_Backtab) key = Qt::Key_Tab;
  const auto found = std::ranges::find(kKeys, key) - std::begin(kKeys);
  if (found == std::ssize(kKeys)) return Key::kText;
  return static_cast<Key>(static_cast<int>(Key::kEnter) + found);
}

bool IsLetter(Key key) {
  return key >= Key::kA && key <= Key::kZ;
}

}  // namespace

std::optional<screens::KeyEvent> ToKeyEvent(const QKeyEvent& event) {
  screens::KeyEvent passed{KeyOf(event.key()), ModifiersOf(event.modifiers()), {}};
  if (event.key() == Qt::Key_Backtab) passed.modifiers.shift = true;
  const bool command = passed.modifiers.control || passed.modifiers.alt;
  if (!command && IsLetter(passed.key)) passed.key = Key::kText;
  if (passed.key != Key::kText) return passed;
  const QString text = event.text();
  if (command || text.isEmpty() || !text.front().isPrint()) return std::nullopt;
  passed.text = ToUtf8(text);
  if (passed.text == " ") passed.key = Key::kSpace;
  return passed;
}

PointerEvent ToPointerEvent(const QMouseEvent& event, screens::Point place) {
  return {.action = ActionOf(event.type()),
          .place = place,
          .button = ButtonOf(event.button()),
          .clicks = event.type() == QEvent::MouseButtonDblClick ? 2 : 1,
          .leftHeld = event.buttons().testFlag(Qt::LeftButton),
          .modifiers = ModifiersOf(event.modifiers())};
}

screens::WheelEvent ToWheelEvent(const QWheelEvent& event) {
  constexpr double kNotch = QWheelEvent::DefaultDeltasPerStep;
  return {.up = event.angleDelta().y() / kNotch,
          .left = event.angleDelta().x() / kNotch,
          .lines = QApplication::wheelScrollLines(),
          .modifiers = ModifiersOf(event.modifiers())};
}

}  // namespace adapters::qt
