#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

/// One record of what the server said, or a driver or provider on the way to it.
struct DatabaseError {
  std::string state;        ///< SQLSTATE; empty where none is given
  std::int32_t number = 0;  ///< the server's own, else the driver's or provider's; 0 without one
  std::string text;
};

using DatabaseErrors = std::vector<DatabaseError>;

/// What went wrong with the database, as far as the user can do something about it.
enum class ConnectionFault {
  kStatement,    ///< the server refused the statement; the session lives
  kLost,         ///< the session is gone
  kSilent,       ///< the statement ran into its time limit; the session is given up
  kUnreachable,  ///< no server answered at that address
  kNoAnswer,     ///< a server that did not answer the login in time
  kRefused,      ///< the server refused the login or the database
  kNoDriver,     ///< the driver is not on this machine, would not load, or knows no such source
  kLogin,        ///< any other failure to connect
};

/// What was tried when the errors came.
enum class Phase { kLogin, kStatement };

/// `sessionDead`: the driver or provider counts the session as gone, whatever the errors say.
ConnectionFault FaultOf(Phase phase, const DatabaseErrors& errors, bool sessionDead = false);

/// The number by which a failure is known: of the first error that has one and does not only inform
/// (class 01), else of the first that has one. Without any it is 1,000,000,000 and the first
/// SQLSTATE read as a number of base 36, so that each state has one number and none is a server's.
std::int32_t NumberOf(const DatabaseErrors& errors);

/// What the user is told of a fault before the driver's own words, Persian; empty for kStatement,
/// of which ServerErrors.h knows more.
std::string UserSentence(ConnectionFault fault);

}  // namespace platform
