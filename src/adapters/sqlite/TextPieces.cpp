#include "adapters/sqlite/TextPieces.h"

#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "adapters/sqlite/Functions.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

/// The last whole number that one call in a statement was given, and what came of it. A batch
/// insert asks for the same day's text once for every customer.
struct LastJoin {
  sqlite3_int64 number = 0;
  std::string joined;
};

/// SQLite keeps data beside an argument that is constant, one for each place of a call: then all
/// but the first argument are the same in every call that finds it.
constexpr int kFirstConstant = 1;

std::string Join(int count, sqlite3_value** arguments) {
  const std::string_view text = TextOf(arguments[0]);
  std::string joined;
  for (int i = kFirstConstant; i < count; ++i) {
    if (sqlite3_value_type(arguments[i]) == SQLITE_TEXT) {
      joined += TextOf(arguments[i]);
    } else if (i + 1 < count) {
      const auto start = static_cast<std::size_t>(sqlite3_value_int64(arguments[i]));
      const auto length = static_cast<std::size_t>(sqlite3_value_int64(arguments[++i]));
      joined += text::Mid(text, start, length);
    }
  }
  return joined;
}

void SetText(sqlite3_context* context, const std::string& text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void Pieces(sqlite3_context* context, int count, sqlite3_value** arguments) {
  const int type = sqlite3_value_type(arguments[0]);
  if (type == SQLITE_NULL) return;
  try {
    if (type != SQLITE_INTEGER) return SetText(context, Join(count, arguments));
    const sqlite3_int64 number = sqlite3_value_int64(arguments[0]);
    auto* last = static_cast<LastJoin*>(sqlite3_get_auxdata(context, kFirstConstant));
    if (last != nullptr && last->number == number) return SetText(context, last->joined);
    const std::string joined = Join(count, arguments);
    SetText(context, joined);
    if (last != nullptr) {
      last->number = number;
      last->joined = joined;
    } else {
      auto made = std::make_unique<LastJoin>(LastJoin{number, joined});
      sqlite3_set_auxdata(context, kFirstConstant, made.release(),
                          [](void* kept) { delete static_cast<LastJoin*>(kept); });
    }
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

}  // namespace

bool RegisterTextPieces(sqlite3* database) {
  return sqlite3_create_function_v2(database, kPiecesFunction.data(), -1,
                                    SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, Pieces, nullptr,
                                    nullptr, nullptr) == SQLITE_OK;
}

}  // namespace adapters::sqlite
