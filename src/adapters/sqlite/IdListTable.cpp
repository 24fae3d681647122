#include "adapters/sqlite/IdListTable.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <string>
#include <vector>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Functions.h"
#include "adapters/sqlite/Types.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

constexpr int kIdColumn = 0;
/// The function's argument is a hidden column that the statement sets equal to it.
constexpr int kListColumn = 1;
constexpr sqlite3_int64 kRowsUnlessKnown = 1000;

struct Cursor : sqlite3_vtab_cursor {
  std::string list;
  std::vector<std::int32_t> ids;
  std::size_t row = 0;
};

Cursor& CursorOf(sqlite3_vtab_cursor* cursor) {
  return *static_cast<Cursor*>(cursor);
}

int Connect(sqlite3* database, void*, int, const char* const*, sqlite3_vtab** table, char**) {
  const int result = sqlite3_declare_vtab(database, "CREATE TABLE x(ID INTEGER, List TEXT HIDDEN)");
  if (result != SQLITE_OK) return result;
  *table = new (std::nothrow) sqlite3_vtab{};
  return *table == nullptr ? SQLITE_NOMEM : SQLITE_OK;
}

int Disconnect(sqlite3_vtab* table) {
  delete table;
  return SQLITE_OK;
}

/// Tells the planner how long a list is that stands in the statement, so that the shorter of two
/// crossed lists becomes the outer loop.
int BestIndex(sqlite3_vtab*, sqlite3_index_info* info) {
  for (int i = 0; i < info->nConstraint; ++i) {
    const auto& constraint = info->aConstraint[i];
    if (constraint.iColumn != kListColumn || constraint.op != SQLITE_INDEX_CONSTRAINT_EQ) continue;
    if (constraint.usable == 0) return SQLITE_CONSTRAINT;
    info->aConstraintUsage[i].argvIndex = 1;
    info->aConstraintUsage[i].omit = 1;
    sqlite3_value* list = nullptr;
    sqlite3_int64 rows = kRowsUnlessKnown;
    if (sqlite3_vtab_rhs_value(info, i, &list) == SQLITE_OK &&
        sqlite3_value_type(list) == SQLITE_TEXT) {
      const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(list));
      const std::string_view written(text, static_cast<std::size_t>(sqlite3_value_bytes(list)));
      rows = std::count(written.begin(), written.end(), ',') + 1;
    }
    info->estimatedRows = rows;
    info->estimatedCost = static_cast<double>(rows);
    return SQLITE_OK;
  }
  return SQLITE_CONSTRAINT;
}

int Open(sqlite3_vtab*, sqlite3_vtab_cursor** cursor) {
  *cursor = new (std::nothrow) Cursor{};
  return *cursor == nullptr ? SQLITE_NOMEM : SQLITE_OK;
}

int Close(sqlite3_vtab_cursor* cursor) {
  delete &CursorOf(cursor);
  return SQLITE_OK;
}

/// CONVERT alone takes the empty text and a sign without digits for 0.
std::int32_t IdOf(std::string_view element) {
  const std::string_view digits = text::Trim(element);
  const bool isNumber = !digits.empty() && digits != "-" && !digits.starts_with('+');
  return IntOf(isNumber ? std::string(element) : "'" + std::string(element) + "'");
}

/// Splits the list; an inner loop comes here with the same list again and again.
int Filter(sqlite3_vtab_cursor* base, int, const char*, int count, sqlite3_value** values) {
  Cursor& cursor = CursorOf(base);
  cursor.row = 0;
  const auto* text =
      count == 1 ? reinterpret_cast<const char*>(sqlite3_value_text(values[0])) : nullptr;
  const std::string_view list =
      text == nullptr
          ? std::string_view()
          : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(values[0])));
  if (list == cursor.list) return SQLITE_OK;
  try {
    cursor.ids.clear();
    cursor.list.clear();
    for (std::size_t from = 0; !list.empty() && from <= list.size();) {
      const std::size_t end = std::min(list.find(',', from), list.size());
      cursor.ids.push_back(IdOf(list.substr(from, end - from)));
      from = end + 1;
    }
    cursor.list = list;
  } catch (const platform::RuntimeError& error) {
    sqlite3_free(base->pVtab->zErrMsg);
    base->pVtab->zErrMsg = sqlite3_mprintf("%s", error.what());
    return FunctionErrorCode(error.Number());
  } catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
  }
  return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor* cursor) {
  ++CursorOf(cursor).row;
  return SQLITE_OK;
}

int AtEnd(sqlite3_vtab_cursor* cursor) {
  return CursorOf(cursor).row >= CursorOf(cursor).ids.size() ? 1 : 0;
}

int Column(sqlite3_vtab_cursor* base, sqlite3_context* context, int column) {
  const Cursor& cursor = CursorOf(base);
  if (column == kIdColumn) {
    sqlite3_result_int(context, cursor.ids[cursor.row]);
  } else {
    sqlite3_result_text64(context, cursor.list.data(), cursor.list.size(), SQLITE_TRANSIENT,
                          SQLITE_UTF8);
  }
  return SQLITE_OK;
}

int RowId(sqlite3_vtab_cursor* cursor, sqlite3_int64* id) {
  *id = static_cast<sqlite3_int64>(CursorOf(cursor).row);
  return SQLITE_OK;
}

/// Without xCreate the table exists in every database by its name alone.
constexpr sqlite3_module MakeModule() {
  sqlite3_module module{};
  module.xConnect = Connect;
  module.xBestIndex = BestIndex;
  module.xDisconnect = Disconnect;
  module.xOpen = Open;
  module.xClose = Close;
  module.xFilter = Filter;
  module.xNext = Next;
  module.xEof = AtEnd;
  module.xColumn = Column;
  module.xRowid = RowId;
  return module;
}
constexpr sqlite3_module kModule = MakeModule();

}  // namespace

bool RegisterIdListTable(sqlite3* database) {
  return sqlite3_create_module_v2(database, kIdListFunction.data(), &kModule, nullptr, nullptr) ==
         SQLITE_OK;
}

}  // namespace adapters::sqlite
