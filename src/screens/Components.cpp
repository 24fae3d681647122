#include "screens/Components.h"

#include "platform/RuntimeError.h"
#include "screens/DocumentComponent.h"
#include "screens/MessageComponent.h"

namespace screens {

std::unique_ptr<platform::AutomationObject> Components::Create(std::string_view progId) {
  if (progId == MessageComponent::kProgId) return std::make_unique<MessageComponent>(screen_);
  if (progId == DocumentComponent::kProgId) {
    return std::make_unique<DocumentComponent>(guard_, screen_, connections_);
  }
  throw platform::RuntimeError(platform::kCannotCreateComponent,
                               "ActiveX component can't create object");
}

}  // namespace screens
