#include "adapters/sqlite/Functions.h"

#include <compare>
#include <new>
#include <string>

#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/IdListTable.h"
#include "adapters/sqlite/Like.h"
#include "adapters/sqlite/TextPieces.h"
#include "calendar/Gregorian.h"
#include "calendar/SolarHijriDate.h"
#include "text/PersianOrder.h"

namespace adapters::sqlite {

namespace {

using Arguments = sqlite3_value**;

std::string_view TextOf(sqlite3_value* value) {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (bytes == nullptr) return {};
  return {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

bool IsNull(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_NULL;
}

/// SQLite calls functions from C: no exception may leave them.
template <void (*function)(sqlite3_context*, Arguments)>
void Guarded(sqlite3_context* context, int, Arguments arguments) {
  try {
    function(context, arguments);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

/// The last day that a handle's getEnglishDate converted: a batch insert asks for the same day once
/// for every customer.
struct LastDay {
  std::string farsi;
  sqlite3_int64 literal = 0;
};

void EnglishDate(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0])) return;
  const std::string_view farsi = TextOf(arguments[0]);
  auto& last = *static_cast<LastDay*>(sqlite3_user_data(context));
  if (last.farsi != farsi) {
    const auto date = calendar::SolarHijriDate::FromText(farsi);
    if (!date) {
      SetFunctionError(context, kDateConversion,
                       "Conversion failed when converting date and/or time from character "
                       "string '" +
                           std::string(farsi) + "'.");
      return;
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

void SetConversionError(sqlite3_context* context, std::string_view text) {
  SetFunctionError(context, kConversion,
                   "Conversion failed when converting the varchar value '" + std::string(text) +
                       "' to data type int.");
}

void Plus(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0]) || IsNull(arguments[1])) return;
  const bool firstIsText = sqlite3_value_type(arguments[0]) == SQLITE_TEXT;
  const bool secondIsText = sqlite3_value_type(arguments[1]) == SQLITE_TEXT;
  if (firstIsText != secondIsText) {
    SetConversionError(context, TextOf(arguments[firstIsText ? 0 : 1]));
  } else if (firstIsText) {
    std::string joined(TextOf(arguments[0]));
    joined += TextOf(arguments[1]);
    sqlite3_result_text64(context, joined.data(), joined.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  } else if (sqlite3_value_type(arguments[0]) == SQLITE_INTEGER &&
             sqlite3_value_type(arguments[1]) == SQLITE_INTEGER) {
    sqlite3_int64 sum = 0;
    if (__builtin_add_overflow(sqlite3_value_int64(arguments[0]), sqlite3_value_int64(arguments[1]),
                               &sum)) {
      SetFunctionError(context, kArgumentType, "Arithmetic overflow error for data type bigint.");
    } else {
      sqlite3_result_int64(context, sum);
    }
  } else {
    sqlite3_result_double(context,
                          sqlite3_value_double(arguments[0]) + sqlite3_value_double(arguments[1]));
  }
}

void ToInteger(sqlite3_context* context, Arguments arguments) {
  switch (sqlite3_value_type(arguments[0])) {
    case SQLITE_NULL:
      return;
    case SQLITE_TEXT: {
      const auto number = WholeNumberOf(TextOf(arguments[0]));
      if (number) return sqlite3_result_int64(context, *number);
      return SetConversionError(context, TextOf(arguments[0]));
    }
    default:
      sqlite3_result_int64(context, sqlite3_value_int64(arguments[0]));
  }
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
    return SetFunctionError(context, kSubqueryManyRows,
                            "Subquery returned more than 1 value. This is not permitted when the "
                            "subquery is used as an expression.");
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

int ComparePersianTexts(void*, int firstSize, const void* first, int secondSize,
                        const void* second) {
  const auto order = text::ComparePersian(
      {static_cast<const char*>(first), static_cast<std::size_t>(firstSize)},
      {static_cast<const char*>(second), static_cast<std::size_t>(secondSize)});
  return std::is_lt(order) ? -1 : std::is_gt(order) ? 1 : 0;
}

struct Scalar {
  std::string_view name;
  int arguments;
  int flags;
  void (*function)(sqlite3_context*, int, Arguments);
};

}  // namespace

void RegisterFunctions(sqlite3* database) {
  constexpr int kPure = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
  const Scalar scalars[] = {
      {kIdentityFunction, 0, SQLITE_UTF8, Guarded<ScopeIdentity>},
      {kPlusFunction, 2, kPure, Guarded<Plus>},
      {kToIntegerFunction, 1, kPure, Guarded<ToInteger>},
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
      sqlite3_create_collation_v2(database, kPersianCollation.data(), SQLITE_UTF8, nullptr,
                                  ComparePersianTexts, nullptr) == SQLITE_OK &&
      RegisterIdListTable(database) && RegisterTextPieces(database);
  if (!registered) throw LastError(database, {});
}

}  // namespace adapters::sqlite
