#include "module/OfficeDay.h"

#include <algorithm>

#include "calendar/Gregorian.h"
#include "platform/ResumeNext.h"
#include "text/Text.h"

namespace module {
namespace {

using testing::ElementsAre;

/// A day that notes what each action changes in the database: "cmdTempSave + table|row",
/// "cmdDelete - table|row". The server's day is TODAY.
class WatchedDay : public OfficeDay {
 public:
  WatchedDay() {
    Stored(
        "INSERT INTO tblZomirFormAttachment (FormTypeID, FormID, FileName, Content) VALUES "
        "(3308, 15, 'a.pdf', x'00'), (77, 15, 'b.pdf', x'00'); "
        "DELETE FROM tblAccountDocumentObjects WHERE DocumentID = 1 AND RowNumber = 1");
    rows_ = AllRows();
  }
  std::vector<std::string> changes;

 private:
  void Note(const std::string& what, const std::vector<std::string>& in,
            const std::vector<std::string>& notIn) {
    std::vector<std::string> differing;
    std::ranges::set_difference(in, notIn, std::back_inserter(differing));
    const controls::DateBox& today = Editor().datToday;
    for (const std::string& row : differing) {
      const std::string literal = calendar::GregorianLiteral(*today.Value());
      changes.push_back(what +
                        text::Replace(text::Replace(row, literal, "TODAY"), today.Text(), "TODAY"));
    }
  }
  void Done(const std::string& name) override {
    const std::vector<std::string> before = std::exchange(rows_, AllRows());
    Note(name + " - ", before, rows_);
    Note(name + " + ", rows_, before);
    if (name == "cmdAddBatch" && actions.rbegin()[1].name != name) {
      EXPECT_EQ(Editor().lblAdded.Caption(), "6 ويزيت افزوده شد.");
      Press(Editor().cmdAddBatch);
      EXPECT_EQ(Editor().lblAdded.Caption(), "ويزيتي افزوده نشد؛ 6 ويزيت از پيش در برنامه بود.");
    }
  }
  void Use(controls::Form& form) override {
    const auto* plan = dynamic_cast<batch::FormAddBatch*>(&form);
    if (plan != nullptr && actions.back().name == "reopen") {
      EXPECT_EQ(plan->flxCustomer.Flex.Rows(), 3);
      EXPECT_EQ(plan->txtNotes.Text(), "it's new");
    }
    OfficeDay::Use(form);
  }
  std::vector<std::string> rows_;
};

TEST(Day, WholeLifeOfAProgram_StoresWhatEachActionSaysAndNothingElse) {
  WatchedDay day;
  day.Play();
  const std::string header = "tblDistributionPromoterProgram|15|1|TODAY|TODAY|2|4|";
  const std::string visit = "tblDistributionPromoterProgramDetail|15|19|1404/09/";
  const std::string logged = "|15|3308|فرم برنامه بازارياب به ش.ر. ”15“ ";
  const std::string line = "tblAccountDocumentDetail|";
  const std::string fee = "حق ويزيت برنامه بازارياب 1";
  const std::string travel = "اياب و ذهاب برنامه بازارياب 1";
  const std::string first =
      "tblDistributionPromoterProgram|1|1|20250911|1404/06/20|1|1|ويزيت هفتگي مسيرهاي شرق|";
  EXPECT_THAT(
      day.changes,
      ElementsAre(
          "cmdTempSave + " + header + "~|~",
          "cmdTempSave + tblZomirFormAction|22|330801" + logged + "ايجاد شد.|1|TODAY|TODAY|510",
          "cmdTempSave - " + header + "~|~", "cmdTempSave + " + header + "برنامه نو|~",
          "cmdTempSave + tblZomirFormAction|23|330804" + logged + "اصلاح شد.|1|TODAY|TODAY|510",
          "cmdAddBatch + " + visit + "01|20251122|3|it's new|1",
          "cmdAddBatch + " + visit + "01|20251122|5|it's new|2",
          "cmdAddBatch + " + visit + "02|20251123|3|it's new|3",
          "cmdAddBatch + " + visit + "02|20251123|5|it's new|4",
          "cmdAddBatch + " + visit + "03|20251124|3|it's new|5",
          "cmdAddBatch + " + visit + "03|20251124|5|it's new|6",
          "cmdDeleteSelected - " + visit + "01|20251122|3|it's new|1",
          "cmdDeleteSelected - " + visit + "01|20251122|5|it's new|2",
          "cmdDeleteSelected - " + visit + "03|20251124|3|it's new|5",
          "cmdDeleteSelected - " + visit + "03|20251124|5|it's new|6",
          "cmdFinalSave - " + header + "برنامه نو|~", "cmdFinalSave + " + header + "برنامه نو|15",
          "cmdFinalSave + tblZomirFormAction|24|330804" + logged + "اصلاح شد.|1|TODAY|TODAY|510",
          "cmdBackToTemp - " + header + "برنامه نو|15", "cmdBackToTemp + " + header + "برنامه نو|~",
          "cmdDelete - " + visit + "02|20251123|3|it's new|3",
          "cmdDelete - " + visit + "02|20251123|5|it's new|4",
          "cmdDelete - " + header + "برنامه نو|~",
          "cmdDelete - tblZomirFormAttachment|5|3308|15|a.pdf|",
          "cmdDelete + tblZomirFormAction|25|330803" + logged + "حذف شد.|1|TODAY|TODAY|510",
          "other modules - " + line + "1|1|1|1|" + fee + "|4950000|0|3308|1",
          "other modules + " + line + "1|1|1|2|" + fee + "|4950000|0|3308|1",
          "other modules + tblAccountDocumentObjects|1|1|1|19|2",
          "cmdBackToTemp - " + line + "1|1|1|2|" + fee + "|4950000|0|3308|1",
          "cmdBackToTemp - " + line + "1|2|3|1|" + fee + "|0|4950000|3308|1",
          "cmdBackToTemp - " + line + "2|1|2|1|" + travel + "|1320000|0|3308|1",
          "cmdBackToTemp - " + line + "2|2|4|1|پرداخت از تنخواه|0|1320000|801|57",
          "cmdBackToTemp - tblAccountDocumentObjects|1|1|1|19|2",
          "cmdBackToTemp - tblAccountDocumentObjects|1|2|1|19|1",
          "cmdBackToTemp - tblAccountDocumentObjects|2|1|1|19|1",
          "cmdBackToTemp - tblAccountDocumentObjects|2|2|1|19|1",
          "cmdBackToTemp - tblAccountDocument|1|1401|20250926|1404/07/04|" + fee,
          "cmdBackToTemp - tblAccountDocument|2|1402|20250928|1404/07/06|" + travel,
          "cmdBackToTemp - " + first + "1", "cmdBackToTemp + " + first + "~"));
  EXPECT_EQ(text::Replace(day.outside.fileSystem.files["visits.txt"], day.Editor().datToday.Text(),
                          "TODAY"),
            "شماره رايانه اي\tبازارياب\tتاريخ ويزيت\tكد مشتري\tنام مشتري\tمنطقه\tمسير\tشرح\tتاريخ "
            "ايجاد\tمدير برنامه\tشعبه\t\r\n"
            "15\tحسين باغبان\t1404/09/02\t21000001\tنرگس احمدي (سوپرمارکت مهتاب)\tجلفا\tمسير 105 - "
            "بلوار فردوس\tبرنامه نو\tTODAY\tاكبر مرادي\tشعبه اصفهان\t\r\n"
            "15\tحسين باغبان\t1404/09/02\t21100001\tبهروز قرباني (سوپرماركت بوستان)\tملك "
            "شهر\tمسير 114 - خيابان صنعت\tبرنامه نو\tTODAY\tاكبر مرادي\tشعبه اصفهان\t");
  EXPECT_THAT(day.outside.reports.log,
              ElementsAre("create", "load /suite/program-by-day.html",
                          std::string("connect Provider=any;Password=") + Office::kPassword,
                          "formula 1: fmlID = 15", "produce screen"));
  EXPECT_EQ(day.viewerTold.back(), "View 1");
  EXPECT_THAT(day.Stored("PRAGMA foreign_key_check"), testing::IsEmpty());
}

TEST_F(OfficeTest, View_WhileAMessageOrDialogIsUp_IsRefusedAndChangesNothing) {
  std::vector<std::int32_t> errors;
  const auto view = [&](std::int32_t id) {
    errors.push_back(platform::ResumeNext([&] { Control().View(id); }));
  };
  view(8);
  for (controls::Button* opening :
       {&Editor().cmdAddBatch, &Editor().cmdSearch, &Editor().cmdPreview}) {
    outside.screen.OnModal([&](controls::Form&) { view(9); });
    opening->Click();
  }
  outside.components.otherwise = [&] {
    view(9);
    return support::Answer::kNo;
  };
  Editor().cmdDelete.Click();
  EXPECT_EQ(Editor().txtID.Text(), "8");
  view(9);
  EXPECT_EQ(Editor().txtID.Text(), "9") << "the message is gone";
  EXPECT_THAT(errors, ElementsAre(0, 401, 401, 401, 401, 0));
}

}  // namespace
}  // namespace module
