#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "adapters/windows/FormWindow.h"
#include "controls/Screen.h"
#include "screens/WindowPlace.h"

namespace adapters::windows {

class ModalLoop;

/// Windows' desktop as forms see it, inside whatever host runs the thread's messages: the windows
/// of modeless forms see to their keys themselves, and a modal form runs the messages of the thread
/// until it hides. Outlives the forms shown on it; belongs to the thread that made it.
class WinScreen : public controls::Screen {
 public:
  /// All three outlive the screen. `desktop` is for what date boxes call today.
  WinScreen(ErrorGuard& guard, const platform::Desktop& desktop, const Theme& theme);
  ~WinScreen() override;

  /// The host's frame window: forms stay above it and first appear in its middle. Null for none.
  /// Forms that stand over the one before move, but for one that `frame` itself stands over.
  void SetHostWindow(HWND frame);
  /// Whether the host has a modal dialog of its own up, as far as it tells (a frame window that it
  /// disabled says so too).
  void SetHostModal(bool modal) { hostModal_ = modal; }

  void Show(controls::Form& form, controls::Modality modality) override;
  void Hide(controls::Form& form) override;
  void Unload(controls::Form& form) override;
  /// Throws RuntimeError 5 when the control's form has no window.
  void SetFocus(controls::Control& control) override;
  controls::MousePointer GetMousePointer() const override {
    return hourglass_ ? controls::MousePointer::kHourglass : controls::MousePointer::kDefault;
  }
  void SetMousePointer(controls::MousePointer pointer) override;
  void Beep() override;
  void CopyToClipboard(const std::string& text) override;
  void Breathe() override;
  controls::Twips TextWidth(std::string_view text) const override;
  controls::Twips LineHeight() const override;

  /// Windows that can be sized come back where they stood, from here on; the store outlives this.
  void RememberPlaces(screens::PlaceStore& store) { places_ = &store; }

  /// The form that a window is of; null for any other window.
  const controls::Form* FormOf(HWND window) const;
  /// The form's window; null before it was first shown and after it was unloaded.
  HWND WindowOf(const controls::Form& form) const;
  /// The control's window; null where its form has no window.
  HWND WindowOf(const controls::Control& control) const;

 private:
  struct ModalRun {
    const controls::Form* form;
    ModalLoop* loop;
  };
  struct Waiting {
    const controls::Form* form;
    std::unique_ptr<ModalLoop> others;
  };
  /// Asks, once messages run again, to drop the windows of unloaded forms.
  class Dropper;

  FormWindow& WindowFor(controls::Form& form, HWND owner);
  PaneWindow* ViewOf(const controls::Control& control) const;
  bool ModalUp() const;
  void RunModal(controls::Form& form, HWND window, int show);
  void EndModal(const controls::Form& form);
  void Retire(std::unique_ptr<FormWindow> window);
  void DropRetired();

  Surroundings surroundings_;
  HWND host_ = nullptr;
  bool hostModal_ = false;
  bool hourglass_ = false;
  screens::PlaceStore* places_ = nullptr;  // null where nothing is remembered
  std::unordered_map<const controls::Form*, std::unique_ptr<FormWindow>> windows_;
  // Windows of unloaded forms that a call from one of their own windows may still return to.
  std::vector<std::unique_ptr<FormWindow>> retired_;
  std::vector<ModalRun> modal_;
  std::vector<Waiting> waiting_;
  std::unique_ptr<Dropper> dropper_;
};

}  // namespace adapters::windows
