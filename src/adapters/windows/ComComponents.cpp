#include "adapters/windows/ComComponents.h"

#include <vector>

#include "adapters/windows/AutomationDispatch.h"
#include "adapters/windows/Com.h"

namespace adapters::windows {

namespace {

using platform::AutomationValue;

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
