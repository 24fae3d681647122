#include "platform/ConnectionFault.h"

#include <algorithm>
#include <array>

namespace platform {

std::string_view UserSentence(ConnectionFault fault) {
  switch (fault) {
    case ConnectionFault::kLost:
      return "ارتباط با پايگاه داده قطع شد. دوباره تلاش كنيد؛ فرم شما باز است و چيزي از آنچه نوشته "
             "ايد از دست نرفته است.";
    case ConnectionFault::kSilent:
      return "پايگاه داده در زمان مقرر پاسخ نداد و ارتباط با آن قطع شد. كمي بعد دوباره تلاش كنيد؛ "
             "فرم شما باز است و چيزي از آنچه نوشته ايد از دست نرفته است.";
    case ConnectionFault::kUnreachable:
      return "پايگاه داده در دسترس نيست. نشاني سرور، روشن بودن آن و شبكه را بررسي كنيد.";
    case ConnectionFault::kNoAnswer:
      return "سرور پايگاه داده به درخواست اتصال پاسخ نداد. كمي بعد دوباره تلاش كنيد.";
    case ConnectionFault::kRefused:
      return "سرور پايگاه داده اجازه ورود نداد. نام كاربر، رمز و نام پايگاه داده را بررسي كنيد.";
    case ConnectionFault::kNoDriver:
      return "درايور پايگاه داده روي اين رايانه پيدا نشد يا بار نشد.";
    case ConnectionFault::kStatement:
    case ConnectionFault::kLogin:
      break;
  }
  return {};
}

/// 28000 is the state of a refused login; the numbers are the server's for a database that it
/// does not open for the user, or a login that is expired, disabled or untrusted.
bool IsRefusal(std::string_view state, std::int32_t number) {
  static constexpr auto kNumbers =
      std::to_array<std::int32_t>({4060, 4064, 18452, 18456, 18470, 18486, 18487, 18488, 40615});
  return state == "28000" || std::find(kNumbers.begin(), kNumbers.end(), number) != kNumbers.end();
}

}  // namespace platform
