#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

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

/// What the user is told before the driver's own words, Persian; empty where these say it alone
/// (kStatement, kLogin).
std::string_view UserSentence(ConnectionFault fault);

/// Whether an error of a login is the server's refusal, by its SQLSTATE and the server's number.
bool IsRefusal(std::string_view state, std::int32_t number);

}  // namespace platform
