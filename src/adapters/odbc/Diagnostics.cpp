#include "adapters/odbc/Diagnostics.h"

#include "adapters/odbc/Utf16.h"

namespace adapters::odbc {

platform::DatabaseErrors ReadDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle) {
  platform::DatabaseErrors errors;
  Utf16 text(SQL_MAX_MESSAGE_LENGTH);
  Utf16 state(SQL_SQLSTATE_SIZE + 1);
  for (SQLSMALLINT record = 1;; ++record) {
    SQLINTEGER number = 0;
    SQLSMALLINT length = 0;
    const auto read = [&] {
      return SQLGetDiagRecW(handleType, handle, record, state.data(), &number, text.data(),
                            static_cast<SQLSMALLINT>(text.size()), &length);
    };
    SQLRETURN result = read();
    if (SQL_SUCCEEDED(result) && static_cast<std::size_t>(length) >= text.size()) {
      text.resize(static_cast<std::size_t>(length) + 1);
      result = read();
    }
    if (!SQL_SUCCEEDED(result)) return errors;
    errors.push_back({ToUtf8(state, SQL_SQLSTATE_SIZE), number, ToUtf8(text, length)});
  }
}

}  // namespace adapters::odbc
