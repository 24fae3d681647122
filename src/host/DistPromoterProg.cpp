#include "host/DistPromoterProg.h"

#include <utility>
#include <variant>

#include "platform/RuntimeError.h"

namespace host {

namespace {

constexpr std::int32_t kPermissionToOpen = 111;
constexpr std::int32_t kNoId = -1;
constexpr double kPaintedSize = 100;

std::int32_t ReadId(platform::PropertyBag& bag, std::string_view key) {
  return std::get<std::int32_t>(bag.ReadProperty(key, kNoId));
}

}  // namespace

void DistPromoterProg::SetUserID(std::int32_t New_UserID) {
  userId_ = New_UserID;
  site_.PropertyChanged("UserID");
}

void DistPromoterProg::SetEmployeeID(std::int32_t New_EmployeeID) {
  employeeId_ = New_EmployeeID;
  site_.PropertyChanged("UserID");
}

void DistPromoterProg::SetPositionID(std::int32_t New_PositionID) {
  positionId_ = New_PositionID;
  site_.PropertyChanged("PositionID");
}

void DistPromoterProg::SetOLEConnectionString(std::string New_OLEConnectionString) {
  connectionString_ = std::move(New_OLEConnectionString);
  site_.PropertyChanged("OLEConnectionString");
}

/// A routine that waits for the user or the database goes on with the program, the context and the
/// connection that it began with: a deletion that was asked about must not meet another program.
void DistPromoterProg::RefuseWhileWaiting() const {
  if (!module_.NoticeIsUp() && !module_.StatementRuns() && !editor_.DialogIsUp()) return;
  throw platform::RuntimeError(platform::kNonModalWhileModal,
                               "Can't show non-modal form when modal form is displayed");
}

void DistPromoterProg::RefreshHostContext() {
  // Before anything can refuse or fail: what still shows one database must not write to another.
  if (module_.Context().connectionString != connectionString_) editor_.UnloadAll();
  module_.SetContext({.userId = userId_,
                      .positionId = positionId_,
                      .employeeId = employeeId_,
                      .connectionString = connectionString_});
  module_.ConnectDataEnvironment();
  site_.Entered();
}

bool DistPromoterProg::MayOpen() {
  if (module_.HasPermission(kPermissionToOpen)) return true;
  module_.ShowMessage("خطا", "شما مجاز به انجام اين عمليات نيستيد. نقش ”" +
                                 std::to_string(kPermissionToOpen) + "“");
  return false;
}

bool DistPromoterProg::ClearShow() {
  RefuseWhileWaiting();
  RefreshHostContext();
  if (MayOpen()) editor_.ClearShow();
  return false;
}

bool DistPromoterProg::View(std::int32_t inID) {
  RefuseWhileWaiting();
  RefreshHostContext();
  if (MayOpen()) editor_.View(inID);
  return false;
}

void DistPromoterProg::InitProperties() {
  userId_ = kNoId;
  positionId_ = kNoId;
  employeeId_ = kNoId;
  connectionString_.clear();
}

void DistPromoterProg::ReadProperties(platform::PropertyBag& bag) {
  userId_ = ReadId(bag, "UserID");
  positionId_ = ReadId(bag, "PositionID");
  connectionString_ = std::get<std::string>(bag.ReadProperty("OLEConnectionString", std::string()));
  employeeId_ = ReadId(bag, "EmployeeID");
}

void DistPromoterProg::WriteProperties(platform::PropertyBag& bag) const {
  bag.WriteProperty("UserID", userId_, kNoId);
  bag.WriteProperty("PositionID", positionId_, kNoId);
  bag.WriteProperty("OLEConnectionString", connectionString_, std::string());
  bag.WriteProperty("EmployeeID", employeeId_, kNoId);
}

void DistPromoterProg::Paint() {
  site_.SetExtenderHeight(kPaintedSize);
  site_.SetExtenderWidth(kPaintedSize);
  site_.SetExtenderVisible(false);
}

}  // namespace host
