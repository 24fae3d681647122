#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "adapters/qt/ControlView.h"
#include "controls/Controls.h"

namespace adapters::qt {

class LabelWidget : public ViewOf<QLabel, controls::Label> {
 public:
  LabelWidget(controls::Label& model, const Surroundings& surroundings, QWidget* parent);

 protected:
  void Refresh(const controls::Change& change) override;
};

/// A text box of one line.
class LineWidget : public ViewOf<QLineEdit, controls::TextBox> {
 public:
  LineWidget(controls::TextBox& model, const Surroundings& surroundings, QWidget* parent);

 protected:
  void Refresh(const controls::Change& change) override;
  void focusInEvent(QFocusEvent* event) override;
  /// What is typed or pasted goes in as the model takes it, so that undo knows no other text.
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;

 private:
  void ShowText();
  QString Taken(const QString& text) const;
};

/// A text box of several lines.
class MemoWidget : public ViewOf<QPlainTextEdit, controls::TextBox> {
 public:
  MemoWidget(controls::TextBox& model, const Surroundings& surroundings, QWidget* parent);

 protected:
  void Refresh(const controls::Change& change) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void Typed();
  bool showing_ = false;
};

class ButtonWidget : public ViewOf<QPushButton, controls::Button> {
 public:
  ButtonWidget(controls::Button& model, const Surroundings& surroundings, QWidget* parent);

 protected:
  void Refresh(const controls::Change& change) override;
  /// Enter presses the button that has the focus.
  void keyPressEvent(QKeyEvent* event) override;
};

class CheckWidget : public ViewOf<QCheckBox, controls::CheckBox> {
 public:
  CheckWidget(controls::CheckBox& model, const Surroundings& surroundings, QWidget* parent);

 protected:
  void Refresh(const controls::Change& change) override;
  /// The tick belongs to the model: a click asks it and shows what it says.
  void nextCheckState() override;
};

class ComboWidget : public ViewOf<QComboBox, controls::ComboBox> {
 public:
  ComboWidget(controls::ComboBox& model, const Surroundings& surroundings, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void Refresh(const controls::Change& change) override;
};

/// A box around other widgets, which are its children.
class FrameWidget : public ViewOf<QWidget, controls::Frame> {
 public:
  FrameWidget(controls::Frame& model, const Surroundings& surroundings, QWidget* parent);

 protected:
  void Refresh(const controls::Change& change) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace adapters::qt
