#pragma once

#include <QDir>
#include <QString>
#include <QTimer>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "adapters/qt/QtScreen.h"
#include "controls/Controls.h"
#include "controls/DateBox.h"
#include "controls/FlexGrid.h"

namespace desktop {

/// Something on the screen was not as the tour's step expects it.
class TourFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Plays steps through the real widgets, with mouse and keyboard events, one after the other from
/// the event loop, so that a step may open a modal form and the next one works on it. Prints each
/// step, saves pictures as numbered PNG files, and leaves the event loop at the end or at the first
/// step that fails.
class Tour {
 public:
  Tour(adapters::qt::QtScreen& screen, const QString& directory);

  /// `what` is printed before `act` runs.
  void Add(std::string what, std::function<void()> act);
  /// The steps begin as soon as an event loop runs.
  void Start();
  /// Every step was played and none failed.
  bool Ended() const { return ended_; }

  // What the steps are made of. All throw TourFailure when the widget cannot be reached by a user:
  // hidden, disabled, or behind a modal window.
  void Click(controls::Button& button);
  void Type(controls::Control& control, const QString& typed);
  void PressKey(controls::Control& control, Qt::Key key);
  void ClickCell(controls::FlexGrid& grid, int row, int col);
  void DoubleClickCell(controls::FlexGrid& grid, int row, int col);
  void DragRows(controls::FlexGrid& grid, int firstRow, int lastRow, int col);
  /// Names a file in the tour's folder in the Save As dialog that is up.
  void SaveAs(const QString& fileName);
  /// A modal window that belongs to no form: the preview, the document viewer.
  void PictureOfDialog(const QString& name);
  void CloseDialog();
  /// Presses a button of the message dialog that is up: 0 is its first (yes, or the only one).
  void AnswerMessage(int button);
  void Expect(bool holds, const std::string& what);
  void ResizeWindow(controls::Form& form, double factor);
  /// The form's window with what lies over it: dialogs, lists, month pages.
  void Picture(controls::Form& form, const QString& name);

 private:
  void Next();
  void End();
  void Fail(const std::string& what);
  QWidget& Reach(controls::Control& control);
  QWidget& Dialog() const;
  void Save(const QPixmap& picture, const QString& name);
  static void ClickAt(QWidget& widget, const QPoint& place);

  adapters::qt::QtScreen& screen_;
  QDir directory_;
  QTimer timer_;
  struct Step {
    std::string what;
    std::function<void()> act;
  };
  std::vector<Step> steps_;
  std::size_t next_ = 0;
  int pictures_ = 0;
  bool ended_ = false;
  bool failed_ = false;
};

}  // namespace desktop
