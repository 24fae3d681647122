#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace tour {

/// Something on the screen was not as a step expects it.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class Key { kEnter, kEscape, kUp, kDown, kEnd, kBackspace, kF4 };

/// A user's hands and eyes on the module's windows, whichever screen shows them. Controls are named
/// with their form, "FormMain.cmdNew", parts of a selectable grid with both, "FormAddBatch.flxPath.
/// Flex". Everything happens through mouse and keyboard events on the real windows; what a user
/// could not reach (hidden, disabled, behind a modal window) throws Failure. Texts are UTF-8.
class Player {
 public:
  virtual ~Player() = default;

  virtual void Click(const std::string& button) = 0;
  /// Gives the control the focus and types.
  virtual void Type(const std::string& control, const std::string& text) = 0;
  virtual void PressKey(const std::string& control, Key key) = 0;
  virtual void ClickCell(const std::string& grid, int row, int col) = 0;
  virtual void DoubleClickCell(const std::string& grid, int row, int col) = 0;
  virtual void DragRows(const std::string& grid, int firstRow, int lastRow, int col) = 0;
  /// Drags the form's edge so that its window becomes `factor` times as large.
  virtual void ResizeWindow(const std::string& form, double factor) = 0;
  /// Presses a button of the message that is up: 0 is its first (yes, or the only one).
  virtual void AnswerMessage(int button) = 0;
  /// Names a file in the tour's folder in the Save As dialog that is up.
  virtual void SaveAs(const std::string& fileName) = 0;
  /// Opens a program as the suite does, through the control.
  virtual void OpenProgram(std::int32_t id) = 0;

  virtual bool IsShown(const std::string& form) = 0;
  virtual bool IsEnabled(const std::string& control) = 0;
  virtual std::string Text(const std::string& control) = 0;
  virtual int Rows(const std::string& grid) = 0;
  virtual std::string CellText(const std::string& grid, int row, int col) = 0;
  /// First and last row of the grid's block.
  virtual std::pair<int, int> BlockRows(const std::string& grid) = 0;

  /// Saves the form's window with what lies over it (messages, lists, month pages) as a PNG file
  /// with a number and this name.
  virtual void Picture(const std::string& form, const std::string& name) = 0;
  /// Where the screen shows reports and accounting documents in a window of its own: takes its
  /// picture and closes it. Where others show them, nothing is left to do.
  virtual void PictureAndCloseDialog(const std::string& name) = 0;
};

}  // namespace tour
