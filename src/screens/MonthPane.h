#pragma once

#include <functional>
#include <optional>

#include "calendar/SolarHijriDate.h"
#include "screens/MonthBrowser.h"
#include "screens/Pane.h"

namespace screens {

/// One month of the Solar Hijri calendar to pick a day from: Saturday at the right, Friday tinted,
/// today framed. The field below which it drops down gives it the keys.
class MonthPane : public Pane {
 public:
  using Spot = MonthBrowser::Spot;
  explicit MonthPane(PaneHost& host);
  /// Turns to the page of `chosen`, or of `today` where nothing is chosen.
  void Open(std::optional<calendar::SolarHijriDate> chosen, calendar::SolarHijriDate today);
  Size Wanted() const;
  Rect PlaceOf(const Spot& spot) const;

  /// Called before onPicked, and for keys that close it.
  std::function<void()> onClose;
  std::function<void(const calendar::SolarHijriDate&)> onPicked;

  void Resized(Size size) override;
  void Paint(Surface& surface, const Rect& dirty) const override;
  void Pointer(const PointerEvent& event) override;
  void PointerLost() override { browser_.Press({}); }
  void Wheel(const WheelEvent& event) override;
  /// False for a key that means nothing here.
  bool PressKey(const KeyEvent& event) override;

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
  int Design(double pixels) const { return host_.GetScale().Design(pixels); }

  PaneHost& host_;
  MonthBrowser browser_;
  Size size_;
  double wheelRest_ = 0;
};

}  // namespace screens
