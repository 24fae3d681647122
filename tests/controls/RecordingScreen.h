#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/Form.h"
#include "platform/RuntimeError.h"

/// Writes down what forms ask of it. A modal form is up until whileModal, played in its place,
/// returns; a form that is still visible then is hidden by its close box, as a user would.
class RecordingScreen : public controls::Screen {
 public:
  void Show(controls::Form& form, controls::Modality modality) override {
    if (modality == controls::Modality::kModeless) {
      if (modalForms_ > 0) throw platform::RuntimeError(401, "modal form up");
      calls.push_back("show " + form.Name());
      return;
    }
    calls.push_back("show modal " + form.Name());
    ++modalForms_;
    if (whileModal) whileModal();
    if (form.Visible()) form.CloseBox();
    --modalForms_;
  }
  void Hide(controls::Form& form) override { calls.push_back("hide " + form.Name()); }
  void Unload(controls::Form& form) override { calls.push_back("unload " + form.Name()); }
  void SetFocus(controls::Control& control) override { calls.push_back("focus " + control.Name()); }
  void SetMousePointer(controls::MousePointer) override { calls.emplace_back("pointer"); }

  std::vector<std::string> calls;
  std::function<void()> whileModal;

 private:
  int modalForms_ = 0;
};
