#pragma once

#include <map>
#include <set>
#include <string>

#include "editor/FormMain.h"
#include "support/AllControls.h"

namespace editor {

/// What the editor's caption says of its mode and, of a program that is looked at, its code.
inline std::string StateOf(const FormMain& form) {
  const std::size_t at = form.Caption().find('(');
  const std::string said = at == std::string::npos ? "" : form.Caption().substr(at);
  return said != "(مشاهده)" ? said : form.txtCode.Text().empty() ? "temporary" : "final";
}
inline bool IsView(const std::string& state) {
  return state == "temporary" || state == "final";
}

/// The fields and buttons that the user may use in a state.
inline const std::set<std::string>& UsableIn(const std::string& state) {
  static const std::set<std::string> header{"cmdTempSave",   "cmdFinalSave",  "cmdCancel",
                                            "cmdSearch",     "sltSupervisor", "sltBranch",
                                            "txtDescription"};
  static const std::map<std::string, std::set<std::string>> states{
      {"", {"cmdNew", "cmdSearch"}},
      {"temporary",
       {"cmdNew", "cmdEdit", "cmdDelete", "cmdPreview", "cmdViewAccountDoc", "cmdSearch",
        "cmdAddBatch", "cmdSelectAll", "cmdSelectInverse", "cmdSelectNone", "cmdDeleteSelected"}},
      {"final", {"cmdNew", "cmdPreview", "cmdViewAccountDoc", "cmdBackToTemp", "cmdSearch"}},
      {"(ايجاد)", header},
      {"(اصلاح)", [] {
         std::set<std::string> names = header;
         names.insert("cmdNew");
         return names;
       }()}};
  return states.at(state);
}

inline std::set<std::string> UsableNow(const FormMain& form) {
  std::set<std::string> names;
  for (const controls::Control* control : support::AllControls(form)) {
    const bool shows = dynamic_cast<const controls::Label*>(control) != nullptr ||
                       dynamic_cast<const controls::Frame*>(control) != nullptr ||
                       control == &form.flxDetail;
    if (!shows && control->Reachable()) names.insert(control->Name());
  }
  return names;
}

}  // namespace editor
