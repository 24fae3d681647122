#pragma once

#include "controls/Screen.h"
#include "platform/ComponentFactory.h"
#include "platform/Connection.h"
#include "screens/ErrorGuard.h"

namespace screens {

/// The suite's components that the project brings itself, for where the suite is not installed: the
/// message component and the viewer of accounting documents.
class Components : public platform::ComponentFactory {
 public:
  /// All three outlive this object and what it creates.
  Components(ErrorGuard& guard, controls::Screen& screen, platform::ConnectionFactory& connections)
      : guard_(guard), screen_(screen), connections_(connections) {}

  std::unique_ptr<platform::AutomationObject> Create(std::string_view progId) override;

 private:
  ErrorGuard& guard_;
  controls::Screen& screen_;
  platform::ConnectionFactory& connections_;
};

}  // namespace screens
