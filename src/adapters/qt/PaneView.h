#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QEvent>
#include <memory>

#include "adapters/qt/Surroundings.h"
#include "screens/Pane.h"

class QHelpEvent;

namespace adapters::qt {

class PaneField;

/// A screen reader did what a part (-1: the pane) is for.
class ActEvent : public QEvent {
 public:
  static constexpr auto kType = static_cast<Type>(User + 1);
  explicit ActEvent(int part) : QEvent(kType), part_(part) {}
  int Part() const { return part_; }

 private:
  int part_;
};

/// A window for a pane: hands events on and does what the pane asks for. One that scrolls has a
/// thin frame, which shows the focus, and scroll bars. The pane counts device pixels, Qt does not
/// where the desktop is scaled.
class PaneView : public QAbstractScrollArea, private screens::PaneHost {
 public:
  PaneView(const Surroundings& surroundings, QWidget* parent);
  ~PaneView() override;

  const screens::Pane& Content() const { return *pane_; }
  /// Null while the window is made or ends.
  const screens::Pane* ContentOrNull() const { return pane_.get(); }
  /// A place on the pane in the viewport's coordinates, and the way back.
  QRect OnViewport(const screens::Rect& place) const;
  screens::Point ToPane(const QPointF& place) const;
  /// What has the keyboard while the pane has it.
  QWidget& KeyReceiver();

  /// Runs action(pane) under the error guard.
  template <typename Action>
  void Call(Action&& action) {
    if (pane_) surroundings_.guard.Run([&] { action(*pane_); });
  }
  /// Returns false for a key that the pane has no use for.
  bool PressKey(const QKeyEvent& event);
  /// The pane got the keyboard or lost it; not for the time of a menu or list over it.
  void PassFocus(const QFocusEvent& event);

 protected:
  screens::PaneHost& Host() { return *this; }
  void SetPane(std::unique_ptr<screens::Pane> pane) { pane_ = std::move(pane); }
  void SetFramed();

  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override { PassFocus(*event); }
  void focusOutEvent(QFocusEvent* event) override { PassFocus(*event); }
  void timerEvent(QTimerEvent* event) override;
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
  screens::TextField& Field() override;
  std::unique_ptr<screens::Popup> MakePopup(screens::PopupKind kind,
                                            const screens::PaneMaker& make) override;
  screens::Size PopupRoom(screens::PopupKind kind) const override;
  void TakeFocus() override { setFocus(Qt::OtherFocusReason); }
  std::chrono::sys_days Today() const override { return surroundings_.desktop.Today(); }
  void Announce(screens::Tidings what, int part) override;

  bool HasField() const;
  /// As large in device pixels as the window's is in Qt's.
  QFont PaneFont() const;
  screens::Size InDevicePixels(const QSize& size) const;
  void PassPointer(const QMouseEvent& event);
  void PassSize();
  void PaintFrame();
  void ShowTip(const QHelpEvent& event);

  Surroundings surroundings_;
  PaneField* field_ = nullptr;
  QBasicTimer timer_;
  bool settingBars_ = false;
  std::unique_ptr<screens::Pane> pane_;
};

}  // namespace adapters::qt
