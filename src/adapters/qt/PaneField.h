#pragma once

#include <QClipboard>
#include <QLineEdit>

#include "screens/Pane.h"

namespace adapters::qt {

class PaneView;

/// The field in a pane: Qt's own line edit on the pane's ground. What is typed or pasted goes in as
/// the pane takes it, so that undo knows no other text.
class PaneField : public QLineEdit, public screens::TextField {
 public:
  explicit PaneField(PaneView& view);

  void Move(const screens::Rect& place) override;
  void Hide() override;
  bool InUse() const { return !hidden_; }
  std::string Text() const override;
  void SetText(const std::string& text) override;
  void SelectAll() override { selectAll(); }
  void SetLocked(bool locked) override { setReadOnly(locked); }

 protected:
  /// The pane's keys first, those too that Qt would take for the next control.
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QString Taken(const QString& typed) const;
  QString Pasted(const QString& text) const;
  void Paste(QClipboard::Mode from);

  PaneView& view_;
  bool setting_ = false;
  bool hidden_ = false;
};

}  // namespace adapters::qt
