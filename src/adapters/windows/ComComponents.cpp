#include "adapters/windows/ComComponents.h"

#include <type_traits>
#include <variant>
#include <vector>

#include "adapters/windows/Com.h"

namespace adapters::windows {

namespace {

using platform::AutomationValue;

Variant ToVariant(const AutomationValue& value) {
  return std::visit(
      [](const auto& held) -> Variant {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::monostate>) {
          return {};
        } else {
          return held;
        }
      },
      value);
}

AutomationValue FromVariant(const Variant& value) {
  switch (value.Type()) {
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_BOOL:
      return value.Flag();
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_INT:
      return value.Number();
    case VT_BSTR:
      return value.Text();
    default: {
      Variant number;
      Check(VariantChangeType(number.Out(), const_cast<VARIANT*>(&value.Raw()), 0, VT_R8));
      return number.Raw().dblVal;
    }
  }
}

class Component : public platform::AutomationObject {
 public:
  explicit Component(Dispatch object) : object_(std::move(object)) {}

  void Put(std::string_view member, const AutomationValue& value) override {
    object_.Put(member, ToVariant(value));
  }
  AutomationValue Get(std::string_view member) override {
    return FromVariant(object_.Property(member));
  }
  AutomationValue Call(std::string_view member,
                       std::span<const AutomationValue> arguments) override {
    std::vector<Variant> variants;
    for (const AutomationValue& argument : arguments) variants.push_back(ToVariant(argument));
    return FromVariant(object_.Call(member, variants));
  }

 private:
  Dispatch object_;
};

}  // namespace

std::unique_ptr<platform::AutomationObject> ComComponents::Create(std::string_view progId) {
  return std::make_unique<Component>(Dispatch::Create(progId));
}

}  // namespace adapters::windows
