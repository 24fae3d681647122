#pragma once

#include "adapters/qt/PaneView.h"

namespace adapters::qt {

/// A small window beside a pane. Qt gives an open list the keyboard and all of the mouse: keys go
/// on to the pane that it belongs to, and a press beside it closes it and is no more.
class PanePopup : public PaneView, public screens::Popup {
 public:
  PanePopup(PaneView& owner, const Surroundings& surroundings, screens::PopupKind kind,
            const screens::PaneMaker& make);
  ~PanePopup() override;

  void Show(screens::Size wanted) override;
  void Hide() override;
  bool Visible() const override { return open_; }

 protected:
  bool event(QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  /// A list does not move with its form.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Leave();

  PaneView& owner_;
  screens::PopupKind kind_;
  bool open_ = false;
};

}  // namespace adapters::qt
