#pragma once

#include "tools/Columns.h"

namespace batch {

// The columns of the batch form's lists.

inline constexpr tools::Column kRegionColumns[] = {
    {"عنوان منطقه", 960, "RegionName", true},
    {"", 0, "ID"},
};
inline constexpr tools::Column kPathColumns[] = {
    {"عنوان مسير", 960, "PathName", true},
    {"", 0, "ID"},
};
inline constexpr tools::Column kDateColumns[] = {
    {"روز", 1650, {}, true},
    {"هفته", 1650},
    {"ماه", 1650},
};
inline constexpr tools::Column kCustomerColumns[] = {
    {"رديف", 900},
    {"کد", 1080, "Code"},
    {"نام", 2400, "Name"},
    {"آدرس", 2460, "Address", true},
    {"موبايل", 1440, "CellPhone"},
    {"تلفن1", 1440, "Phone1"},
    {"تلفن2", 1440, "Phone2"},
    {"مسير", 1500, "PathName"},
    {"منطقه", 900, "RegionName"},
    {"نوع فعاليت", 1350, "WorkActivityName"},
    {"", 0, "ID"},
};
inline constexpr int kCustomerIdCol = 10;

}  // namespace batch
