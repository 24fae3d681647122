#pragma once

#include <string_view>

namespace demo {

/// A report template that every office lists; its file is in demo/templates.
struct ShippedTemplate {
  std::string_view title;
  std::string_view file;
  int since;  // the first version of an office (OfficeVersion.h) that has it
};

inline constexpr ShippedTemplate kShippedTemplates[] = {
    {"برنامه با ويزيتها به تفکيک روز", "program-by-day.html", 1},
    {"برگه راه بازارياب", "promoter-day-sheet.html", 1},
    {"تقويم ماهانه بازارياب", "promoter-month.html", 2},
    {"خلاصه ويزيت ها", "visit-summary.html", 2},
    {"پوشش مسيرها", "path-coverage.html", 2},
};
inline constexpr int kTemplateFormType = 3308;

}  // namespace demo
