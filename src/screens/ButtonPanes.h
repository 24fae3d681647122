#pragma once

#include "screens/ControlPane.h"

namespace screens {

/// What a button and a check box have in common: a press that is released on it, a blank or Enter
/// clicks.
template <typename Model>
class ClickPane : public PaneOfKind<Model> {
 public:
  void Pointer(const PointerEvent& event) override;
  void PointerLost() override { Show(false, hovered_); }
  bool PressKey(const KeyEvent& event) override;
  void Act(int part) override;

 protected:
  ClickPane(Model& model, PaneHost& host) : PaneOfKind<Model>(model, host) {}
  bool Hovered() const { return hovered_; }
  bool Pressed() const { return pressed_ && hovered_; }
  /// Whether Enter clicks it, too.
  virtual bool TakesEnter() const = 0;

 private:
  void Show(bool pressed, bool hovered);
  bool hovered_ = false;
  bool pressed_ = false;
};

class ButtonPane : public ClickPane<controls::Button> {
 public:
  ButtonPane(controls::Button& button, PaneHost& host) : ClickPane(button, host) {}
  void Paint(Surface& surface, const Rect& dirty) const override;
  Accessible Describe() const override;

 protected:
  bool TakesEnter() const override { return true; }
};

/// The tick belongs to the model: a click asks it, and its answer comes as a change.
class CheckPane : public ClickPane<controls::CheckBox> {
 public:
  CheckPane(controls::CheckBox& box, PaneHost& host) : ClickPane(box, host) {}
  void Paint(Surface& surface, const Rect& dirty) const override;
  Accessible Describe() const override;

 protected:
  bool TakesEnter() const override { return false; }
};

}  // namespace screens
