#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace platform {

/// Numbers of the run-time errors that the module itself raises or tests for. They are the
/// automation errors that a Windows host knows; a database or component error keeps its own number.
enum ErrorNumber : std::int32_t {
  kInvalidProcedureCall = 5,
  kOverflow = 6,
  kTypeMismatch = 13,
  kUserInterrupt = 18,
  kFileNotFound = 53,
  kDeviceError = 57,
  kFileAlreadyExists = 58,
  kDiskFull = 61,
  kPermissionDenied = 70,
  kPathFileAccess = 75,
  kPathNotFound = 76,
  kInvalidPropertyValue = 380,
  kSubscriptOutOfRange = 381,
  kFormAlreadyDisplayed = 400,
  kNonModalWhileModal = 401,
  kCannotCreateComponent = 429,
  kNoSuchMember = 438,
  kNoCurrentRecord = 3021,
  kNoSuchField = 3265,
  kObjectClosed = 3704,
  kProviderNotFound = 3706,
  kStillExecuting = 3711,
  kInvalidRowValue = 30009,
  kInvalidColValue = 30010,
  kFileDialogCancelled = 32755,
};

/// The one exception type: whatever fails outside the logic, or in a control, arrives as this.
/// what() is the description, UTF-8, in the words of whoever failed (database, system, control).
class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(std::int32_t number, const std::string& description, std::string source = {})
      : std::runtime_error(description), number_(number), source_(std::move(source)) {}

  std::int32_t Number() const { return number_; }
  std::string Description() const { return what(); }
  /// Who raised it ("FlexGrid", "SQLite"); may be empty.
  const std::string& Source() const { return source_; }

 private:
  std::int32_t number_;
  std::string source_;
};

}  // namespace platform
