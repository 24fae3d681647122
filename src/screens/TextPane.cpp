#include "screens/TextPane.h"

namespace screens {

TextPane::TextPane(controls::TextBox& box, PaneHost& host)
    : FieldPane(box, host, Sign::kNone), box_(&box) {
  host.Field().SetLocked(box.Locked());
}

void TextPane::Detach() {
  FieldPane::Detach();
  box_ = nullptr;
}

void TextPane::Changed(const controls::Change& change) {
  if (box_ != nullptr && change.aspect == controls::Aspect::kText) {
    Host().Field().SetText(box_->Text());
  }
  FieldPane::Changed(change);
}

void TextPane::Resized(Size size) {
  FieldPane::Resized(size);
  Host().Field().Move(Inside());
}

void TextPane::FocusChanged(bool focused) {
  FieldPane::FocusChanged(focused);
  if (focused && box_ != nullptr && box_->SelectAllOnFocus()) Host().Field().SelectAll();
}

void TextPane::Edited() {
  if (box_ == nullptr) return;
  // What came past keys and clipboard may not be taken as it is, nor may the handler leave it so.
  box_->SetText(box_->Pasted(Host().Field().Text()));
  if (box_ != nullptr) Host().Field().SetText(box_->Text());
}

std::string TextPane::Taken(const std::string& typed) const {
  return box_ == nullptr ? typed : box_->Taken(typed);
}

std::string TextPane::Pasted(const std::string& text) const {
  return box_ == nullptr ? text : box_->Pasted(text);
}

Accessible TextPane::Describe() const {
  Accessible described = Described(Role::kField);
  described.focusable = true;
  if (box_ == nullptr) return described;
  described.value = box_->Text();
  described.readOnly = box_->Locked();
  return described;
}

}  // namespace screens
