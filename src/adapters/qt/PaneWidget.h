#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <cstdlib>
#include <memory>
#include <utility>

#include "adapters/qt/ControlView.h"
#include "screens/Pane.h"

namespace adapters::qt {

/// A window for a pane: a thin frame, which shows the focus, scroll bars, and all else the pane's.
/// The pane counts device pixels, Qt does not where the desktop is scaled.
class PaneWidget : public QAbstractScrollArea, public ControlView, private screens::PaneHost {
 public:
  QWidget& Widget() override { return *this; }
  void Detach() override;
  const screens::Pane& Content() const { return *pane_; }
  /// A place on the pane in the viewport's coordinates.
  QRect OnViewport(const screens::Rect& place) const;

 protected:
  PaneWidget(const Surroundings& surroundings, QWidget* parent);
  screens::PaneHost& Host() { return *this; }
  void Show(std::unique_ptr<screens::Pane> pane) { pane_ = std::move(pane); }

  void Refresh(const controls::Change& change) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  screens::Scale GetScale() const override;
  int LineHeight() const override;
  int TextWidth(std::string_view text, screens::Weight weight) const override;
  bool Enabled() const override { return isEnabled(); }
  void Repaint(const screens::Rect& area) override;
  void ScrollPart(const screens::Rect& area, int down) override;
  void SetScrollBar(screens::Axis axis, const screens::ScrollRange& range) override;
  void SetTimer(int milliseconds) override;
  void CopyToClipboard(const std::string& text) override;
  // The next six are not there yet.
  screens::TextField& Field() override { std::abort(); }
  std::unique_ptr<screens::Popup> MakePopup(screens::PopupKind,
                                            const screens::PaneMaker&) override {
    std::abort();
  }
  screens::Size PopupRoom(screens::PopupKind) const override { std::abort(); }
  void TakeFocus() override { std::abort(); }
  std::chrono::sys_days Today() const override { std::abort(); }
  void Announce(screens::Tidings, int) override {}

  template <typename Action>
  void Call(Action&& action) {
    surroundings_.guard.Run([&] { action(*pane_); });
  }
  QFont PaneFont() const;
  screens::Point ToPane(const QPointF& place) const;
  void PassPointer(const QMouseEvent& event, screens::PointerEvent::Action action, int clicks = 1);
  void PassSize();
  void ShowFocus(bool focused);

  Surroundings surroundings_;
  std::unique_ptr<screens::Pane> pane_;
  QBasicTimer timer_;
  bool settingBars_ = false;
};

/// The window of a kind of pane over its model.
template <typename PaneType>
class PaneOf : public PaneWidget {
 public:
  template <typename Model>
  PaneOf(Model& model, const Surroundings& surroundings, QWidget* parent)
      : PaneWidget(surroundings, parent) {
    Show(std::make_unique<PaneType>(model, Host()));
  }
};

}  // namespace adapters::qt
