#pragma once

#include <initializer_list>

#include "controls/Controls.h"

namespace tools {

/// Height of a one-line field, twips.
inline constexpr controls::Twips kFieldHeight = 375;

/// Where a label and its field stand in a row that is read from right to left.
struct FieldPlace {
  controls::Twips right;  // of the label
  controls::Twips top;
  controls::Twips labelWidth;
  controls::Twips fieldWidth;
};

/// Places a label and, at its left, its field. Returns where the next pair of the row may begin.
inline controls::Twips PlaceField(controls::Control& label, controls::Control& field,
                                  const FieldPlace& place) {
  const controls::Twips gap = 90;
  label.Move(place.right - place.labelWidth, place.top, place.labelWidth, kFieldHeight);
  field.Move(label.Left() - gap - place.fieldWidth, place.top, place.fieldWidth, kFieldHeight);
  return field.Left() - 2 * gap;
}

inline void SetTabOrder(std::initializer_list<controls::Control*> controls) {
  int index = 0;
  for (controls::Control* control : controls) control->SetTabIndex(index++);
}

}  // namespace tools
