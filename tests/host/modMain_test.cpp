#include "host/modMain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

TEST(NumericValue_, texts_giveTheirNumbers) {
  const struct {
    std::string_view text;
    double value;
  } cases[] = {
      {"", -1},         {"   ", -1},    {"True", 1},
      {"true", 0},      {" True", 0},   {"False", 0},
      {"/", 0},         {"17", 17},     {"1402/05/09", 14020509},
      {"12 abc 4", 12}, {"1 2 3", 123}, {"-4", -4},
      {"12.5", 12.5},   {"1,234", 1},   {"1E3", 1000},
      {"abc", 0},       {"1E999", 0},
  };
  for (const auto& c : cases) EXPECT_EQ(host::NumericValue(c.text), c.value) << c.text;
}

TEST(NumericId_, texts_giveWholeIdsOrOverflow) {
  EXPECT_EQ(host::NumericId(""), -1);
  EXPECT_EQ(host::NumericId("12.9"), 12);
  EXPECT_EQ(host::NumericId("-12.9"), -12);
  EXPECT_EQ(host::NumericId("2147483647"), 2147483647);
  EXPECT_EQ(host::NumericId("-2147483648"), -2147483647 - 1);
  EXPECT_EQ(ResumeNext([] { (void)host::NumericId("2147483648"); }), platform::kOverflow);
  EXPECT_EQ(ResumeNext([] { (void)host::NumericId("-2147483649"); }), platform::kOverflow);
}

class EmptyForm : public controls::Form {
 public:
  explicit EmptyForm(controls::Screen& screen) : Form(screen, "EmptyForm", Border::kSizable) {}
};

TEST_F(modMainTest, ShiftControl_refusedParts_shiftsTheOthers) {
  EmptyForm form(outside.screen);
  controls::Label label(form, "lbl");
  label.Move(100, 200, 300, 400);
  host::ShiftControl(label, 10, 20, 30, 40);
  EXPECT_EQ(label.Width(), 310);
  EXPECT_EQ(label.Left(), 120);
  EXPECT_EQ(label.Height(), 430);
  EXPECT_EQ(label.Top(), 240);
  host::ShiftControl(label, -1000, 1, -1000, 2);  // neither can be negative
  EXPECT_EQ(label.Width(), 310);
  EXPECT_EQ(label.Left(), 121);
  EXPECT_EQ(label.Height(), 430);
  EXPECT_EQ(label.Top(), 242);

  controls::ComboBox list(form, "cmb");
  host::ShiftControl(list, 50, 0, 60, 70);  // its height is read-only
  EXPECT_EQ(list.Width(), 50);
  EXPECT_EQ(list.Top(), 70);
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
  outside.components.WillAnswer({Answer::kYes, Answer::kNo, Answer::kClosed});
  EXPECT_EQ(module.AskQuestion("پرسش", "؟"), 6);
  EXPECT_EQ(module.AskQuestion("پرسش", "؟"), 7);
  EXPECT_EQ(module.AskQuestion("پرسش", "؟"), 0);
  EXPECT_EQ(outside.components.messages.at(0), (Message{"پرسش", "؟", 1}));
}

TEST_F(modMainTest, Notices_componentCannotBeMade_areSilent) {
  for (const std::int32_t number : {429, 70}) {
    outside.components.createError = platform::RuntimeError(number, "no");
    EXPECT_NO_THROW(module.ShowMessage("خطا", "متن"));
    EXPECT_EQ(module.AskQuestion("پرسش", "؟"), 0);
  }
  EXPECT_THAT(outside.components.told, IsEmpty());
}

TEST_F(modMainTest, Notices_missingMembers_areResumedOneByOne) {
  outside.components.missingMembers = {"FormTitle", "BtmBackColor"};
  module.ShowMessage("خطا", "متن");
  EXPECT_THAT(outside.components.messages, ElementsAre(Message{"", "متن", 0}));
  outside.components.missingMembers = {"Resualt"};
  outside.components.WillAnswer({Answer::kYes});
  EXPECT_EQ(module.AskQuestion("پرسش", "؟"), 0);
}

