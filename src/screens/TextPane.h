#pragma once

#include "controls/Controls.h"
#include "screens/FieldPane.h"

namespace screens {

/// A box of one line of text.
class TextPane : public PaneOfKind<controls::TextBox, FieldPane> {
 public:
  TextPane(controls::TextBox& box, PaneHost& host);

  void Changed(const controls::Change& change) override;
  void FocusChanged(bool focused) override;
  void Edited() override;
  std::string Taken(const std::string& typed) const override;
  std::string Pasted(const std::string& text) const override;
  Accessible Describe() const override;
};

}  // namespace screens
