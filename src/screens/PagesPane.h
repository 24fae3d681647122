#pragma once

#include <map>

#include "controls/PageView.h"
#include "screens/ControlPane.h"

namespace screens {

/// Paints the sheets of a PageView and is their hand and keys: the wheel and the arrows scroll, a
/// blank and the page keys by as much as is seen, Home and End go to the first and last sheet;
/// Ctrl and the wheel change the size. Sheets are asked for between the user's events, never while
/// something is painted: making one may take long and fail. Until it is there the paper is empty.
class PagesPane : public PaneOfKind<controls::PageView> {
 public:
  PagesPane(controls::PageView& view, PaneHost& host) : PaneOfKind(view, host) {}

  void Changed(const controls::Change& change) override;
  void Resized(Size size) override;
  void Paint(Surface& surface, const Rect& dirty) const override;
  void Wheel(const WheelEvent& event) override;
  bool PressKey(const KeyEvent& event) override;
  void Tick() override;
  void Scrolled(Axis axis, int place) override;
  Accessible Describe() const override;
  int PartCount() const override;
  Accessible DescribePart(int part) const override;
  int PartAt(Point place) const override;

  /// Where a sheet is, in sight or not.
  Rect SheetPlace(int sheet) const;

 private:
  struct Kept {
    controls::Sheet sheet;
    bool old = false;  // another is to take its place
  };
  struct Span {  // of sheets
    int first = 0;
    int last = -1;
  };

  // PagesPane.cpp
  double PixelsPerPoint() const;
  int Gap() const { return Design(14); }
  /// From the top of a sheet to that of the next.
  int Stride() const { return sheetHeight_ + Gap(); }
  /// Of all sheets, as far as a scroll bar counts.
  int AllHeight() const;
  void Measure();
  void FitZoom();
  void ShowBars();
  void ScrollTo(int above, int across);
  void ScrollToSheet(int sheet);
  bool Walk(const KeyEvent& event);
  Span InSight() const;

  // PagesKept.cpp
  bool IsMissing(int sheet) const;
  bool Fetch(int sheet);
  void FetchInSight();
  void KeepWorking();
  const controls::Sheet* CurrentSheet() const;

  int above_ = 0;   // pixels that are scrolled away at the top
  int across_ = 0;  // and at the right
  int sheetWidth_ = 1;
  int sheetHeight_ = 1;
  int rounds_ = 0;  // of measuring for a bar that came or went
  std::map<int, Kept> kept_;
};

}  // namespace screens
