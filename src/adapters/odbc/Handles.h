#pragma once

#include <cstddef>
#include <utility>

#include "adapters/odbc/OdbcApi.h"

namespace adapters::odbc {

/// One ODBC handle, freed with its owner. `kType` is SQL_HANDLE_ENV, _DBC or _STMT.
template <SQLSMALLINT kType>
class Handle {
 public:
  static constexpr SQLSMALLINT kHandleType = kType;

  Handle() = default;
  /// Null when the driver manager refused; the parent's diagnostics say why.
  explicit Handle(SQLHANDLE parent) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(kType, parent, &handle_))) handle_ = nullptr;
  }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~Handle() {
    if (handle_ != nullptr) SQLFreeHandle(kType, handle_);
  }

  explicit operator bool() const { return handle_ != nullptr; }
  SQLHANDLE Get() const { return handle_; }

 private:
  SQLHANDLE handle_ = nullptr;
};

using Environment = Handle<SQL_HANDLE_ENV>;
using DatabaseHandle = Handle<SQL_HANDLE_DBC>;
using Statement = Handle<SQL_HANDLE_STMT>;

/// An attribute whose value is a number travels in the place of a pointer.
inline SQLPOINTER AttributeValue(std::size_t value) {
  return reinterpret_cast<SQLPOINTER>(value);  // NOLINT(performance-no-int-to-ptr)
}

/// An environment that speaks ODBC 3, or null.
inline Environment MakeEnvironment() {
  Environment environment(nullptr);
  if (environment) {
    SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, AttributeValue(SQL_OV_ODBC3), 0);
  }
  return environment;
}

}  // namespace adapters::odbc
