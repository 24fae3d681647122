#include "controls/Controls.h"

#include "platform/RuntimeError.h"
#include "text/Fold.h"

namespace controls {

Label::Label(Container& parent, std::string name, std::string caption)
    : Control(parent, std::move(name)), caption_(std::move(caption)) {}

void Label::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void Label::SetCaption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  Notify(Aspect::kText);
}

void Label::SetLook(Look look) {
  if (look_ == look) return;
  look_ = look;
  Notify(Aspect::kText);
}

void TextBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

std::string TextBox::Taken(std::string text) const {
  return latinDigits_ ? text::LatinDigits(text) : std::move(text);
}

std::string TextBox::Pasted(std::string text) const {
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && text[i + 1] == '\n') continue;
    line += text[i] == '\r' || text[i] == '\n' ? ' ' : text[i];
  }
  return Taken(std::move(line));
}

void TextBox::SetText(std::string text) {
  text = Taken(std::move(text));
  if (text_ == text) return;
  text_ = std::move(text);
  Notify(Aspect::kText);
  if (onChange) onChange();
}

Button::Button(Container& parent, std::string name, std::string caption)
    : Control(parent, std::move(name)), caption_(std::move(caption)) {}

void Button::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void Button::SetCaption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  Notify(Aspect::kText);
}

void Button::Click() {
  if (Enabled() && Visible() && onClick) onClick();
}

CheckBox::CheckBox(Container& parent, std::string name, std::string caption)
    : Control(parent, std::move(name)), caption_(std::move(caption)) {}

void CheckBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void CheckBox::SetChecked(bool checked) {
  if (checked_ == checked) return;
  checked_ = checked;
  Notify(Aspect::kText);
}

void CheckBox::Click() {
  if (!Enabled() || !Visible()) return;
  SetChecked(!checked_);
  if (onClick) onClick();
}

ComboBox::ComboBox(Container& parent, std::string name) : Control(parent, std::move(name)) {}

void ComboBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void ComboBox::SetHeight(Twips /*height*/) {
  throw platform::RuntimeError(383, "Property is read-only");
}

void ComboBox::Clear() {
  if (items_.empty()) return;
  items_.clear();
  listIndex_ = -1;
  Notify(Aspect::kItems);
}

void ComboBox::AddItem(std::string text) {
  items_.push_back({std::move(text)});
  Notify(Aspect::kItems);
}

void ComboBox::SetListIndex(int index) {
  if (index < -1 || index >= ListCount()) {
    throw platform::RuntimeError(platform::kInvalidPropertyValue, "Invalid property value");
  }
  if (listIndex_ == index) return;
  listIndex_ = index;
  Notify(Aspect::kText);
  if (onClick) onClick();
}

const std::string& ComboBox::List(int index) const {
  return At(index).text;
}

std::int32_t ComboBox::ItemData(int index) const {
  return At(index).data;
}

void ComboBox::SetItemData(int index, std::int32_t data) {
  At(index);
  items_[static_cast<std::size_t>(index)].data = data;
}

const ComboBox::Item& ComboBox::At(int index) const {
  if (index < 0 || index >= ListCount()) {
    throw platform::RuntimeError(platform::kSubscriptOutOfRange, "Subscript out of range");
  }
  return items_[static_cast<std::size_t>(index)];
}

void ProgressBar::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void ProgressBar::SetShare(double share) {
  if (share_ == share) return;
  share_ = share;
  Notify(Aspect::kText);
}

Frame::Frame(Container& parent, std::string name, std::string caption, Border border)
    : Control(parent, std::move(name)), caption_(std::move(caption)), border_(border) {}

void Frame::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

}  // namespace controls
