#pragma once

#include <QWidget>
#include <unordered_map>

#include "adapters/qt/PaneWidget.h"
#include "controls/Form.h"

namespace adapters::qt {

/// The window of a form, with a pane's for each control. Like those it survives the form once
/// detached.
class FormWindow : public QWidget {
 public:
  FormWindow(controls::Form& form, const Surroundings& surroundings);
  ~FormWindow() override;
  /// The form and its controls are not touched from here on.
  void Detach();
  /// Smaller where the desk has less room than the form was designed for; its layout follows.
  void FitToDesk();
  /// Null for a control of another form.
  PaneWidget* WidgetOf(const controls::Control& control) const;
  /// The form comes up: the keyboard to where it wants it.
  void TakeFirstFocus();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  /// Enter and Esc, where the focused widget has no use for them.
  void keyPressEvent(QKeyEvent* event) override;
  /// By the form's own order: Qt's chain knows nothing of it.
  bool focusNextPrevChild(bool next) override;

 private:
  void MakeWidgets(const controls::Container& container, QWidget& parent);
  void Refresh(const controls::Change& change);
  void FitToForm();
  /// The control whose widget has the keyboard; null for none.
  const controls::Control* Focused() const;

  controls::Form* form_;
  Surroundings surroundings_;
  std::unordered_map<const controls::Control*, PaneWidget*> widgets_;
  controls::Subscription subscription_;
  bool fitting_ = false;
};

}  // namespace adapters::qt
