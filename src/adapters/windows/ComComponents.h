#pragma once

#include "platform/ComponentFactory.h"

namespace adapters::windows {

/// The suite's components as COM has them: reached late bound by programmatic id. What a component
/// answers becomes the nearest of AutomationValue's kinds: whole numbers of 32 bits, other numbers,
/// dates as the number they are; Null becomes Empty. An object or an array throws RuntimeError 13.
class ComComponents : public platform::ComponentFactory {
 public:
  std::unique_ptr<platform::AutomationObject> Create(std::string_view progId) override;
};

}  // namespace adapters::windows
