#pragma once

#include <string_view>

namespace editor {

/// What the editor is doing with its program.
enum class Mode {
  kView = 0,    // an existing program is shown read-only
  kEdit = 1,    // the header of an existing program may be changed
  kCreate = 2,  // a new header is being entered
  kEmpty = 3,   // nothing is loaded
};

/// What the caption of the form adds for a mode; nothing for kEmpty.
std::string_view CaptionSuffix(Mode mode);

/// In which modes a control of the editor is enabled.
struct EnabledIn {
  enum class Condition { kAlways, kTemporary, kFinal };
  std::string_view control;
  bool view;
  bool edit;
  bool create;
  bool empty;
  Condition inView = Condition::kAlways;  // a program is temporary while it has no code

  bool Holds(Mode mode, bool temporary) const;
};

/// The row of a control; null for one that the mode does not touch.
const EnabledIn* FindEnabledIn(std::string_view control);

}  // namespace editor
