#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "controls/Form.h"
#include "controls/Screen.h"
#include "support/Events.h"

namespace support {

/// A screen without windows. What the user does on a modal form is queued beforehand; the form is
/// hidden afterwards if it still shows. A modal form without a queued action, and an action left
/// over at the end, fail the test.
class FakeScreen : public controls::Screen {
 public:
  explicit FakeScreen(Events& events) : events_(events) {}
  ~FakeScreen() override;
  FakeScreen(const FakeScreen&) = delete;
  FakeScreen& operator=(const FakeScreen&) = delete;

  /// What the user does on the next modal form.
  void OnModal(std::function<void(controls::Form&)> action) {
    actions_.push_back(std::move(action));
  }
  /// The same for a form of a known kind; another kind throws std::bad_cast.
  template <typename FormKind>
  void OnModalForm(std::function<void(FormKind&)> action) {
    OnModal([action = std::move(action)](controls::Form& form) {
      action(dynamic_cast<FormKind&>(form));
    });
  }
  /// What the user does on a modal form for which nothing is queued.
  std::function<void(controls::Form&)> otherwise;
  /// The host is showing a modal form: showing modeless throws 401, as it does while one of the
  /// module's own is up.
  bool hostIsModal = false;
  /// What the user does on a form that waits.
  std::function<void()> onBreathe;

  /// "show FormMain modeless", "show FormAddBatch modal",
  /// "show ProgressForm waiting", "hide FormMain", "unload FormMain",
  /// "focus txtNotes", "pointer 11", in order.
  std::vector<std::string> log;
  controls::MousePointer pointer = controls::MousePointer::kDefault;
  std::string clipboard;

  void Show(controls::Form& form, controls::Modality modality) override;
  void Hide(controls::Form& form) override { Note("hide " + form.Name()); }
  void Unload(controls::Form& form) override { Note("unload " + form.Name()); }
  void Breathe() override {
    if (onBreathe) onBreathe();
  }
  void SetFocus(controls::Control& control) override { Note("focus " + control.Name()); }
  controls::MousePointer GetMousePointer() const override { return pointer; }
  void SetMousePointer(controls::MousePointer newPointer) override;
  void Beep() override { Note("beep"); }
  void CopyToClipboard(const std::string& text) override { clipboard = text; }
  /// Letters are 6 pixels wide, lines 15 high.
  controls::Twips TextWidth(std::string_view text) const override;
  controls::Twips LineHeight() const override { return 225; }

 private:
  void Note(const std::string& line);
  Events& events_;
  int modalDepth_ = 0;
  std::deque<std::function<void(controls::Form&)>> actions_;
};

}  // namespace support
