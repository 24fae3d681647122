#include "adapters/odbc/Diagnostics.h"

#include <algorithm>
#include <array>

#include "adapters/odbc/Utf16.h"
#include "text/Text.h"

namespace adapters::odbc {

namespace {

constexpr std::int32_t kFirstOwnNumber = 1'000'000'000;
constexpr std::size_t kShortestSureSecret = 4;

bool AnyOf(const Diagnostics& diagnostics, bool (*holds)(const Diagnostic&)) {
  return std::any_of(diagnostics.begin(), diagnostics.end(), holds);
}

bool IsTimeOut(const Diagnostic& diagnostic) {
  return diagnostic.state == "HYT00" || diagnostic.state == "HYT01" || diagnostic.state == "S1T00";
}

bool IsAboutTheConnection(const Diagnostic& diagnostic) {
  return diagnostic.state.starts_with("08");
}

/// 28000 is the state of a refused login; the numbers are the server's for a database that it
/// does not open for the user, or a login that is expired, disabled or untrusted.
bool IsRefusal(const Diagnostic& diagnostic) {
  constexpr auto kNumbers =
      std::to_array<std::int32_t>({4060, 4064, 18452, 18456, 18470, 18486, 18487, 18488, 40615});
  return diagnostic.state == "28000" ||
         std::find(kNumbers.begin(), kNumbers.end(), diagnostic.number) != kNumbers.end();
}

/// IM... is the driver manager's own: no such data source, no such driver, a library that would
/// not load.
bool IsAboutTheDriver(const Diagnostic& diagnostic) {
  return diagnostic.state.starts_with("IM") ||
         diagnostic.text.find("Can't open lib") != std::string::npos;
}

std::string_view UserSentence(Fault fault) {
  switch (fault) {
    case Fault::kLost:
      return "ارتباط با پايگاه داده قطع شد. دوباره تلاش كنيد؛ فرم شما باز است و چيزي از آنچه نوشته "
             "ايد از دست نرفته است.";
    case Fault::kSilent:
      return "پايگاه داده در زمان مقرر پاسخ نداد و ارتباط با آن قطع شد. كمي بعد دوباره تلاش كنيد؛ "
             "فرم شما باز است و چيزي از آنچه نوشته ايد از دست نرفته است.";
    case Fault::kUnreachable:
      return "پايگاه داده در دسترس نيست. نشاني سرور، روشن بودن آن و شبكه را بررسي كنيد.";
    case Fault::kNoAnswer:
      return "سرور پايگاه داده به درخواست اتصال پاسخ نداد. كمي بعد دوباره تلاش كنيد.";
    case Fault::kRefused:
      return "سرور پايگاه داده اجازه ورود نداد. نام كاربر، رمز و نام پايگاه داده را بررسي كنيد.";
    case Fault::kNoDriver:
      return "درايور پايگاه داده روي اين رايانه پيدا نشد يا بار نشد.";
    case Fault::kStatement:
      break;
  }
  return {};
}

std::int32_t NumberOfState(std::string_view state) {
  constexpr std::int32_t kBase = 36;
  std::int32_t number = 0;
  for (const char c : state.substr(0, SQL_SQLSTATE_SIZE)) {
    const bool isDigit = c >= '0' && c <= '9';
    const bool isLetter = c >= 'A' && c <= 'Z';
    number = number * kBase + (isDigit ? c - '0' : isLetter ? c - 'A' + 10 : 0);
  }
  return kFirstOwnNumber + number;
}

/// A message that only informs (class 01) may come before the error itself.
std::int32_t NumberOf(const Diagnostics& diagnostics) {
  const auto isError = [](const Diagnostic& d) {
    return d.number != 0 && !d.state.starts_with("01");
  };
  const auto hasNumber = [](const Diagnostic& d) { return d.number != 0; };
  auto found = std::find_if(diagnostics.begin(), diagnostics.end(), isError);
  if (found == diagnostics.end()) {
    found = std::find_if(diagnostics.begin(), diagnostics.end(), hasNumber);
  }
  if (found != diagnostics.end()) return found->number;
  return NumberOfState(diagnostics.empty() ? "HY000" : diagnostics.front().state);
}

bool IsWordByte(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         static_cast<unsigned char>(c) >= 0x80;
}

/// A very short password may be a part of any word; only where it stands alone is it the password.
std::string StarredOut(std::string_view text, std::string_view password) {
  std::string result;
  std::size_t from = 0;
  for (std::size_t hit = text.find(password); hit != std::string_view::npos;
       hit = text.find(password, from)) {
    const std::size_t end = hit + password.size();
    const bool alone =
        (hit == 0 || !IsWordByte(text[hit - 1])) && (end == text.size() || !IsWordByte(text[end]));
    const bool isPassword = alone || password.size() >= kShortestSureSecret;
    result.append(text.substr(from, hit - from)).append(isPassword ? "***" : password);
    from = end;
  }
  return result.append(text.substr(from));
}

}  // namespace

Diagnostics ReadDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle) {
  Diagnostics diagnostics;
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
    if (!SQL_SUCCEEDED(result)) return diagnostics;
    diagnostics.push_back({ToUtf8(state, SQL_SQLSTATE_SIZE), number, ToUtf8(text, length)});
  }
}

Fault StatementFault(const Diagnostics& diagnostics, bool connectionDead) {
  if (AnyOf(diagnostics, IsAboutTheConnection)) return Fault::kLost;
  // First of the two: a driver may give the connection up itself when a statement's time is over.
  if (AnyOf(diagnostics, IsTimeOut)) return Fault::kSilent;
  return connectionDead ? Fault::kLost : Fault::kStatement;
}

Fault LoginFault(const Diagnostics& diagnostics) {
  if (AnyOf(diagnostics, IsRefusal)) return Fault::kRefused;
  if (AnyOf(diagnostics, IsTimeOut)) return Fault::kNoAnswer;
  return AnyOf(diagnostics, IsAboutTheDriver) ? Fault::kNoDriver : Fault::kUnreachable;
}

platform::RuntimeError MakeError(Fault fault, const Diagnostics& diagnostics) {
  std::string description(UserSentence(fault));
  // So FreeTDS does with a "?" outside the texts of a statement, which it takes for a parameter.
  if (description.empty() && diagnostics.empty()) {
    description = "درايور پايگاه داده دستور را نپذيرفت. The driver refused without a reason.";
  }
  for (std::size_t i = 0; i < diagnostics.size(); ++i) {
    const Diagnostic& diagnostic = diagnostics[i];
    const auto sameText = [&](const Diagnostic& other) { return other.text == diagnostic.text; };
    const auto here = diagnostics.begin() + static_cast<std::ptrdiff_t>(i);
    if (std::any_of(diagnostics.begin(), here, sameText)) continue;
    if (!description.empty()) description += '\n';
    description += diagnostic.text + " (SQLSTATE " + diagnostic.state + ")";
  }
  return {NumberOf(diagnostics), description, "ODBC"};
}

platform::RuntimeError WithoutPasswords(const platform::RuntimeError& error,
                                        const std::vector<std::string>& passwords) {
  std::string description = error.Description();
  for (const std::string& password : passwords) {
    if (!password.empty()) description = StarredOut(description, password);
  }
  return {error.Number(), description, error.Source()};
}

}  // namespace adapters::odbc
