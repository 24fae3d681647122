#pragma once

#include <memory>
#include <string>

#include "screens/ControlPane.h"

namespace screens {

/// What all fields have in common: ground and border, at the left end perhaps a small button that
/// opens something below (F4 and Alt with down open it too), and a note below for a text that was
/// refused.
class FieldPane : public ControlPane {
 public:
  void Changed(const controls::Change& change) override;
  void Resized(Size size) override;
  void Paint(Surface& surface, const Rect& dirty) const override;
  void Pointer(const PointerEvent& event) override;
  void PointerLost() override { Hover(false); }
  bool PressKey(const KeyEvent& event) override;
  /// Opens or closes what is below.
  void Act(int part) override;

 protected:
  enum class Sign { kNone, kArrow, kCalendar };
  enum class Holds { kField, kPaintedText };  // the toolkit's field
  FieldPane(controls::Control& control, PaneHost& host, Sign sign, Holds holds);

  /// The small button was pressed.
  virtual void Toggle() {}
  /// Beside it and the border.
  virtual void PressInside() { Host().TakeFocus(); }
  /// What every field is that opens something below.
  Accessible DescribedOpener(bool open, std::string value) const;
  virtual void PaintInside(Surface& /*surface*/, const Rect& /*room*/) const {}
  /// Where the text stands.
  Rect Inside() const;

  /// Shows a sentence below the field for a while; empty takes it away.
  void ShowNote(const std::string& sentence);
  /// The red border of a text that was not understood.
  void SetRefused(bool refused);

 private:
  Rect ButtonPlace() const;
  void Hover(bool hovered);
  void PaintSign(Surface& surface) const;

  Sign sign_;
  Holds holds_;
  bool hovered_ = false;
  bool refused_ = false;
  std::unique_ptr<Popup> note_;
};

}  // namespace screens
