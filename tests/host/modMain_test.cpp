#include "host/modMain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "controls/Form.h"
#include "platform/ResumeNext.h"
#include "support/ScriptedPlatform.h"

namespace {

using namespace std::chrono_literals;
using platform::AutomationValue;
using platform::ResumeNext;
using support::Answer;
using support::Exact;
using support::Message;
using support::RowSetOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class modMainTest : public testing::Test {
 protected:
  support::ScriptedPlatform outside;
  host::modMain module{outside.Services()};
};

TEST(NumericValue_, texts_giveTheirNumbersAndWholeIdsOrOverflow) {
  const std::pair<std::string_view, double> cases[] = {
      {"", -1}, {"   ", -1},  {"True", 1},   {"true", 0}, {" True", 0}, {"1402/05/09", 14020509},
      {"/", 0}, {"1E999", 0}, {"12.5", 12.5}};
  for (const auto& [text, value] : cases) EXPECT_EQ(host::NumericValue(text), value) << text;
  EXPECT_EQ(host::NumericId("-12.9"), -12);
  EXPECT_EQ(host::NumericId("2147483647"), 2147483647);
  EXPECT_EQ(ResumeNext([] { (void)host::NumericId("2147483648"); }), platform::kOverflow);
  EXPECT_EQ(ResumeNext([] { (void)host::NumericId("-2147483649"); }), platform::kOverflow);
}

TEST_F(modMainTest, ShiftControl_refusedParts_shiftsTheOthers) {
  controls::Form form(outside.screen, "Form", controls::Form::Border::kFixed);
  controls::Label label(form, "lbl");
  label.Move(100, 200, 300, 400);
  host::ShiftControl(label, 10, 20, 30, 40);
  host::ShiftControl(label, -1000, 1, -1000, 2);  // neither size can be negative
  EXPECT_EQ(std::tuple(label.Width(), label.Left(), label.Height(), label.Top()),
            std::tuple(310, 121, 430, 242));
}

TEST_F(modMainTest, ShowMessage_any_tellsTheComponentInItsOrder) {
  module.ShowMessage("اطلاع ", "متن");
  EXPECT_THAT(outside.components.created, ElementsAre("comNotice.comNTC"));
  EXPECT_THAT(
      outside.components.told,
      ElementsAre(
          Pair("FormTitle", AutomationValue("اطلاع ")), Pair("FormMessage", AutomationValue("متن")),
          Pair("FormType", AutomationValue(0)), Pair("FormBackColor", AutomationValue(14411760)),
          Pair("BtmBackColor", AutomationValue(13490407)),
          Pair("FrameBackColor", AutomationValue(15791353)), Pair("ClearShow", AutomationValue())));
}

TEST_F(modMainTest, AskQuestion_answers_areYesNoOrNeither) {
  outside.components.WillAnswer({Answer::kYes, Answer::kNo, Answer::kClosed, Answer::kYes});
  for (const int expected : {6, 7, 0}) EXPECT_EQ(module.AskQuestion("پرسش", "؟"), expected);
  EXPECT_EQ(outside.components.messages.at(0), (Message{"پرسش", "؟", 1}));
  std::set<std::string_view> refused = {"FormTitle", "BtmBackColor", "Resualt"};
  outside.components.beforeCall = [&](std::string_view call) {
    if (refused.contains(call)) throw platform::RuntimeError(438, "no");
  };
  EXPECT_EQ(module.AskQuestion("پرسش", "؟"), 0);  // resumed one by one
  EXPECT_EQ(outside.components.messages.back(), (Message{"", "؟", 1}));
  refused = {"comNotice.comNTC"};
  EXPECT_NO_THROW(module.ShowMessage("خطا", "متن"));
  EXPECT_EQ(module.AskQuestion("پرسش", "؟"), 0);
}

TEST_F(modMainTest, GetServerDate_replies_areReadOrFallBack) {
  const std::chrono::sys_days machine = outside.desktop.today;
  const std::pair<platform::RowSet, std::chrono::sys_days> cases[] = {
      {RowSetOf({"today"}, {{"2024-02-29 23:59:58"}}), 2024y / 2 / 29},
      {RowSetOf({"today"}), machine},
      {RowSetOf({"today"}, {{std::nullopt}}), machine},
      {RowSetOf({"today"}, {{"2024-13-01"}}), machine},
      {RowSetOf({"now"}, {{"2024-03-01"}}), machine},
  };
  EXPECT_EQ(module.GetServerDate(), machine);
  EXPECT_THAT(outside.database.Log(), IsEmpty());  // no connection string, no server
  module.SetContext({.userId = 1, .connectionString = "server"});
  module.DtEn().sqlProgram().Run("Select something");  // is closed first
  for (const auto& [reply, expected] : cases) {
    outside.database.When(Exact("Select getdate() as today")).Gives(reply);
    EXPECT_EQ(module.GetServerDate(), expected);
  }
  outside.database.FailAtCall(1, {17, "no server"});
  EXPECT_EQ(module.GetServerDate(), machine);
}

TEST_F(modMainTest, SwitchKeyboard_versions_chooseOrKeepTheLayout) {
  for (const std::uint32_t version : {3U, 0x0A280104U, 3U, 0x47BB000AU, 4U, 5U, 3U}) {
    outside.desktop.version = version;
    module.SwitchKeyboard();
  }
  EXPECT_THAT(outside.desktop.loaded, ElementsAre("", "00000401", "00000401", "00000429",
                                                  "00000401", "00000429", "00000429"));
}

TEST_F(modMainTest, Lookup_sameString_keepsItsOwnConnectionAsLongAsTheDataEnvironment) {
  module.DtEn();
  module.Lookup("server", "Select 1");
  module.Lookup("server", "Select 2");
  module.Lookup("other", "Select 3");
  EXPECT_THAT(outside.database.connectionStrings, ElementsAre("", "server", "other"));
  module.ConnectDataEnvironment();
  EXPECT_EQ(outside.database.connections, 1);
  module.Lookup("other", "Select 4");
  EXPECT_EQ(outside.database.connections, 2);
}

}  // namespace
