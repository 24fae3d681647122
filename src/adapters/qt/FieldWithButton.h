#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QToolButton>
#include <functional>

namespace adapters::qt {

/// A line edit with a small button at its left end that opens something below it. F4 and Alt+Down
/// open it too. What the two composite fields of the suite share.
class FieldWithButton : public QLineEdit {
 public:
  enum class Sign { kArrow, kCalendar };
  FieldWithButton(Sign sign, QWidget* parent);
  QToolButton& OpenButton() { return *button_; }

 protected:
  /// Opens what the button opens, or closes it when it is open.
  virtual void Toggle() = 0;
  /// A short note below the field, which goes by itself; an empty text takes it away.
  void ShowNote(const QString& text);
  /// The red border of a text that was not understood.
  void SetRefused(bool refused);
  /// Where a popup of `size` stands: below the field, above it where there is no room below.
  QPoint PopupPlace(const QSize& size) const;

  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QToolButton* button_;
  QPointer<QWidget> note_;
};

}  // namespace adapters::qt
