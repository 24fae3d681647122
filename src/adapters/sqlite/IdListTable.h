#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <optional>
#include <string_view>

namespace adapters::sqlite {

/// The table-valued function of ID lists (see Functions.h); false when SQLite refused it.
bool RegisterIdListTable(sqlite3* database);

/// A decimal whole number with blanks around it at most; nothing for any other text.
std::optional<std::int64_t> WholeNumberOf(std::string_view text);

}  // namespace adapters::sqlite