class TemplateForm : public host::ReportTemplateForm {
 public:
  explicit TemplateForm(controls::Container& parent) : list_(parent, "cmbReport") {}
  controls::ComboBox& cmbReport() override { return list_; }
  std::int32_t DocumnetID() const override { return 3308; }

 private:
  controls::ComboBox list_;
};

constexpr const char* kTemplates = "Select * from tblZomirReportTemplate where FormTypeID = 3308";

TEST_F(modMainTest, LoadReportTemplates_rows_refillTheListWithTitlesAndIds) {
  EmptyForm form(outside.screen);
  TemplateForm templates(form);
  templates.cmbReport().AddItem("old");
  outside.database.When(Exact(kTemplates))
      .Gives(RowSetOf({"ID", "Title"}, {{"12", "ساده"}, {"7", "كامل"}}));
  EXPECT_TRUE(module.LoadReportTemplates(templates));
  ASSERT_EQ(templates.cmbReport().ListCount(), 2);
  EXPECT_EQ(templates.cmbReport().List(0), "ساده");
  EXPECT_EQ(templates.cmbReport().ItemData(0), 12);
  EXPECT_EQ(templates.cmbReport().List(1), "كامل");
  EXPECT_EQ(templates.cmbReport().ItemData(1), 7);
  EXPECT_EQ(module.DtEn().sqlReportTemplate().GetState(), host::Recordset::State::kClosed);
}

TEST_F(modMainTest, LoadReportTemplates_noRows_saysSoAndLeavesTheList) {
  EmptyForm form(outside.screen);
  TemplateForm templates(form);
  templates.cmbReport().AddItem("old");
  EXPECT_FALSE(module.LoadReportTemplates(templates));
  EXPECT_EQ(templates.cmbReport().ListCount(), 1);
  EXPECT_THAT(outside.components.messages,
              ElementsAre(Message{
                  "اطلاع ", "قالبي براي گزارش گيري در سيستم موجود نيست .آن را ايجاد كنيد ."}));
  EXPECT_EQ(module.DtEn().sqlReportTemplate().GetState(), host::Recordset::State::kClosed);
}

TEST_F(modMainTest, LoadReportTemplates_databaseFails_letsTheErrorOut) {
  EmptyForm form(outside.screen);
  TemplateForm templates(form);
  outside.database.When(Exact(kTemplates)).Fails({208, "Invalid object name"});
  EXPECT_EQ(ResumeNext([&] { module.LoadReportTemplates(templates); }), 208);
  EXPECT_THAT(outside.components.messages, IsEmpty());
}

constexpr const char* kToday = "Select getdate() as today";

TEST_F(modMainTest, GetServerDate_noConnectionString_isTheMachinesWithoutTheDatabase) {
  EXPECT_EQ(module.GetServerDate(), outside.clock.today);
  EXPECT_THAT(outside.database.Log(), IsEmpty());
  EXPECT_THAT(outside.connections.connectionStrings, IsEmpty());
}

TEST_F(modMainTest, GetServerDate_replies_areReadOrFallBack) {
  const std::chrono::sys_days machine = outside.clock.today;
  const struct {
    const char* what;
    platform::RowSet reply;
    std::chrono::sys_days expected;
  } cases[] = {
      {"date and time", RowSetOf({"today"}, {{"2024-02-29 23:59:58"}}), 2024y / 2 / 29},
      {"date", RowSetOf({"today"}, {{"2024-03-01"}}), 2024y / 3 / 1},
      {"no row", RowSetOf({"today"}), machine},
      {"null", RowSetOf({"today"}, {{std::nullopt}}), machine},
      {"no date", RowSetOf({"today"}, {{"2024-13-01"}}), machine},
      {"another column", RowSetOf({"now"}, {{"2024-03-01"}}), machine},
  };
  module.SetContext({.userId = 1, .connectionString = "server"});
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    outside.database.When(Exact(kToday)).Gives(c.reply);
    EXPECT_EQ(module.GetServerDate(), c.expected);
    EXPECT_EQ(module.DtEn().sqlProgram().GetState(), host::Recordset::State::kClosed);
  }
}

