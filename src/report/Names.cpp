#include "report/Names.h"

#include <algorithm>

namespace report {

namespace {

using Scopes = std::vector<const Section*>;

bool HasField(const Scopes& around, const std::string& name) {
  return std::any_of(around.begin(), around.end(), [&](const Section* section) {
    return std::find(section->fields.begin(), section->fields.end(), name) != section->fields.end();
  });
}

const Section* FindSection(const Scopes& around, const std::string& name) {
  for (auto outer = around.rbegin(); outer != around.rend(); ++outer) {
    for (const Section& section : (*outer)->inner) {
      if (section.name == name) return &section;
    }
  }
  return nullptr;
}

}  // namespace

void CheckNames(const ReportTemplate& report, const TaggedText& text, const Section& root) {
  Scopes around{&root};
  for (const Tag& tag : text.tags) {
    if (tag.kind == Tag::Kind::kEnd) {
      around.pop_back();
      continue;
    }
    const bool field = HasField(around, tag.name);
    const Section* section = FindSection(around, tag.name);
    if (tag.kind == Tag::Kind::kField && !field) {
      report.Refuse(tag.line, "فيلد «" + tag.name + "» اينجا شناخته نيست.",
                    "no field of this name here: " + tag.name);
    }
    if (!field && section == nullptr) {
      report.Refuse(tag.line, "بخش «" + tag.name + "» اينجا شناخته نيست.",
                    "no section of this name here: " + tag.name);
    }
    // Inside of a field's section, and where a section is empty, there is nothing new to name.
    const bool enters = tag.kind == Tag::Kind::kSection && !field;
    if (tag.kind != Tag::Kind::kField) around.push_back(enters ? section : around.back());
  }
}

}  // namespace report
