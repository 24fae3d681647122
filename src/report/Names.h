#pragma once

#include <string>
#include <vector>

#include "report/ReportTemplate.h"

namespace report {

/// What a section of the template may name: its own fields, and the sections in it.
struct Section {
  std::string name;
  std::vector<std::string> fields;
  std::vector<Section> inner;
};

/// Mustache leaves out what it does not know without a word; here every tag of `text` must name a
/// field or a section that stands in one of the sections around it. `root` is the outermost.
/// Throws ReportError 321 for the first that does not.
void CheckNames(const ReportTemplate& report, const TaggedText& text, const Section& root);

}  // namespace report
