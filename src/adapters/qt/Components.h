#pragma once

#include "platform/ComponentFactory.h"
#include "platform/Connection.h"

namespace adapters::qt {

/// The suite's components that this desktop brings itself: "comNotice.comNTC", the message dialog,
/// and "comVoucherView.comVoucherView1", the viewer of accounting documents.
class Components : public platform::ComponentFactory {
 public:
  /// The viewer reads through `connections`, which outlives this object and what it creates.
  explicit Components(platform::ConnectionFactory& connections) : connections_(connections) {}

  std::unique_ptr<platform::AutomationObject> Create(std::string_view progId) override;

 private:
  platform::ConnectionFactory& connections_;
};

}  // namespace adapters::qt
