#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace platform {

/// A value that crosses to or from a component; monostate is "Empty".
using AutomationValue = std::variant<std::monostate, bool, std::int32_t, double, std::string>;

/// A component of the suite, reached by the names of its members. A member that does not exist
/// throws RuntimeError 438; what the component itself raises keeps its number.
class AutomationObject {
 public:
  virtual ~AutomationObject() = default;
  virtual void Put(std::string_view member, const AutomationValue& value) = 0;
  virtual AutomationValue Get(std::string_view member) = 0;
  virtual AutomationValue Call(std::string_view member,
                               std::span<const AutomationValue> arguments = {}) = 0;
};

/// Creates components by programmatic id ("comNotice.comNTC").
class ComponentFactory {
 public:
  virtual ~ComponentFactory() = default;
  /// Throws RuntimeError 429 when the component is not registered.
  virtual std::unique_ptr<AutomationObject> Create(std::string_view progId) = 0;
};

}  // namespace platform
