#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace platform {

using PropertyValue = std::variant<std::int32_t, std::string>;

/// Where a container keeps the properties of a control between sessions.
class PropertyBag {
 public:
  virtual ~PropertyBag() = default;
  /// The stored value, or `defaultValue` when the key is absent. A stored value of the other kind
  /// is converted; one that cannot be throws RuntimeError 13.
  virtual PropertyValue ReadProperty(std::string_view key, const PropertyValue& defaultValue) = 0;
  /// A value equal to its default is not stored.
  virtual void WriteProperty(std::string_view key, const PropertyValue& value,
                             const PropertyValue& defaultValue) = 0;
};

}  // namespace platform
