#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "controls/Control.h"
#include "controls/Sheet.h"

namespace controls {

/// Sheets of paper below each other, to be looked at. Their numbers begin at 0. A view shows those
/// in sight and works off, between the user's events, what there is to do meanwhile.
class PageView : public Control {
 public:
  enum class Fit { kNone, kWidth, kSheet };
  static constexpr double kZoomStep = 1.2;

  PageView(Container& parent, std::string name) : Control(parent, std::move(name)) {}
  void Accept(ControlVisitor& visitor) override;

  /// A sheet as it is now; nothing while it cannot be told, it is asked for again soon. Never
  /// called while something is painted.
  std::function<std::optional<Sheet>(int sheet)> sheetOf;
  /// All sheets have one size, in points.
  double SheetWidth() const { return sheetWidth_; }
  double SheetHeight() const { return sheetHeight_; }
  void SetSheetSize(double width, double height);
  int Count() const { return count_; }
  void SetCount(int count);
  /// All sheets look otherwise from here on.
  void SheetsChanged() { Notify(Aspect::kCells); }

  /// The sheet that is looked at.
  int Current() const { return current_; }
  /// Brings a sheet, or the nearest there is, to the top of the view.
  void GoTo(int sheet);
  /// The user wants to see the last sheet.
  void GoToLast();
  /// A view says which sheet its scrolling has come to.
  void Reached(int sheet);

  /// 1 is true size.
  double Zoom() const { return zoom_; }
  Fit GetFit() const { return fit_; }
  /// Within bounds; ends fitting.
  void SetZoom(double zoom);
  /// A view keeps a sheet as wide, or as large, as itself, and says by Fitted what zoom that is.
  void SetFit(Fit fit);
  void Fitted(double zoom);

  /// What a view does between the user's events, a piece each call, until it is set to none.
  void SetWork(std::function<void()> work);
  bool HasWork() const { return work_ != nullptr; }
  void Work();

  std::function<void()> onMoved;   // another sheet is looked at, or in another size
  std::function<void()> onGoLast;  // instead of going to the last sheet there is by now

 private:
  int Within(int sheet) const;
  bool TakeZoom(double zoom);
  void TellMoved() const;

  double sheetWidth_ = 1;
  double sheetHeight_ = 1;
  int count_ = 0;
  int current_ = 0;
  double zoom_ = 1;
  Fit fit_ = Fit::kWidth;
  std::function<void()> work_;
};

}  // namespace controls
