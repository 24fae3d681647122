#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "Picture.h"
#include "apps/tour/Script.h"

namespace activexhost {

/// Plays a planner's day on the control's windows, which it finds by the names that they carry for
/// automation, by the messages of mouse and keyboard. Prints each step and saves numbered PNG
/// files; ends the message loop after the last step, or at the first that fails.
class Tour : public tour::Player {
 public:
  /// `folder` UTF-8, as Windows writes it, existing; `open` is the control's View.
  Tour(std::string folder, std::function<void(std::int32_t)> open);
  ~Tour() override;
  void Start();
  bool Ended() const { return ended_; }

  void Click(const std::string& button) override;
  void Type(const std::string& control, const std::string& text) override;
  void PressKey(const std::string& control, tour::Key key) override;
  void ClickCell(const std::string& grid, int row, int col) override;
  void DoubleClickCell(const std::string& grid, int row, int col) override;
  void DragRows(const std::string& grid, int firstRow, int lastRow, int col) override;
  void ResizeWindow(const std::string& form, double factor) override;
  void AnswerMessage(int button) override;
  void SaveAs(const std::string& fileName) override;
  void OpenProgram(std::int32_t id) override { open_(id); }
  bool IsShown(const std::string& form) override;
  bool IsEnabled(const std::string& control) override;
  std::string Text(const std::string& control) override;
  int Rows(const std::string& grid) override;
  std::string CellText(const std::string& grid, int row, int col) override;
  std::pair<int, int> BlockRows(const std::string& grid) override;
  void Picture(const std::string& form, const std::string& name) override;
  void PictureAndCloseDialog(const std::string& name) override;

 private:
  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR id, DWORD time);
  void Next();
  void Fail(const std::string& what);
  void Save(const RECT& place, const std::string& name);

  std::string folder_;
  std::function<void(std::int32_t)> open_;
  Camera camera_;
  tour::Script script_;
  UINT_PTR timer_ = 0;
  int pictures_ = 0;
  bool ended_ = false;
};

}  // namespace activexhost
