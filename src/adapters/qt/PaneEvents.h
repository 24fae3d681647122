#pragma once

#include <optional>

#include "screens/Pane.h"

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

namespace adapters::qt {

/// Qt's events as panes know them. A key that no pane gives a meaning is none.
std::optional<screens::KeyEvent> ToKeyEvent(const QKeyEvent& event);
/// `place` in device pixels on the pane.
screens::PointerEvent ToPointerEvent(const QMouseEvent& event, screens::Point place);
screens::WheelEvent ToWheelEvent(const QWheelEvent& event);

}  // namespace adapters::qt
