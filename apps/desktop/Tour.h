#pragma once

#include <QDir>
#include <QString>
#include <QTimer>
#include <functional>
#include <string>

#include "adapters/qt/QtScreen.h"
#include "apps/tour/Script.h"
#include "controls/FlexGrid.h"
#include "controls/Form.h"

namespace desktop {

/// Plays a planner's day through the real widgets, from the event loop, with mouse and keyboard
/// events. Prints each step, saves pictures as numbered PNG files, and leaves the event loop at the
/// end; the first step that fails ends the program.
class Tour : public tour::Player {
 public:
  /// What the module is for the tour: its forms by name, null for one that it does not know, and
  /// the control's View.
  struct Stage {
    std::function<controls::Form*(const std::string& name)> form;
    std::function<void(std::int32_t program)> open;
  };
  Tour(adapters::qt::QtScreen& screen, Stage stage, const QString& directory);

  /// The steps begin as soon as an event loop runs.
  void Start();
  /// Every step was played and none failed.
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
  void OpenProgram(std::int32_t id) override { stage_.open(id); }
  bool IsShown(const std::string& form) override;
  bool IsEnabled(const std::string& control) override;
  std::string Text(const std::string& control) override;
  int Rows(const std::string& grid) override;
  std::string CellText(const std::string& grid, int row, int col) override;
  std::pair<int, int> BlockRows(const std::string& grid) override;
  void Picture(const std::string& form, const std::string& name) override;
  void PictureAndCloseDialog(const std::string& name) override;

 private:
  void Next();
  void End();
  void Fail(const std::string& what);
  controls::Form& FormOf(const std::string& name) const;
  controls::Control& ControlOf(const std::string& path) const;
  controls::FlexGrid& GridOf(const std::string& path) const;
  /// The control's widget, if a user can reach it.
  adapters::qt::PaneWidget& Reach(const std::string& path);
  QWidget& Dialog() const;
  void Save(const QPixmap& picture, const std::string& name);

  adapters::qt::QtScreen& screen_;
  Stage stage_;
  QDir directory_;
  QTimer timer_;
  tour::Script script_;
  int pictures_ = 0;
  bool ended_ = false;
  bool failed_ = false;
};

}  // namespace desktop
