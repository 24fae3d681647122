#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "controls/Controls.h"
#include "controls/Form.h"

namespace tools {

/// Height of a one-line field, twips.
inline constexpr controls::Twips kFieldHeight = 375;

/// Where a control stands in its form or frame.
struct Place {
  controls::Twips left;
  controls::Twips top;
  controls::Twips width;
  controls::Twips height = kFieldHeight;
};

/// Which shares of every change of the form's size a control takes.
struct Growth {
  double width = 0;   // of the change of width, added to the control's width
  double left = 0;    // of the change of width, added to its left
  double height = 0;  // of the change of height, added to its height
  double top = 0;     // of the change of height, added to its top
};

/// What names a control that has no caption: a label, or words that are only heard.
struct Name {
  Name() = default;
  explicit(false) Name(const char* words) : heard(words) {}
  /// A label with a row of its own.
  explicit(false) Name(controls::Label& row) : label(&row) {}
  /// A label right of the control, which goes along with it.
  Name(controls::Label& beside, controls::Twips width) : label(&beside), labelWidth(width) {}

  std::string_view heard;
  controls::Label* label = nullptr;
  controls::Twips labelWidth = 0;
};

/// A control in the table of its form. The tab key visits the controls in the order of the table; a
/// frame comes before what stands in it.
struct Row {
  controls::Control& control;
  Place place;
  Growth growth = {};
  std::string_view accessKey = {};  // the label's, where one names the control
  Name name = {};
  unsigned enabledIn = ~0U;  // the modes of its form in which it is enabled, a bit each
};

/// The table of a form: where its controls stand, how they follow its size, how keys reach them,
/// what they are called and when they are enabled.
class Layout {
 public:
  /// While the form is smaller than the lowest width or height, twips, nothing moves.
  explicit Layout(const controls::Form& form, controls::Twips lowest = 0)
      : form_(form), lowest_(lowest) {}

  /// For the size that the form has now.
  void Set(std::initializer_list<Row> rows);
  /// Shifts every control by its shares of the change since the last size that it followed.
  void FollowSize();
  void EnableFor(unsigned mode) const;

 private:
  const controls::Form& form_;
  controls::Twips lowest_;
  controls::Twips width_ = 0;
  controls::Twips height_ = 0;
  std::vector<Row> rows_;
};

}  // namespace tools
