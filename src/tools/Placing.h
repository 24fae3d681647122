#pragma once

#include <initializer_list>
#include <string>

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

/// Places a label and, at its left, the field that it names. Returns where the next pair of the row
/// may begin.
inline controls::Twips PlaceField(controls::Label& label, controls::Control& field,
                                  const FieldPlace& place) {
  label.SetNamed(&field);
  const controls::Twips gap = 90;
  label.Move(place.right - place.labelWidth, place.top, place.labelWidth, kFieldHeight);
  field.Move(label.Left() - gap - place.fieldWidth, place.top, place.fieldWidth, kFieldHeight);
  return field.Left() - 2 * gap;
}

inline void SetTabOrder(std::initializer_list<controls::Control*> controls) {
  int index = 0;
  for (controls::Control* control : controls) control->SetTabIndex(index++);
}

struct KeyedControl {
  controls::Control& control;
  std::string letter;
};

/// The letters that reach buttons, and the fields of labels, with Alt.
inline void SetAccessKeys(std::initializer_list<KeyedControl> keyed) {
  for (const auto& [control, letter] : keyed) control.SetAccessKey(letter);
}

}  // namespace tools
