#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "adapters/windows/Com.h"
#include "platform/ComponentFactory.h"

namespace adapters::windows {

// Values as components take them and as COM does, either way.
Variant ToVariant(const platform::AutomationValue& value);
platform::AutomationValue FromVariant(const Variant& value);

/// Makes one of our components an object of COM, reached by the names of its members, whatever
/// their letter case, without a type library. `members` are the names as the component knows them
/// and outlive the object. A failure is told in the name of `source`.
ComPtr<IDispatch> MakeDispatch(std::unique_ptr<platform::AutomationObject> object,
                               std::span<const std::string_view> members, std::string_view source);

}  // namespace adapters::windows
