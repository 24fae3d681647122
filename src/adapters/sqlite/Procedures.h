#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/Connection.h"

namespace adapters::sqlite {

/// The suite's stored procedures over its tables.
///
/// - spZomirHasPermission(@UserID, @FormPermissionID): 1 when tblZomirUserPermission has the pair,
///   or the user with the permission 0, which stands for all; else 0, also for an unknown user.
/// - spZomirInsertFormAction with its eight parameters: adds a row to tblZomirFormAction, gives 0,
///   and leaves SCOPE_IDENTITY as it was. Texts are cut to the lengths of the server's parameters.
///
/// Throws 2812 for another name, 201 or 8144 for a wrong number of parameters, 8114 for a wrong
/// type, and what the statement itself fails with.
std::int32_t CallStoredProcedure(sqlite3* database, std::string_view name,
                                 std::span<const platform::Parameter> parameters,
                                 const std::string& file);

}  // namespace adapters::sqlite
