#pragma once

#include <string>

#include "platform/ComponentFactory.h"
#include "platform/Connection.h"

namespace adapters::qt {

/// The suite's viewer of accounting documents, "comVoucherView.comVoucherView1". UserID, PositionID
/// and OLEConnectionString are put first; View then takes the document's id, shows the document
/// read only and returns when its window is closed. An id without a document, -1 above all, shows
/// that there is none. Whoever calls View may not look at errors, so the viewer shows those of the
/// database itself.
class DocumentViewer : public platform::AutomationObject {
 public:
  /// `connections` outlives this object.
  explicit DocumentViewer(platform::ConnectionFactory& connections) : connections_(connections) {}

  void Put(std::string_view member, const platform::AutomationValue& value) override;
  platform::AutomationValue Get(std::string_view member) override;
  platform::AutomationValue Call(std::string_view member,
                                 std::span<const platform::AutomationValue> arguments) override;

 private:
  void View(std::int32_t documentId);

  platform::ConnectionFactory& connections_;
  std::string connectionString_;
};

}  // namespace adapters::qt
