#pragma once

#include <QTimer>
#include <memory>
#include <unordered_map>
#include <vector>

#include "adapters/qt/ErrorGuard.h"
#include "adapters/qt/FormWindow.h"
#include "controls/Screen.h"
#include "screens/WindowPlace.h"

class QEventLoop;

namespace adapters::qt {

/// The Qt desktop as forms see it. Needs a QApplication, which ends with the last form that is
/// unloaded unless its quitOnLastWindowClosed is off; outlives the forms shown on it.
class QtScreen : public controls::Screen {
 public:
  /// `desktop` is for what date boxes call today.
  QtScreen(ErrorGuard& guard, const platform::Desktop& desktop);
  ~QtScreen() override;

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
  /// Of the pages of reports.
  const PageLetters& Letters() const { return letters_; }

  /// The form's window; null before it was first shown and after it was unloaded.
  QWidget* WindowOf(controls::Form& form) const;
  /// The form that a window is of; null for any other window.
  const controls::Form* FormOf(const QWidget* window) const;
  /// The control's widget; null where its form has no window.
  PaneWidget* WidgetOf(controls::Control& control) const;

 private:
  struct ModalRun {
    const controls::Form* form;
    QEventLoop* loop;
    bool ended = false;
  };
  FormWindow& WindowFor(controls::Form& form);
  /// Over which `window` comes up; null for none.
  QWidget* WindowBefore(const QWidget& window) const;
  void RunModal(controls::Form& form);
  void EndModal(const controls::Form& form);
  void DropRetired();

  ErrorGuard& guard_;
  const platform::Desktop& desktop_;
  PageLetters letters_;
  std::unordered_map<const controls::Form*, std::unique_ptr<FormWindow>> windows_;
  // Windows of unloaded forms that a call from one of their own widgets may still return to.
  std::vector<std::unique_ptr<FormWindow>> retired_;
  std::vector<ModalRun*> modal_;
  bool hourglass_ = false;
  screens::PlaceStore* places_ = nullptr;  // null where nothing is remembered
  QTimer dropTimer_;
};

}  // namespace adapters::qt
