#include "host/DistPromoterProg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "platform/ResumeNext.h"
#include "support/ScriptedPlatform.h"

namespace {

using testing::ElementsAre;

// Opens nothing; notes what it was asked for.
class NotedEditor : public host::ProgramEditor {
 public:
  std::vector<std::string> opened;
  bool ClearShow() override {
    opened.emplace_back("empty");
    return true;
  }
  bool View(std::int32_t inProgramID) override {
    opened.push_back("program " + std::to_string(inProgramID));
    return true;
  }
  void UnloadAll() override { opened.emplace_back("nothing"); }
  bool DialogIsUp() const override { return false; }
};

class DistPromoterProgTest : public testing::Test {
 protected:
  support::ScriptedPlatform outside;
  host::modMain module{outside.Services()};
  NotedEditor editor;
  host::DistPromoterProg control{module, editor, outside.controlSite};
};

TEST_F(DistPromoterProgTest, LetPaintAndOpen_any_tellTheSiteAndOpenTheEditorOnWhatWasLet) {
  control.SetUserID(7);
  control.SetEmployeeID(8);
  control.SetPositionID(9);
  control.SetOLEConnectionString("server");
  control.Paint();
  EXPECT_THAT(outside.controlSite.log,
              ElementsAre("changed UserID", "changed UserID", "changed PositionID",
                          "changed OLEConnectionString", "height 100", "width 100", "invisible"));
  EXPECT_FALSE(control.View(42) || control.ClearShow());
  EXPECT_THAT(editor.opened, ElementsAre("nothing", "program 42", "empty"))
      << "what another database was opened for goes first";
  EXPECT_EQ(module.Context().employeeId, 8);
  EXPECT_EQ(module.Context().positionId, 9);
  EXPECT_EQ(outside.database.Log().at(1), "spZomirHasPermission(@UserID=7, @FormPermissionID=111)");
  EXPECT_EQ(outside.database.Calls().at(1).connectionString, "server");
}

TEST_F(DistPromoterProgTest, ClearShow_refusedOrFailingOnAnotherConnection_closesTheEditor) {
  outside.database.Refuse(111);
  control.SetOLEConnectionString("one");
  control.ClearShow();
  control.ClearShow();
  EXPECT_THAT(editor.opened, ElementsAre("nothing")) << "once a string";
  outside.database.FailAtCall(1, {17, "no server"});
  control.SetOLEConnectionString("two");
  EXPECT_EQ(platform::ResumeNext([&] { control.View(1); }), 17);
  EXPECT_THAT(editor.opened, ElementsAre("nothing", "nothing"));
}

TEST_F(DistPromoterProgTest, WriteProperties_thenRead_bringsAllFourBackAndStoresNoDefault) {
  const auto values = [this] {
    return std::tuple(control.UserID(), control.EmployeeID(), control.PositionID(),
                      control.OLEConnectionString());
  };
  control.SetEmployeeID(2);
  control.SetPositionID(3);
  control.SetOLEConnectionString("server");
  control.WriteProperties(outside.propertyBag);
  EXPECT_THAT(outside.propertyBag.keys,
              ElementsAre("UserID", "PositionID", "OLEConnectionString", "EmployeeID"));
  EXPECT_FALSE(outside.propertyBag.stored.contains("UserID"));
  control.InitProperties();
  EXPECT_EQ(values(), std::tuple(-1, -1, -1, ""));
  control.ReadProperties(outside.propertyBag);
  EXPECT_EQ(values(), std::tuple(-1, 2, 3, "server"));
  outside.propertyBag.stored.clear();
  control.ReadProperties(outside.propertyBag);
  EXPECT_EQ(values(), std::tuple(-1, -1, -1, ""));
}

}  // namespace
