#pragma once

#include <QFocusEvent>
#include <QWidget>
#include <utility>

#include "adapters/qt/Convert.h"
#include "adapters/qt/ErrorGuard.h"
#include "screens/Following.h"
#include "platform/Clock.h"

namespace adapters::qt {

/// What every widget needs besides its model. All of it outlives the widgets.
struct Surroundings {
  ErrorGuard& guard;
  const platform::Clock& clock;
};

/// The tie between a control's model and its widget: places the widget and keeps it in step. The
/// widget must survive its model, because a form may unload itself from within an event of one of
/// its own widgets; after Detach() the model is not touched again.
class ControlView {
 public:
  virtual ~ControlView() = default;
  virtual QWidget& Widget() = 0;
  virtual void Detach() = 0;

  /// Shows the whole model and follows it from now on.
  void Follow(controls::Control& control);

 protected:
  /// Shows one aspect of the model. Bounds, enabled and visible are seen to already.
  virtual void Refresh(const controls::Change& change) = 0;
  void Unfollow() { following_.End(); }

 private:
  void Apply(controls::Control& control, const controls::Change& change);
  screens::Following following_;
};

/// A Qt widget that shows `Model`. Derived classes override Refresh and call the model through
/// Call.
template <typename Base, typename ModelType>
class ViewOf : public Base, public ControlView {
 public:
  template <typename... Arguments>
  ViewOf(ModelType& model, const Surroundings& surroundings, QWidget* parent,
         Arguments&&... arguments)
      : Base(std::forward<Arguments>(arguments)..., parent),
        model_(&model),
        surroundings_(surroundings) {}

  QWidget& Widget() override { return *this; }
  void Detach() override {
    Unfollow();
    model_ = nullptr;
  }

 protected:
  /// Null once detached.
  ModelType* Model() const { return model_; }
  const Surroundings& Around() const { return surroundings_; }
  /// Runs action(model) under the error guard; does nothing once detached. Returns whether the
  /// model is still there afterwards.
  template <typename Action>
  bool Call(Action&& action) {
    if (model_) surroundings_.guard.Run([&] { action(*model_); });
    return model_ != nullptr;
  }

 private:
  ModelType* model_;
  Surroundings surroundings_;
};

}  // namespace adapters::qt
