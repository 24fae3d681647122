#include "adapters/qt/PaneEvents.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

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

/// kText for a key that has no name.
Key KeyOf(int key) {
  static constexpr std::pair<Qt::Key, Key> kKeys[] = {{Qt::Key_Return, Key::kEnter},
                                                      {Qt::Key_Enter, Key::kEnter},
                                                      {Qt::Key_Escape, Key::kEscape},
                                                      {Qt::Key_Backspace, Key::kBackspace},
                                                      {Qt::Key_Insert, Key::kInsert},
                                                      {Qt::Key_Up, Key::kUp},
                                                      {Qt::Key_Down, Key::kDown},
                                                      {Qt::Key_Left, Key::kLeft},
                                                      {Qt::Key_Right, Key::kRight},
                                                      {Qt::Key_PageUp, Key::kPageUp},
                                                      {Qt::Key_PageDown, Key::kPageDown},
                                                      {Qt::Key_Home, Key::kHome},
                                                      {Qt::Key_End, Key::kEnd},
                                                      {Qt::Key_Tab, Key::kTab},
                                                      {Qt::Key_Backtab, Key::kTab},
                                                      {Qt::Key_F3, Key::kF3},
                                                      {Qt::Key_F4, Key::kF4},
                                                      {Qt::Key_F6, Key::kF6},
                                                      {Qt::Key_A, Key::kA},
                                                      {Qt::Key_C, Key::kC},
                                                      {Qt::Key_D, Key::kD},
                                                      {Qt::Key_I, Key::kI}};
  const auto* const found =
      std::ranges::find(kKeys, key, [](const auto& pair) { return int{pair.first}; });
  return found == std::end(kKeys) ? Key::kText : found->second;
}

bool IsLetter(Key key) {
  return key == Key::kA || key == Key::kC || key == Key::kD || key == Key::kI;
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
