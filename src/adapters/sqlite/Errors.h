#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/RuntimeError.h"

namespace adapters::sqlite {

/// The server's numbers for what a statement can fail with.
enum ServerError : std::int32_t {
  kIncorrectSyntax = 102,
  kUnclosedQuotation = 105,
  kColumnListTooLong = 109,
  kSubqueryColumns = 116,
  kVariableNotDeclared = 137,
  kReservedKeyword = 156,
  kNestedTooDeeply = 191,
  kUnknownBuiltIn = 195,
  kInvalidColumn = 207,
  kInvalidObject = 208,
  kAmbiguousColumn = 209,
  kColumnCountMismatch = 213,
  kDateConversion = 241,
  kConversion = 245,
  kTooFewArguments = 313,
  kSubqueryManyRows = 512,
  kNullNotAllowed = 515,
  kReferenceConflict = 547,
  kOutOfMemory = 701,
  kInputOutput = 823,
  kInconsistentFile = 824,
  kNoSpace = 1105,
  kLockTimeout = 1222,
  kDuplicateKey = 2627,
  kUnknownProcedure = 2812,
  kReadOnlyDatabase = 3906,
  kCannotOpenDatabase = 4060,
  kUnknownFunction = 4121,
  kNotACondition = 4145,
  kArgumentType = 8114,
  kTooManyArguments = 8144,
  kMissingArgument = 201,
  kOther = 50000,
};

platform::RuntimeError MakeError(std::int32_t number, const std::string& description);

/// An error that one of our own SQL functions raises: the server's number travels in the upper bits
/// of SQLite's extended result code, where SQLite itself never looks.
void SetFunctionError(sqlite3_context* context, ServerError number, const std::string& text);

/// A path or name as a Persian sentence holds it: in quotes, running from left to right.
std::string Quoted(const std::string& name);

/// The last failure of a handle as the server would report it, with SQLite's own words in
/// parentheses. Failures of the file (locked, read-only, full, damaged, without a table or column
/// that a statement names) begin with a Persian sentence that names it.
platform::RuntimeError LastError(sqlite3* database, const std::string& file);

}  // namespace adapters::sqlite
