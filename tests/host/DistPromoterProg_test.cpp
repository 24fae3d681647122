#include "host/DistPromoterProg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

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
  bool DialogIsUp() const override { return false; }
};

class DistPromoterProgTest : public testing::Test {
 protected:
  support::ScriptedPlatform outside;
  host::modMain module{outside.Services()};
  NotedEditor editor;
  host::DistPromoterProg control{module, editor, outside.controlSite};
};

TEST_F(DistPromoterProgTest, LetAndPaint_any_markTheirKeyAndHideTheControl) {
  control.SetUserID(1);
  control.SetEmployeeID(2);
  control.SetPositionID(3);
  control.SetOLEConnectionString("server");
  control.Paint();
  EXPECT_THAT(outside.controlSite.log,
              ElementsAre("changed UserID", "changed UserID", "changed PositionID",
                          "changed OLEConnectionString", "height 100", "width 100", "invisible"));
}

TEST_F(DistPromoterProgTest, WriteProperties_thenRead_bringsAllFourBackAndStoresNoDefault) {
  control.SetEmployeeID(2);
  control.SetPositionID(3);
  control.SetOLEConnectionString("server");
  control.WriteProperties(outside.propertyBag);
  EXPECT_THAT(outside.propertyBag.keys,
              ElementsAre("UserID", "PositionID", "OLEConnectionString", "EmployeeID"));
  EXPECT_FALSE(outside.propertyBag.stored.contains("UserID"));
  const auto values = [this] {
    return std::tuple(control.UserID(), control.EmployeeID(), control.PositionID(),
                      control.OLEConnectionString());
  };
  control.InitProperties();
  EXPECT_EQ(values(), std::tuple(-1, -1, -1, ""));
  control.ReadProperties(outside.propertyBag);
  EXPECT_EQ(values(), std::tuple(-1, 2, 3, "server"));
  outside.propertyBag.stored.clear();
  control.ReadProperties(outside.propertyBag);
  EXPECT_EQ(values(), std::tuple(-1, -1, -1, ""));
}

TEST_F(DistPromoterProgTest, Open_permitted_asksOnTheHostsConnectionAndOpensTheEditor) {
  control.SetUserID(7);
  control.SetEmployeeID(8);
  control.SetPositionID(9);
  control.SetOLEConnectionString("server A");
  EXPECT_FALSE(control.View(42));
  EXPECT_EQ(module.Context().employeeId, 8);
  EXPECT_EQ(module.Context().positionId, 9);

  control.SetUserID(17);
  control.SetOLEConnectionString("server B");
  EXPECT_FALSE(control.ClearShow());
  EXPECT_THAT(outside.database.Log(),
              ElementsAre("spZomirHasPermission(@UserID=7, @FormPermissionID=111)",
                          "spZomirHasPermission(@UserID=17, @FormPermissionID=111)"));
  EXPECT_EQ(outside.database.Calls().at(0).connectionString, "server A");
  EXPECT_EQ(outside.database.Calls().at(1).connectionString, "server B");
  EXPECT_THAT(editor.opened, ElementsAre("program 42", "empty"));
}

}  // namespace
