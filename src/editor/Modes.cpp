#include "editor/Modes.h"

#include <algorithm>
#include <iterator>

namespace editor {

namespace {

using enum EnabledIn::Condition;

// clang-format off
constexpr EnabledIn kTable[] = {
    // control             view   edit   create empty
    {"cmdNew",             true,  true,  false, true},
    {"cmdEdit",            true,  false, false, false, kTemporary},
    {"cmdDelete",          true,  false, false, false, kTemporary},
    {"cmdTempSave",        false, true,  true,  false},
    {"cmdFinalSave",       false, true,  true,  false},
    {"cmdPreview",         true,  false, false, false},
    {"cmdViewAccountDoc",  true,  false, false, false},
    {"cmdBackToTemp",      true,  false, false, false, kFinal},
    {"cmdCancel",          false, true,  true,  false},
    {"cmdSearch",          true,  true,  true,  true},
    {"cmdAddBatch",        true,  false, false, false, kTemporary},
    {"cmdSelectAll",       true,  false, false, false, kTemporary},
    {"cmdSelectInverse",   true,  false, false, false, kTemporary},
    {"cmdSelectNone",      true,  false, false, false, kTemporary},
    {"cmdDeleteSelected",  true,  false, false, false, kTemporary},
    {"txtID",              false, false, false, false},
    {"txtCode",            false, false, false, false},
    {"sltCreator",         false, false, false, false},
    {"datCreateDate",      false, false, false, false},
    {"sltSupervisor",      false, true,  true,  false},
    {"sltBranch",          false, true,  true,  false},
    {"txtDescription",     false, true,  true,  false},
};
// clang-format on

}  // namespace

std::string_view CaptionSuffix(Mode mode) {
  switch (mode) {
    case Mode::kView:
      return " (مشاهده)";
    case Mode::kEdit:
      return " (اصلاح)";
    case Mode::kCreate:
      return " (ايجاد)";
    case Mode::kEmpty:
      break;
  }
  return {};
}

bool EnabledIn::Holds(Mode mode, bool temporary) const {
  switch (mode) {
    case Mode::kView:
      return view && (inView == kAlways || (inView == kTemporary) == temporary);
    case Mode::kEdit:
      return edit;
    case Mode::kCreate:
      return create;
    case Mode::kEmpty:
      break;
  }
  return empty;
}

const EnabledIn* FindEnabledIn(std::string_view control) {
  const auto* row = std::find_if(std::begin(kTable), std::end(kTable),
                                 [control](const EnabledIn& r) { return r.control == control; });
  return row == std::end(kTable) ? nullptr : row;
}

}  // namespace editor
