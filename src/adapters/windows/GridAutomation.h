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

/// A cell's text: lParam points to a GridTextRequest of the same process. Returns the text's length
/// in UTF-16 units, which may be more than was filled in; -1 for a cell that does not exist.
struct GridTextRequest {
  int row;
  int col;
  wchar_t* buffer;  // ends with a 0 when capacity is at least 1
  int capacity;     // in UTF-16 units, the 0 at the end included
};
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
