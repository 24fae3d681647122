#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "controls/Control.h"

namespace controls {

/// A text beside or above another control.
class Label : public Control {
 public:
  /// kSign and kErrorSign are round with a letter in it; kTechnical is a box of text of several
  /// lines that is read from the left.
  enum class Look { kPlain, kStrong, kSign, kErrorSign, kTechnical };
  Label(Container& parent, std::string name, std::string caption = {});
  void Accept(ControlVisitor& visitor) override;
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  Look GetLook() const { return look_; }
  void SetLook(Look look);
  /// The field that it names, for its access key and for who hears the form read; null for none.
  Control* Named() const { return named_; }
  void SetNamed(Control* field) { named_ = field; }

 private:
  std::string caption_;
  Look look_ = Look::kPlain;
  Control* named_ = nullptr;
};

/// One line of text.
class TextBox : public Control {
 public:
  TextBox(Container& parent, std::string name) : Control(parent, std::move(name)) {}
  void Accept(ControlVisitor& visitor) override;
  const std::string& Text() const { return text_; }
  /// Raises onChange when the text is another one; so does typing, which calls this too.
  void SetText(std::string text);
  /// Persian and Arabic digits become Latin ones, whoever sets, types or pastes them.
  void SetLatinDigits(bool latin) { latinDigits_ = latin; }
  /// The form in which the box takes a text, of as many UTF-16 units: what a screen puts into its
  /// field instead of what was typed.
  std::string Taken(std::string text) const;
  /// The same of what came from the clipboard or was dropped: a line break becomes a blank.
  std::string Pasted(std::string text) const;
  /// Set by forms whose boxes select their whole text when the focus arrives.
  bool SelectAllOnFocus() const { return selectAllOnFocus_; }
  void SetSelectAllOnFocus(bool select) { selectAllOnFocus_ = select; }
  /// A locked box can be read and copied from, not changed by the user.
  bool Locked() const { return locked_; }
  void SetLocked(bool locked) { locked_ = locked; }

  std::function<void()> onChange;

 private:
  std::string text_;
  bool selectAllOnFocus_ = false;
  bool latinDigits_ = false;
  bool locked_ = false;
};

class Button : public Control {
 public:
  Button(Container& parent, std::string name, std::string caption);
  void Accept(ControlVisitor& visitor) override;
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  /// A user's click; does nothing while the button is disabled or hidden.
  void Click();

  std::function<void()> onClick;

 private:
  std::string caption_;
};

class CheckBox : public Control {
 public:
  CheckBox(Container& parent, std::string name, std::string caption);
  void Accept(ControlVisitor& visitor) override;
  const std::string& Caption() const { return caption_; }
  bool Checked() const { return checked_; }
  void SetChecked(bool checked);
  /// A user's click: turns the tick over; does nothing while disabled or hidden.
  void Click();

  std::function<void()> onClick;

 private:
  std::string caption_;
  bool checked_ = false;
};

/// A drop-down list; each item carries a number.
class ComboBox : public Control {
 public:
  ComboBox(Container& parent, std::string name);
  void Accept(ControlVisitor& visitor) override;
  /// The screen settles a combo box's height, whatever a form's Move said: throws RuntimeError 383
  /// "Property is read-only".
  void SetHeight(Twips height) override;

  void Clear();
  void AddItem(std::string text);
  /// Index of the item added last; -1 before.
  int NewIndex() const { return static_cast<int>(items_.size()) - 1; }
  int ListCount() const { return static_cast<int>(items_.size()); }
  /// -1 when nothing is chosen. An index outside the list throws RuntimeError 380.
  int ListIndex() const { return listIndex_; }
  void SetListIndex(int index);
  /// Both throw RuntimeError 381 for an index outside the list.
  const std::string& List(int index) const;
  std::int32_t ItemData(int index) const;
  void SetItemData(int index, std::int32_t data);

  std::function<void()> onClick;  // another item was chosen

 private:
  struct Item {
    std::string text;
    std::int32_t data = 0;
  };
  const Item& At(int index) const;
  std::vector<Item> items_;
  int listIndex_ = -1;
};

/// How far work has come.
class ProgressBar : public Control {
 public:
  ProgressBar(Container& parent, std::string name) : Control(parent, std::move(name)) {}
  void Accept(ControlVisitor& visitor) override;
  /// Of the whole, from 0 to 1; less than 0 while nobody can tell.
  double Share() const { return share_; }
  void SetShare(double share);

 private:
  double share_ = 0;
};

/// A titled or plain box around other controls.
class Frame : public Control, public Container {
 public:
  enum class Border { kNone, kLine };
  Frame(Container& parent, std::string name, std::string caption = {},
        Border border = Border::kLine);
  void Accept(ControlVisitor& visitor) override;
  Form& OwnForm() override { return ParentForm(); }
  const std::string& Caption() const { return caption_; }
  Border BorderStyle() const { return border_; }
  /// What Enter clicks in the fields of the frame instead of the form's default button; null for
  /// none.
  Button* DefaultButton() const { return defaultButton_; }
  void SetDefaultButton(Button* button) { defaultButton_ = button; }

 private:
  std::string caption_;
  Border border_;
  Button* defaultButton_ = nullptr;
};

class DateBox;
class FlexGrid;
class PageView;
class Selector;

/// How a screen finds out what kind a control is: one method a kind, and no others exist.
class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;
  virtual void Visit(Label& label) = 0;
  virtual void Visit(TextBox& textBox) = 0;
  virtual void Visit(Button& button) = 0;
  virtual void Visit(CheckBox& checkBox) = 0;
  virtual void Visit(ComboBox& comboBox) = 0;
  virtual void Visit(ProgressBar& bar) = 0;
  virtual void Visit(Frame& frame) = 0;
  virtual void Visit(DateBox& dateBox) = 0;
  virtual void Visit(Selector& selector) = 0;
  virtual void Visit(FlexGrid& grid) = 0;
  virtual void Visit(PageView& pages) = 0;
};

}  // namespace controls
