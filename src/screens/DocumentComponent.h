#pragma once

#include <array>
#include <string>

#include "controls/Screen.h"
#include "platform/ComponentFactory.h"
#include "platform/Connection.h"
#include "screens/ErrorGuard.h"

namespace screens {

/// The suite's viewer of accounting documents, "comVoucherView.comVoucherView1". UserID, PositionID
/// and OLEConnectionString are put first; View then takes the document's id, shows the document
/// read only and returns when its window is closed. An id without a document, -1 above all, shows
/// that there is none. Whoever calls View may not look at errors, so the viewer shows those of the
/// database itself.
class DocumentComponent : public platform::AutomationObject {
 public:
  static constexpr std::string_view kProgId = "comVoucherView.comVoucherView1";
  static constexpr std::array<std::string_view, 4> kMembers{"UserID", "PositionID",
                                                            "OLEConnectionString", "View"};

  /// All three outlive the object.
  DocumentComponent(ErrorGuard& guard, controls::Screen& screen,
                    platform::ConnectionFactory& connections)
      : guard_(guard), screen_(screen), connections_(connections) {}

  void Put(std::string_view member, const platform::AutomationValue& value) override;
  platform::AutomationValue Get(std::string_view member) override;
  platform::AutomationValue Call(std::string_view member,
                                 std::span<const platform::AutomationValue> arguments) override;

 private:
  void View(std::int32_t documentId);

  ErrorGuard& guard_;
  controls::Screen& screen_;
  platform::ConnectionFactory& connections_;
  std::string connectionString_;
};

}  // namespace screens
