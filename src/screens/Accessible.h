#pragma once

#include <string>

#include "screens/Rect.h"

namespace screens {

/// What a screen reader calls a thing.
enum class Role {
  kNone,  // nothing that is worth telling
  kGroup,
  kLabel,
  kSign,
  kField,
  kButton,
  kCheckBox,
  kComboBox,  // a field or choice with a list that drops down
  kProgressBar,
  kTable,
  kColumnHeading,
  kCell,
  kList,
  kListItem,
  kNote,
  kDocument
};

/// What a screen reader is told of a pane or of a part of it. Made anew whenever it is asked for.
struct Accessible {
  Role role = Role::kNone;
  std::string name{};         // what it is called: a caption, a label, a cell's column
  std::string value{};        // what it holds
  std::string description{};  // what else there is to know
  std::string keys{};         // "Alt+ث"
  std::string action{};       // what Pane::Act does here; empty for nothing
  Rect place{};               // on the pane; empty where nothing of it is in sight
  int rows = 0;               // of a table, headings included
  int headingRows = 0;        // of a table: so many of the first rows are headings
  int columns = 0;            // of a table, those that are shown
  int row = -1;               // of a table's part
  int column = -1;
  bool enabled = true;
  bool focusable = false;
  bool focused = false;
  bool selectable = false;
  bool selected = false;  // a mark
  bool checkable = false;
  bool checked = false;
  bool expandable = false;
  bool expanded = false;
  bool readOnly = false;
};

/// What has changed for a screen reader.
enum class Tidings { kFocus, kName, kValue, kSelection, kContent, kOpened, kClosed };

}  // namespace screens
