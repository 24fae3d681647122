#pragma once

#include <sqlite3.h>

#include <vector>

#include "adapters/sqlite/Translator.h"
#include "platform/RowSet.h"

namespace adapters::sqlite {

/// No rows yet, of these columns.
platform::RowSet NoRows(const std::vector<ResultColumn>& columns);

/// Appends the row on which the statement stands.
void AppendRow(platform::RowSet& rows, sqlite3_stmt* statement,
               const std::vector<ResultColumn>& columns);

}  // namespace adapters::sqlite
