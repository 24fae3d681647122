#include "screens/AutomationValues.h"

#include <cmath>
#include <limits>
#include <type_traits>
#include <variant>

#include "platform/RuntimeError.h"
#include "text/Text.h"

namespace screens {

using platform::AutomationValue;
using platform::RuntimeError;

void ThrowNoSuchMember(std::string_view component) {
  throw RuntimeError(platform::kNoSuchMember, "Object doesn't support this property or method",
                     std::string(component));
}

std::string AsText(const AutomationValue& value) {
  return std::visit(
      [](const auto& held) -> std::string {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::monostate>)
          return {};
        else if constexpr (std::is_same_v<Held, bool>)
          return held ? "True" : "False";
        else if constexpr (std::is_same_v<Held, std::string>)
          return held;
        else
          return text::DecimalText(held);
      },
      value);
}

std::int32_t AsNumber(const AutomationValue& value, std::string_view component) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
  const auto* number = std::get_if<double>(&value);
  if (number == nullptr) {
    throw RuntimeError(platform::kTypeMismatch, "Type mismatch", std::string(component));
  }
  const double whole = std::round(*number);
  if (!(whole >= Limits::min() && whole <= Limits::max())) {
    throw RuntimeError(platform::kOverflow, "Overflow", std::string(component));
  }
  return static_cast<std::int32_t>(whole);
}

}  // namespace screens
