#include "platform/ConnectionFault.h"

#include <algorithm>
#include <array>

#include "platform/RuntimeError.h"
#include "text/Text.h"

namespace platform {

namespace {

constexpr std::int32_t kLockTimeOut = 1222;
// DB_E_ABORTLIMITREACHED: the time limit of a statement, where OLE DB gives no SQLSTATE.
constexpr auto kTimeLimitReached = static_cast<std::int32_t>(0x80040E31);

// A batch whose client gave up may still be at work on the server, and what it has not committed no
// condition of another statement sees: so nobody is told to repeat.
constexpr const char* kWhatNow =
    "اگر چيزي ثبت مي كرديد، شايد سرور هنوز سرگرم آن باشد: كمي صبر كنيد، برنامه بازارياب را از نو "
    "باز كنيد، نگاه كنيد و تنها آنچه را كم است بيفزاييد. فرم شما باز است و چيزي از آنچه نوشته ايد "
    "از دست نرفته است.";

constexpr std::int32_t kFirstOwnNumber = 1'000'000'000;
constexpr std::size_t kStateLength = 5;

template <std::size_t kCount>
bool IsOneOf(std::int32_t number, const std::array<std::int32_t, kCount>& numbers) {
  return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

/// Waiting for somebody's lock has the state of a time-out too, but the session lives.
bool IsTimeOut(const DatabaseError& error) {
  return error.number != kLockTimeOut &&
         (error.state == "HYT00" || error.state == "HYT01" || error.state == "S1T00" ||
          error.number == kTimeLimitReached);
}

/// Class 08 is the connection's. The numbers are those of a pipe without a server, of a session
/// that was killed, of a server that is being shut down, and the network's own.
bool IsDeadLine(const DatabaseError& error) {
  static constexpr auto kNumbers =
      std::to_array<std::int32_t>({233, 596, 6005, 10053, 10054, 10060, 10061});
  return error.state.starts_with("08") || IsOneOf(error.number, kNumbers);
}

/// The numbers are the server's for a database that is not there or not for this user, for a
/// trigger or firewall in the way, and all of a login that failed (184xx: unknown, locked,
/// expired).
bool IsRefusal(const DatabaseError& error) {
  static constexpr auto kNumbers =
      std::to_array<std::int32_t>({911, 916, 4060, 4064, 17892, 40615});
  return error.state == "28000" || error.state == "08004" || IsOneOf(error.number, kNumbers) ||
         (error.number >= 18450 && error.number <= 18499);
}

/// IM... is the driver manager's own: no such data source, no such driver, a library that would
/// not load.
bool IsAboutTheDriver(const DatabaseError& error) {
  return error.state.starts_with("IM") || error.number == kProviderNotFound ||
         error.text.find("Can't open lib") != std::string::npos;
}

std::int32_t NumberOfState(std::string_view state) {
  constexpr std::int32_t kBase = 36;
  std::int32_t number = 0;
  for (const char c : state.substr(0, kStateLength)) {
    const bool isLetter = c >= 'A' && c <= 'Z';
    number = number * kBase + (text::IsDigit(c) ? c - '0' : isLetter ? c - 'A' + 10 : 0);
  }
  return kFirstOwnNumber + number;
}

}  // namespace

ConnectionFault FaultOf(Phase phase, const DatabaseErrors& errors, bool sessionDead) {
  const auto any = [&](bool (*holds)(const DatabaseError&)) {
    return std::any_of(errors.begin(), errors.end(), holds);
  };
  if (phase == Phase::kLogin) {
    if (any(IsRefusal)) return ConnectionFault::kRefused;
    if (any(IsAboutTheDriver)) return ConnectionFault::kNoDriver;
    if (any(IsTimeOut)) return ConnectionFault::kNoAnswer;
    return any(IsDeadLine) ? ConnectionFault::kUnreachable : ConnectionFault::kLogin;
  }
  // First of the two: a driver may give the line up itself when a statement's time is over.
  if (any(IsTimeOut)) return ConnectionFault::kSilent;
  return sessionDead || any(IsDeadLine) ? ConnectionFault::kLost : ConnectionFault::kStatement;
}

std::int32_t NumberOf(const DatabaseErrors& errors) {
  const auto hasNumber = [](const DatabaseError& e) { return e.number != 0; };
  const auto isError = [](const DatabaseError& e) {
    return e.number != 0 && !e.state.starts_with("01");
  };
  auto found = std::find_if(errors.begin(), errors.end(), isError);
  if (found == errors.end()) found = std::find_if(errors.begin(), errors.end(), hasNumber);
  if (found != errors.end()) return found->number;
  return NumberOfState(errors.empty() ? "HY000" : errors.front().state);
}

std::string UserSentence(ConnectionFault fault) {
  switch (fault) {
    case ConnectionFault::kLost:
      return std::string("ارتباط با پايگاه داده قطع شد. ") + kWhatNow;
    case ConnectionFault::kSilent:
      return std::string("پايگاه داده در زمان مقرر پاسخ نداد و ارتباط با آن قطع شد. ") + kWhatNow;
    case ConnectionFault::kUnreachable:
      return "پايگاه داده در دسترس نيست. نشاني سرور، روشن بودن آن و شبكه را بررسي كنيد.";
    case ConnectionFault::kNoAnswer:
      return "سرور پايگاه داده به درخواست اتصال پاسخ نداد. كمي بعد دوباره تلاش كنيد.";
    case ConnectionFault::kRefused:
      return "سرور پايگاه داده اجازه ورود نداد. نام كاربر، رمز و نام پايگاه داده را بررسي كنيد.";
    case ConnectionFault::kNoDriver:
      return "درايور پايگاه داده روي اين رايانه پيدا نشد يا بار نشد.";
    case ConnectionFault::kLogin:
      return "ارتباط با پايگاه داده برقرار نشد. رشته اتصال را بررسي كنيد.";
    case ConnectionFault::kStatement:
      break;
  }
  return {};
}

}  // namespace platform
