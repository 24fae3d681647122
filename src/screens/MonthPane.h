#pragma once

#include "calendar/SolarHijriDate.h"
#include "screens/MonthBrowser.h"
#include "screens/SizedPane.h"

namespace screens {

/// One month of the Solar Hijri calendar to pick a day from: Saturday at the right, Friday tinted,
/// today framed. The field below which it drops down gives it the keys.
class MonthPane : public SizedPane {
 public:
  using Spot = MonthBrowser::Spot;
  explicit MonthPane(PaneHost& host);
  /// Opens the page, and tells when it is closed and a day picked.
  MonthBrowser& Browser() { return browser_; }
  Size Wanted() const;
  Rect PlaceOf(const Spot& spot) const;

  void Paint(Surface& surface, const Rect& dirty) const override;
  void Pointer(const PointerEvent& event) override;
  void PointerLost() override { browser_.Press({}); }
  void Wheel(const WheelEvent& event) override;
  bool PressKey(const KeyEvent& event) override { return browser_.PressKey(event); }

  /// A table of a week a row; its name is the month's.
  Accessible Describe() const override;
  int PartCount() const override { return MonthPage::kWeeks * MonthPage::kDays; }
  Accessible DescribePart(int part) const override;
  int PartAt(Point place) const override;
  int FocusedPart() const override;
  void Act(int part) override;

 private:
  using Part = MonthBrowser::Part;
  Rect DayPlace(int week, int weekday) const;
  Spot SpotAt(Point place) const;
  void PaintHead(Surface& surface) const;
  void PaintArrow(Surface& surface, Part part, bool toRight, int strokes) const;
  void PaintDay(Surface& surface, int week, int weekday) const;
  calendar::SolarHijriDate DayOf(int part) const;

  MonthBrowser browser_;
};

}  // namespace screens