TEST_F(modMainTest, GetServerDate_serverFails_isTheMachines) {
  module.SetContext({.userId = 1, .connectionString = "server"});
  outside.database.FailAlways({17, "no server"});
  EXPECT_EQ(module.GetServerDate(), outside.clock.today);
}

TEST_F(modMainTest, GetServerDate_recordsetLeftOpen_isClosedFirst) {
  module.SetContext({.userId = 1, .connectionString = "server"});
  module.DtEn().sqlProgram().Open("Select something");
  outside.database.When(Exact(kToday)).Gives(RowSetOf({"today"}, {{"2024-03-01"}}));
  EXPECT_EQ(module.GetServerDate(), std::chrono::sys_days(2024y / 3 / 1));
}

TEST_F(modMainTest, AskSaveFileName_chosenOrCancelled_isTrueAndTheNameTells) {
  std::string name = "visits.txt";
  EXPECT_TRUE(module.AskSaveFileName(name, "*.txt"));
  EXPECT_EQ(name, "visits.txt");
  outside.fileDialog.chosen = "/home/visits2.txt";
  EXPECT_TRUE(module.AskSaveFileName(name, "*.txt"));
  EXPECT_EQ(name, "/home/visits2.txt");
  EXPECT_THAT(outside.fileDialog.shown,
              ElementsAre(Pair("visits.txt", "*.txt"), Pair("visits.txt", "*.txt")));
}

TEST_F(modMainTest, SwitchKeyboard_versions_chooseOrKeepTheLayout) {
  for (const std::uint32_t version : {3U, 0x0A280104U, 3U, 0x47BB000AU, 4U, 5U, 3U}) {
    outside.keyboard.version = version;
    module.SwitchKeyboard();
  }
  EXPECT_THAT(outside.keyboard.loaded, ElementsAre("", "00000401", "00000401", "00000429",
                                                   "00000401", "00000429", "00000429"));
}

TEST_F(modMainTest, ConnectDataEnvironment_twice_leavesOneWithTheLastStringAndTouchesNoServer) {
  outside.database.FailAlways({17, "no server"});
  module.SetContext({.connectionString = "first"});
  module.ConnectDataEnvironment();
  module.SetContext({.connectionString = "second"});
  module.ConnectDataEnvironment();
  EXPECT_EQ(outside.connections.Alive(), 1);
  EXPECT_EQ(outside.connections.MostAlive(), 1);
  EXPECT_THAT(outside.database.Log(), IsEmpty());
  EXPECT_EQ(ResumeNext([&] { module.DtEn().sqlCommon().Open("Select 1"); }), 17);
  EXPECT_EQ(outside.database.Calls().at(0).connectionString, "second");
}

TEST_F(modMainTest, ConnectDataEnvironment_openRecordset_isDropped) {
  module.DtEn().sqlCommon().Open("Select 1");
  module.ConnectDataEnvironment();
  EXPECT_EQ(module.DtEn().sqlCommon().GetState(), host::Recordset::State::kClosed);
}

TEST_F(modMainTest, spZomirInsertFormAction_any_passesTheProceduresParameters) {
  module.DtEn().spZomirInsertFormAction({.eventId = 2,
                                         .formCode = "15",
                                         .formTypeId = host::kFormTypeId,
                                         .description = "شرح",
                                         .userId = 7,
                                         .eventDate = 2025y / 3 / 21,
                                         .farsiEventDate = "1404/01/01",
                                         .eventTime = 510});
  EXPECT_THAT(outside.database.Log(),
              ElementsAre("dbo.spZomirInsertFormAction(@EventID=2, @FormCode='15', "
                          "@FormTypeID=3308, @Description='شرح', @UserID=7, "
                          "@EventDate=2025-03-21, @FarsiEventDate='1404/01/01', @EventTime=510)"));
}

TEST_F(modMainTest, Lookup_sameString_keepsItsOwnConnection) {
  module.DtEn();
  module.Lookup("server", "Select 1");
  module.Lookup("server", "Select 2");
  module.Lookup("other", "Select 3");
  EXPECT_THAT(outside.connections.connectionStrings, ElementsAre("", "server", "other"));
  EXPECT_EQ(outside.connections.Alive(), 2);
}

}  // namespace
