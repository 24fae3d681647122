#include "adapters/sqlite/Functions.h"

#include <new>
#include <optional>
#include <string>

#include "adapters/sqlite/Collation.h"
#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/IdListTable.h"
#include "adapters/sqlite/Like.h"
#include "adapters/sqlite/TextPieces.h"
#include "adapters/sqlite/Types.h"
#include "calendar/Gregorian.h"
#include "calendar/SolarHijriDate.h"
#include "text/Text.h"

namespace adapters::sqlite {

namespace {

using Arguments = sqlite3_value**;

bool IsNull(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_NULL;
}

/// SQLite calls functions from C: no exception may leave them.
template <void (*function)(sqlite3_context*, Arguments)>
void Guarded(sqlite3_context* context, int, Arguments arguments) {
  try {
    function(context, arguments);
  } catch (const platform::RuntimeError& error) {
    SetFunctionError(context, error);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

/// The last day that a handle's getEnglishDate converted: a batch insert asks for the same day once
/// for every customer.
struct LastDay {
  std::optional<std::string> farsi;
  sqlite3_int64 literal = 0;
};

void EnglishDate(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0])) return;
  const std::string_view farsi = TextOf(arguments[0]);
  auto& last = *static_cast<LastDay*>(sqlite3_user_data(context));
  if (last.farsi != farsi) {
    const auto date = calendar::SolarHijriDate::FromText(farsi);
    if (!date) {
      throw MakeError(kDateConversion,
                      "Conversion failed when converting date and/or time from character string '" +
                          std::string(farsi) + "'.");
    }
    last.literal = std::stoll(calendar::GregorianLiteral(date->Days()));
    last.farsi = farsi;
  }
  sqlite3_result_int64(context, last.literal);
}

void ScopeIdentity(sqlite3_context* context, Arguments) {
  const sqlite3_int64 id = sqlite3_last_insert_rowid(sqlite3_context_db_handle(context));
  if (id != 0) sqlite3_result_int64(context, id);
}

void SetText(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void ToInteger(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0])) return;
  const bool isText = sqlite3_value_type(arguments[0]) == SQLITE_TEXT;
  sqlite3_result_int(context, isText ? IntOf(TextOf(arguments[0]))
                                     : IntOf(std::int64_t{sqlite3_value_int64(arguments[0])}));
}

void DateTextFunction(sqlite3_context* context, Arguments arguments) {
  if (!IsNull(arguments[0])) SetText(context, DateText(sqlite3_value_int64(arguments[0])));
}

void Fit(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0])) return;
  const std::string_view text = TextOf(arguments[0]);
  const auto length = static_cast<std::size_t>(sqlite3_value_int64(arguments[1]));
  const std::string_view fitting = text::Mid(text, 1, length);
  if (text.find_first_not_of(' ', fitting.size()) != std::string_view::npos) {
    throw MakeError(kTextTruncated, "متن ستون " + Quoted(std::string(TextOf(arguments[2]))) +
                                        " بلندتر از " + std::to_string(length) +
                                        " نويسه است و چيزي ثبت نشد. String or binary data would be "
                                        "truncated.");
  }
  SetText(context, fitting);
}

void LikeFunction(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0]) || IsNull(arguments[1])) return;
  sqlite3_result_int(context, Like(TextOf(arguments[1]), TextOf(arguments[0])) ? 1 : 0);
}

struct OnlyValue {
  bool any;
  sqlite3_value* value;
};

void OnlyValueStep(sqlite3_context* context, int, Arguments arguments) {
  auto* only = static_cast<OnlyValue*>(sqlite3_aggregate_context(context, sizeof(OnlyValue)));
  if (only == nullptr) return sqlite3_result_error_nomem(context);
  if (only->any) {
    return SetFunctionError(
        context, MakeError(kSubqueryManyRows,
                           "Subquery returned more than 1 value. This is not permitted when the "
                           "subquery is used as an expression."));
  }
  only->any = true;
  only->value = sqlite3_value_dup(arguments[0]);
  if (only->value == nullptr) sqlite3_result_error_nomem(context);
}

void OnlyValueFinal(sqlite3_context* context) {
  auto* only = static_cast<OnlyValue*>(sqlite3_aggregate_context(context, 0));
  if (only == nullptr || only->value == nullptr) return;
  sqlite3_result_value(context, only->value);
  sqlite3_value_free(only->value);
}

int CompareForSqlite(void*, int firstSize, const void* first, int secondSize, const void* second) {
  return CompareTexts({static_cast<const char*>(first), static_cast<std::size_t>(firstSize)},
                      {static_cast<const char*>(second), static_cast<std::size_t>(secondSize)});
}

struct Scalar {
  std::string_view name;
  int arguments;
  int flags;
  void (*function)(sqlite3_context*, int, Arguments);
};

}  // namespace

bool RegisterCollation(sqlite3* database) {
  return sqlite3_create_collation_v2(database, kPersianCollation.data(), SQLITE_UTF8, nullptr,
                                     CompareForSqlite, nullptr) == SQLITE_OK;
}

std::string_view TextOf(sqlite3_value* value) {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (bytes == nullptr) return {};
  return {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void RegisterFunctions(sqlite3* database) {
  constexpr int kPure = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
  const Scalar scalars[] = {
      {kIdentityFunction, 0, SQLITE_UTF8, Guarded<ScopeIdentity>},
      {kToIntegerFunction, 1, kPure, Guarded<ToInteger>},
      {kDateTextFunction, 1, kPure, Guarded<DateTextFunction>},
      {kFitFunction, 3, kPure, Guarded<Fit>},
      {"like", 2, kPure, Guarded<LikeFunction>},
  };
  bool registered = true;
  for (const Scalar& scalar : scalars) {
    registered =
        registered && sqlite3_create_function_v2(database, scalar.name.data(), scalar.arguments,
                                                 scalar.flags, nullptr, scalar.function, nullptr,
                                                 nullptr, nullptr) == SQLITE_OK;
  }
  // SQLite hands the user data to the destructor when it refuses the function, too.
  registered =
      registered &&
      sqlite3_create_function_v2(
          database, kEnglishDateFunction.data(), 1, kPure, new LastDay, Guarded<EnglishDate>,
          nullptr, nullptr, [](void* last) { delete static_cast<LastDay*>(last); }) == SQLITE_OK &&
      sqlite3_create_function_v2(database, kOnlyValueFunction.data(), 1, kPure, nullptr, nullptr,
                                 OnlyValueStep, OnlyValueFinal, nullptr) == SQLITE_OK &&
      RegisterCollation(database) && RegisterIdListTable(database) && RegisterTextPieces(database);
  if (!registered) throw LastError(database, {});
}

}  // namespace adapters::sqlite
