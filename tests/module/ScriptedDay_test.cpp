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
