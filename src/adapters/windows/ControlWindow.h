#pragma once

#include "adapters/windows/Theme.h"
#include "adapters/windows/Window.h"
#include "controls/Controls.h"
#include "screens/Following.h"
#include "platform/Clock.h"

namespace adapters::windows {

/// What every window needs besides its model. All of it outlives the windows.
struct Surroundings {
  ErrorGuard& guard;
  const platform::Clock& clock;
  const Theme& theme;
};

/// The tie between a control's model and its window: places the window and keeps it in step. The
/// window must survive its model, because a form may unload itself from within an event of one of
/// its own windows; after Detach() the model is not touched again.
class ControlWindow : public Window {
 public:
  explicit ControlWindow(const Surroundings& surroundings)
      : Window(surroundings.guard), surroundings_(surroundings) {}

  virtual void Detach() = 0;
  /// The window that the keyboard goes to; null for a control that takes no keys.
  virtual HWND FocusTarget() const { return Handle(); }
  /// Shows the whole model and follows it from now on.
  void Follow(controls::Control& control);

 protected:
  /// Shows one aspect of the model. Bounds, enabled and visible are seen to already; kText,
  /// kBounds, kItems, ... all come once at first. Also called for kEnabled and kVisible.
  virtual void Refresh(const controls::Change& change) = 0;
  void Unfollow() { following_.End(); }
  const Surroundings& Around() const { return surroundings_; }
  const Theme& Look() const { return surroundings_.theme; }
  const Scale& GetScale() const { return surroundings_.theme.GetScale(); }
  /// The colour around the control: that of its form or of the frame that it stands in.
  controls::Colour Ground() const { return ground_; }
  /// Whether it and the frames around it are enabled; whether its form is does not count.
  bool Enabled() const;
  /// Whether the keyboard is here or at a window inside.
  bool HasFocus() const;

  /// Keys that no control has taken go to the form (tab, Enter, Esc); the focus
  /// is told to the model; the font is answered.
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Apply(controls::Control& control, const controls::Change& change);
  void PassFocusOn() const;
  Surroundings surroundings_;
  controls::Colour ground_ = controls::palette::kFormGround;
  screens::Following following_;
};

/// Gives a key or character message of a window that is part of a control to the form around it:
/// tab, Enter, Esc. True when the message is used up. Call it for whatever the
/// control itself has no use for; ControlWindow does so for its own window.
bool OfferKeyToForm(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// What a form's window is sent: a key (as WM_KEYDOWN) that none of its controls took, answered
/// with 1 when the form used it up; and that the focused control can have the focus no longer.
inline constexpr UINT kFormKeyDown = WM_APP + 1;
inline constexpr UINT kFormFocusLost = WM_APP + 2;

/// A window that shows `ModelType`. Derived classes make their window in the constructor, override
/// Refresh and OnMessage, and call the model through Call.
template <typename ModelType>
class WindowOf : public ControlWindow {
 public:
  WindowOf(ModelType& model, const Surroundings& surroundings)
      : ControlWindow(surroundings), model_(&model) {}

  void Detach() override {
    Unfollow();
    model_ = nullptr;
  }

 protected:
  /// Null once detached.
  ModelType* Model() const { return model_; }
  /// Runs action(model) under the error guard; does nothing once detached. Returns whether the
  /// model is still there afterwards.
  template <typename Action>
  bool Call(Action&& action) {
    if (model_) Guard().Run([&] { action(*model_); });
    return model_ != nullptr;
  }

 private:
  ModelType* model_;
};

}  // namespace adapters::windows
