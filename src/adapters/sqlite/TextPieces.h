#pragma once

#include <sqlite3.h>

namespace adapters::sqlite {

/// The function that joins pieces of a value's text (kPiecesFunction in Functions.h); false when
/// SQLite refused it.
bool RegisterTextPieces(sqlite3* database);

}  // namespace adapters::sqlite
