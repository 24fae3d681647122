#pragma once

#include "platform/ComponentFactory.h"

namespace adapters::qt {

/// The suite's components that this desktop brings itself: "comNotice.comNTC", the message dialog.
class Components : public platform::ComponentFactory {
 public:
  std::unique_ptr<platform::AutomationObject> Create(std::string_view progId) override;
};

}  // namespace adapters::qt
