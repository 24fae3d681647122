#include "adapters/qt/Automation.h"

#include <string>
#include <type_traits>
#include <variant>

#include "adapters/qt/Convert.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {

using platform::AutomationValue;
using platform::RuntimeError;

void ThrowNoSuchMember(const char* component) {
  throw RuntimeError(platform::kNoSuchMember, "Object doesn't support this property or method",
                     component);
}

QString AsText(const AutomationValue& value) {
  return std::visit(
      [](const auto& held) -> QString {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::monostate>)
          return {};
        else if constexpr (std::is_same_v<Held, bool>)
          return QString::fromLatin1(held ? "True" : "False");
        else if constexpr (std::is_same_v<Held, std::string>)
          return ToQString(held);
        else
          return QString::number(held);
      },
      value);
}

std::int32_t AsNumber(const AutomationValue& value, const char* component) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
  if (const auto* number = std::get_if<double>(&value)) return qRound(*number);
  throw RuntimeError(platform::kTypeMismatch, "Type mismatch", component);
}

}  // namespace adapters::qt
