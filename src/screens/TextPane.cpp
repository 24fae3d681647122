#include "screens/TextPane.h"

namespace screens {

TextPane::TextPane(controls::TextBox& box, PaneHost& host)
    : PaneOfKind(box, host, Sign::kNone, Holds::kField) {
  host.Field().SetLocked(box.Locked());
}

void TextPane::Changed(const controls::Change& change) {
  if (Shown() != nullptr && change.aspect == controls::Aspect::kText) {
    Host().Field().SetText(Shown()->Text());
  }
  FieldPane::Changed(change);
}

void TextPane::FocusChanged(bool focused) {
  FieldPane::FocusChanged(focused);
  if (focused && Shown() != nullptr && Shown()->SelectAllOnFocus()) Host().Field().SelectAll();
}

void TextPane::Edited() {
  if (Shown() == nullptr) return;
  // What came past keys and clipboard may not be taken as it is, nor may the handler leave it so.
  Shown()->SetText(Shown()->Pasted(Host().Field().Text()));
  if (Shown() != nullptr) Host().Field().SetText(Shown()->Text());
}

std::string TextPane::Taken(const std::string& typed) const {
  return Shown() == nullptr ? typed : Shown()->Taken(typed);
}

std::string TextPane::Pasted(const std::string& text) const {
  return Shown() == nullptr ? text : Shown()->Pasted(text);
}

Accessible TextPane::Describe() const {
  Accessible described = Described(Role::kField);
  described.focusable = true;
  if (Shown() == nullptr) return described;
  described.value = Shown()->Text();
  described.readOnly = Shown()->Locked();
  return described;
}

}  // namespace screens
