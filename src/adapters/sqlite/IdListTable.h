#pragma once

#include <sqlite3.h>

namespace adapters::sqlite {

/// The table-valued function of ID lists (see Functions.h); false when SQLite refused it.
bool RegisterIdListTable(sqlite3* database);

}  // namespace adapters::sqlite
