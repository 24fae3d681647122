#pragma once

#include <windows.h>

namespace adapters::windows {

// What a program that drives the screens (the guided tour, a test) asks a grid's window by messages
// of its own, since the window keeps no child windows for its cells.

/// wParam is the row, lParam the column. Returns the middle of what is in sight of that cell,
/// packed like a mouse message's lParam in client coordinates; 0 when nothing of it is.
inline UINT GridCellRectMessage() {
  static const UINT message = RegisterWindowMessageW(L"PromoterGridCellRect");
  return message;
}

/// A cell's text: wParam is the row, lParam the column. Returns a global atom of its first 255
/// UTF-16 units, which the caller deletes; 0 for an empty text, -1 for a cell that does not exist.
/// No address is passed, since any process may send this.
inline UINT GridTextMessage() {
  static const UINT message = RegisterWindowMessageW(L"PromoterGridText");
  return message;
}

/// Returns the number of rows, fixed ones included.
inline UINT GridRowsMessage() {
  static const UINT message = RegisterWindowMessageW(L"PromoterGridRows");
  return message;
}

/// Returns the first row of the block in the low word and its last in the high one.
inline UINT GridBlockMessage() {
  static const UINT message = RegisterWindowMessageW(L"PromoterGridBlock");
  return message;
}

}  // namespace adapters::windows
