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
  kUnknownPrefixOfStar = 107,
  kOrderPositionOutOfRange = 108,
  kMoreColumnsThanValues = 109,
  kFewerColumnsThanValues = 110,
  kSubqueryColumns = 116,
  kSelectListTooShort = 120,
  kSelectListTooLong = 121,
  kTypeTooLong = 131,
  kVariableNotDeclared = 137,
  kAggregateNested = 130,
  kDistinctOrder = 145,
  kAggregateInWhere = 147,
  kReservedKeyword = 156,
  kConstantGroup = 164,
  kOrderedTwice = 169,
  kArgumentCount = 174,
  kNestedTooDeeply = 191,
  kUnknownBuiltIn = 195,
  kMissingArgument = 201,
  kTypesClash = 206,
  kInvalidColumn = 207,
  kInvalidObject = 208,
  kAmbiguousColumn = 209,
  kColumnCountMismatch = 213,
  kDateConversion = 241,
  kMomentOutOfRange = 242,
  kConversion = 245,
  kIntOverflow = 248,
  kNoSource = 263,
  kColumnTwice = 264,
  kTooFewArguments = 313,
  kTypesInPlus = 402,
  kConstantOrder = 408,
  kSubqueryManyRows = 512,
  kNullNotAllowed = 515,
  kConversionNotAllowed = 529,
  kExplicitIdentity = 544,
  kReferenceConflict = 547,
  kOutOfMemory = 701,
  kInputOutput = 823,
  kInconsistentFile = 824,
  kLengthInvalid = 1001,
  kCorrelationTwice = 1011,
  kExposedTwice = 1013,
  kOrderInSubquery = 1033,
  kNoSpace = 1105,
  kLockTimeout = 1222,
  kDuplicateKey = 2627,
  kUnknownProcedure = 2812,
  kReadOnlyDatabase = 3906,
  kCannotOpenDatabase = 4060,
  kUnboundIdentifier = 4104,
  kWindowInWhere = 4108,
  kUnknownFunction = 4121,
  kNotACondition = 4145,
  kIdentityUpdated = 8102,
  kArgumentType = 8114,
  kArithmeticOverflow = 8115,
  kTypeOfAggregate = 8117,
  kTypeOfArgument = 8116,
  kNotGrouped = 8120,
  kOrderNotGrouped = 8127,
  kTooManyArguments = 8144,
  kTextTruncated = 8152,
  kUnnamedColumn = 8155,
  kColumnNamedTwice = 8156,
  kTooComplex = 8623,
  kOther = 50000,
  /// Of no server: what a data provider says of a statement that ran out of its time.
  kTimeLimitReached = -2147217871,
};

/// The server's words behind the sentence for its number (platform/ServerErrors.h), which names the
/// file where one is given.
platform::RuntimeError MakeError(std::int32_t number, const std::string& words,
                                 const std::string& file = {});

/// An error that one of our own SQL functions raises: the server's number travels in the upper bits
/// of SQLite's extended result code, where SQLite itself never looks.
int FunctionErrorCode(std::int32_t number);
void SetFunctionError(sqlite3_context* context, const platform::RuntimeError& error);

/// What a statement names and the database in `file` has not.
platform::RuntimeError MissingObject(const std::string& name, const std::string& file);
platform::RuntimeError MissingColumn(const std::string& name, const std::string& file);
/// A statement that nests too deeply, or asks too much at once, for any engine.
platform::RuntimeError TooDeep();
platform::RuntimeError TooComplex();

/// A path or name as a Persian sentence holds it: in quotes, running from left to right.
std::string Quoted(const std::string& name);

/// The last failure of a handle as the server would report it, with SQLite's own words in
/// parentheses. Failures of the file (locked, read-only, full, damaged, without a table or column
/// that a statement names) begin with a Persian sentence that names it.
platform::RuntimeError LastError(sqlite3* database, const std::string& file);

}  // namespace adapters::sqlite
