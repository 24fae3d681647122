#include "ScriptedDay.h"

namespace module {
namespace {

using support::Answer;
using support::Message;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(ScriptedDay, WholeLifeOfAProgram_StoresWhatEachStepSays) {
  PlayTheDay();
  EXPECT_THAT(Stored("PRAGMA foreign_key_check"), IsEmpty());
}

TEST_F(ModuleTest, Delete_OfAProgramWithResults_LosesVisitsAndKeepsTheHeader) {
  Module().Control().View(8);
  ASSERT_TRUE(Editor().cmdDelete.Enabled());
  outside.components.WillAnswer({Answer::kYes});
  Editor().cmdDelete.Click();
  const Message& message = outside.components.messages.back();
  EXPECT_TRUE(message.text.starts_with("به اين فرم برنامه بازارياب وابستگي وجود دارد.\r\n"));
  EXPECT_THAT(message.text, HasSubstr("FOREIGN KEY"));
  EXPECT_EQ(Cell("SELECT count(*) FROM tblDistributionPromoterProgram WHERE ID = 8"), "1");
  EXPECT_EQ(Cell("SELECT count(*) FROM tblDistributionPromoterProgramDetail WHERE ProgramID = 8"),
            "0");
  EXPECT_EQ(Editor().txtID.Text(), "8");
  EXPECT_GT(Editor().flxDetail.Rows(), 1) << "shown as it was";
}

TEST_F(ModuleTest, View_WhileAMessageOrDialogIsUp_IsRefusedAndChangesNothing) {
  const auto refused = [this] {
    try {
      Module().Control().View(9);
      ADD_FAILURE() << "was not refused";
    } catch (const platform::RuntimeError& error) {
      EXPECT_EQ(error.Number(), platform::kNonModalWhileModal);
    }
    EXPECT_EQ(Editor().txtID.Text(), "8");
  };
  Module().Control().View(8);
  const std::string others = Cell("SELECT count(*) FROM tblDistributionPromoterProgramDetail");
  outside.screen.OnModalForm<batch::FormAddBatch>([&](batch::FormAddBatch& form) {
    refused();
    outside.components.WillAnswer({Answer::kYes});
    form.cmdCancel.Click();
  });
  Editor().cmdAddBatch.Click();
  outside.components.otherwise = [&] {
    refused();
    return Answer::kNo;
  };
  Editor().cmdDelete.Click();
  EXPECT_EQ(Cell("SELECT count(*) FROM tblDistributionPromoterProgramDetail"), others);
  Module().Control().View(9);
  EXPECT_EQ(Editor().txtID.Text(), "9") << "the message is gone";
}

TEST_F(ModuleTest, Viewer_MayLookButStoreNothing) {
  const std::string before = Cell("SELECT sum(ID) FROM tblZomirFormAction");
  LogIn(2);
  Module().Control().View(8);
  ASSERT_TRUE(Editor().Visible());
  for (controls::Button* button : {&Editor().cmdNew, &Editor().cmdEdit}) button->Click();
  EXPECT_THAT(outside.components.messages, SizeIs(2));
  Editor().cmdDelete.Click();  // silent
  Module().Control().View(1);
  Editor().cmdBackToTemp.Click();
  EXPECT_THAT(outside.components.messages, SizeIs(3));
  EXPECT_EQ(Cell("SELECT sum(ID) FROM tblZomirFormAction"), before);
  EXPECT_EQ(Cell("SELECT Code FROM tblDistributionPromoterProgram WHERE ID = 1"), "1");
}

}  // namespace
}  // namespace module
