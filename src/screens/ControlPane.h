#pragma once

#include <string_view>

#include "controls/Controls.h"
#include "screens/SizedPane.h"

namespace screens {

/// The colour around a control: that of its form or of the frame that it stands in.
controls::Colour GroundOf(const controls::Control& control);

/// What the panes of all controls but the grid have in common.
class ControlPane : public SizedPane {
 public:
  void Detach() override { control_ = nullptr; }
  void Changed(const controls::Change& change) override;
  void FocusChanged(bool focused) override;
  /// What the form says of the control.
  Tip TipAt(Point place) const override;

 protected:
  ControlPane(controls::Control& control, PaneHost& host)
      : SizedPane(host), control_(&control), ground_(GroundOf(control)) {}

  controls::Colour Ground() const { return ground_; }
  bool Focused() const { return focused_; }
  /// Of texts, and of the line around what takes the keyboard.
  controls::Colour Ink() const;
  controls::Colour Border() const;
  /// A caption in the middle between top and bottom, the letter of its access key underlined.
  void PaintCaption(Surface& surface, std::string_view caption, const Rect& box,
                    const TextStyle& style) const;
  /// Name, tip, keys and state of the control; the rest is for the pane to say.
  Accessible Described(Role role) const;

 private:
  controls::Control* control_;  // null once detached
  controls::Colour ground_;
  bool focused_ = false;
};

/// The pane of a kind of control.
template <typename Model, typename Base = ControlPane>
class PaneOfKind : public Base {
 public:
  void Detach() override {
    Base::Detach();
    model_ = nullptr;
  }

 protected:
  template <typename... More>
  PaneOfKind(Model& model, PaneHost& host, More... more)
      : Base(model, host, more...), model_(&model) {}
  /// Null once detached, which any call of a handler may do.
  Model* Shown() const { return model_; }

 private:
  Model* model_;
};

}  // namespace screens
