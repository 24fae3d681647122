#pragma once

#include <string_view>

#include "controls/Controls.h"
#include "screens/Pane.h"

namespace screens {

/// The colour around a control: that of its form or of the frame that it stands in.
controls::Colour GroundOf(const controls::Control& control);

/// What the panes of all controls but the grid have in common: each does for itself what is not
/// done here.
class ControlPane : public Pane {
 public:
  void Detach() override { control_ = nullptr; }
  void Changed(const controls::Change& change) override;
  void Resized(Size size) override;
  void FocusChanged(bool focused) override;
  /// What the form says of the control.
  Tip TipAt(Point place) const override;

 protected:
  ControlPane(controls::Control& control, PaneHost& host)
      : host_(host), control_(&control), ground_(GroundOf(control)) {}

  PaneHost& Host() const { return host_; }
  Rect Area() const { return {0, 0, size_.width, size_.height}; }
  int Design(double pixels) const { return host_.GetScale().Design(pixels); }
  controls::Colour Ground() const { return ground_; }
  bool Focused() const { return focused_; }
  void RepaintAll() { host_.Repaint(Area()); }
  /// A caption in the middle between top and bottom, the letter of its access key underlined.
  void PaintCaption(Surface& surface, std::string_view caption, const Rect& box,
                    const TextStyle& style) const;
  /// Name, tip, keys and state of the control; the rest is for the pane to say.
  Accessible Described(Role role) const;

 private:
  PaneHost& host_;
  controls::Control* control_;  // null once detached
  controls::Colour ground_;
  Size size_;
  bool focused_ = false;
};

/// The pane of a kind of control.
template <typename Model>
class PaneOfKind : public ControlPane {
 public:
  void Detach() override {
    ControlPane::Detach();
    model_ = nullptr;
  }

 protected:
  PaneOfKind(Model& model, PaneHost& host) : ControlPane(model, host), model_(&model) {}
  /// Null once detached, which any call of a handler may do.
  Model* Shown() const { return model_; }

 private:
  Model* model_;
};

}  // namespace screens
