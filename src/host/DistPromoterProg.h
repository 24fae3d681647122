#pragma once

#include <cstdint>
#include <string>

#include "host/ProgramEditor.h"
#include "host/modMain.h"
#include "platform/ControlSite.h"
#include "platform/PropertyBag.h"

namespace host {

/// The module's one public control. The suite places it on a form, gives it the host context and
/// calls View or ClearShow. Errors of the database travel out of both calls. Several may stand on
/// one module: the last that was called is the one whose host context and container all forms have.
class DistPromoterProg {
 public:
  DistPromoterProg(modMain& module, ProgramEditor& editor, platform::ControlSite& site)
      : module_(module), editor_(editor), site_(site) {}

  std::int32_t UserID() const { return userId_; }
  void SetUserID(std::int32_t New_UserID);
  std::int32_t EmployeeID() const { return employeeId_; }
  /// Marks "UserID" as changed, not "EmployeeID": containers of the suite rely on it, and
  /// WriteProperties stores all four keys anyway.
  void SetEmployeeID(std::int32_t New_EmployeeID);
  std::int32_t PositionID() const { return positionId_; }
  void SetPositionID(std::int32_t New_PositionID);
  const std::string& OLEConnectionString() const { return connectionString_; }
  void SetOLEConnectionString(std::string New_OLEConnectionString);

  /// Both re-read the host context, rebuild the data environment, ask for permission 111 and open
  /// the editor or say that the user may not. With another connection string than the last call's
  /// the editor and its dialogs are closed first, whatever comes of the call. Both return false on
  /// every path. While a message or a dialog of the module is up, or a statement runs, they throw
  /// RuntimeError 401 and change nothing.
  bool ClearShow();
  bool View(std::int32_t inID);

  void InitProperties();
  void ReadProperties(platform::PropertyBag& bag);
  void WriteProperties(platform::PropertyBag& bag) const;
  /// Shrinks and hides the control: it has no surface of its own.
  void Paint();

 private:
  void RefuseWhileWaiting() const;
  void RefreshHostContext();
  bool MayOpen();

  modMain& module_;
  ProgramEditor& editor_;
  platform::ControlSite& site_;
  std::int32_t userId_ = -1;
  std::int32_t employeeId_ = -1;
  std::int32_t positionId_ = -1;
  std::string connectionString_;
};

}  // namespace host
