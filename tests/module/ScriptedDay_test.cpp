#include "ModuleHarness.h"

namespace module {
namespace {

using support::Answer;
using support::Message;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// A document viewer that keeps the id it was opened with.
class Viewer : public platform::AutomationObject {
 public:
  explicit Viewer(std::int32_t& shown) : shown_(shown) {}
  void Put(std::string_view, const platform::AutomationValue&) override {}
  platform::AutomationValue Get(std::string_view) override { return {}; }
  platform::AutomationValue Call(std::string_view,
                                 std::span<const platform::AutomationValue> arguments) override {
    shown_ = std::get<std::int32_t>(arguments.front());
    return {};
  }

 private:
  std::int32_t& shown_;
};

/// A planner's day; each step looks at what it has stored.
class ScriptedDay : public ModuleTest {
 protected:
  void CreateProgram() {
    EXPECT_FALSE(Module().Control().ClearShow());
    ASSERT_TRUE(Editor().Visible());
    Editor().cmdNew.Click();
    Editor().sltBranch.Select(1);
    Editor().txtDescription.SetText("برنامه تازه");
    Editor().cmdTempSave.Click();
    id = Cell("SELECT max(ID) FROM tblDistributionPromoterProgram");
    EXPECT_EQ(Editor().txtID.Text(), id);
    EXPECT_EQ(Header(), "1|1|1|برنامه تازه|~|" + Editor().datToday.Text());
    EXPECT_EQ(Cell("SELECT strftime('%Y%m%d', 'now', 'localtime') = CAST(CreateDate AS TEXT) FROM "
                   "tblDistributionPromoterProgram WHERE ID = " +
                   id),
              "1");
    EXPECT_THAT(Logged(), ElementsAre("330801|1|510"));
  }

  void EditHeader() {
    Editor().cmdEdit.Click();
    Editor().txtDescription.SetText(" برنامه نو ");
    Editor().cmdTempSave.Click();
    EXPECT_EQ(Header(), "1|1|1|برنامه نو|~|" + Editor().datToday.Text());
    EXPECT_THAT(Logged(), ElementsAre("330801|1|510", "330804|1|510"));
  }

  /// Three days for four customers of the supervisor's first promoter.
  void AddVisits() {
    const std::string promoter =
        Cell("SELECT min(PromoterID) FROM tblSaleSupervisorPromoter WHERE SupervisorID = 1");
    for (int time = 0; time < 2; ++time) {  // the second time every visit exists already
      outside.components.WillAnswer({Answer::kYes});
      outside.screen.OnModalForm<batch::FormAddBatch>([&](batch::FormAddBatch& form) {
        form.sltPromoter.Select(std::stoi(promoter));
        form.datDateFrom.SetText("1404/09/01");
        form.datDateTo.SetText("1404/09/03");
        form.flxRegion.cmdSelectAll.Click();
        form.flxPath.cmdSelectAll.Click();
        form.cmdSearch.Click();
        ASSERT_GT(form.flxCustomer.Flex.Rows(), 4);
        form.flxCustomer.cmdSelectNone.Click();
        for (int row = 1; row <= 4; ++row) form.flxCustomer.Flex.MouseDown(row, 2, 1, 0);
        form.flxDate.cmdSelectAll.Click();
        form.txtNotes.SetText("it's new");
        form.cmdAdd.Click();
      });
      Editor().cmdAddBatch.Click();
      EXPECT_THAT(Visits(),
                  ElementsAre("1404/09/01|20251122|4|it's new", "1404/09/02|20251123|4|it's new",
                              "1404/09/03|20251124|4|it's new"));
    }
    EXPECT_EQ(Cell("SELECT count(DISTINCT Sequence) || ' ' || min(PromoterID) FROM "
                   "tblDistributionPromoterProgramDetail WHERE ProgramID = " +
                   id),
              "12 " + promoter);
    ASSERT_EQ(Editor().flxDetail.Rows(), 4);
    EXPECT_EQ(Editor().flxDetail.TextMatrix(1, 6), "4");
  }

  void ReopenGroup() {
    outside.components.WillAnswer({Answer::kYes});
    outside.screen.OnModalForm<batch::FormAddBatch>([](batch::FormAddBatch& form) {
      EXPECT_EQ(form.flxCustomer.Flex.Rows(), 5);
      EXPECT_EQ(form.flxDate.Flex.Rows(), 2);
      EXPECT_EQ(form.txtNotes.Text(), "it's new");
      form.cmdCancel.Click();
    });
    Press(2);
    Editor().flxDetail.DblClick();
    EXPECT_THAT(Visits(), SizeIs(3));
  }

  void MarkAndSort() {
    Editor().cmdSelectNone.Click();
    Press(1);
    EXPECT_EQ(Editor().flxDetail.EffectiveBackColor(1, 1), controls::palette::kMark);
    const std::string marked(Editor().flxDetail.TextMatrix(1, 4));
    while (Editor().flxDetail.TextMatrix(1, 4) != "1404/09/03") Press(0, 4);
    EXPECT_EQ(Editor().flxDetail.TextMatrix(3, 4), "1404/09/01");
    for (int row = 1; row <= 3; ++row) {
      EXPECT_EQ(Editor().flxDetail.EffectiveBackColor(row, 1) == controls::palette::kMark,
                Editor().flxDetail.TextMatrix(row, 4) == marked);
    }
    EXPECT_THAT(Visits(), SizeIs(3));
  }

  /// The rows shift under the block: of the days 3, 2, 1 the first and the third go.
  void DeleteBlock() {
    outside.components.WillAnswer({Answer::kYes});
    Editor().flxDetail.MouseDown(1, 2, 1, 0);
    Editor().flxDetail.MouseDrag(2, 5);
    Editor().cmdDeleteSelected.Click();
    EXPECT_THAT(Visits(), ElementsAre("1404/09/02|20251123|4|it's new"));
    EXPECT_EQ(Editor().flxDetail.Rows(), 2);
  }

  void Finalise() {
    Editor().cmdEdit.Click();
    Editor().cmdFinalSave.Click();
    EXPECT_EQ(Header(), "1|1|1|برنامه نو|" + id + "|" + Editor().datToday.Text());
    EXPECT_EQ(Editor().txtCode.Text(), id);
    const std::vector<std::string> before = Visits();
    for (controls::Button* button : {&Editor().cmdEdit, &Editor().cmdDelete, &Editor().cmdAddBatch,
                                     &Editor().cmdDeleteSelected}) {
      button->Click();  // a final program is frozen: no question, no form
    }
    EXPECT_EQ(Visits(), before);
    EXPECT_EQ(Editor().CurrentMode(), editor::Mode::kView);
  }

  void SearchAndExport() {
    Editor().cmdNew.Click();
    outside.screen.OnModalForm<search::FormSearch>([](search::FormSearch& form) {
      form.txtDescription.SetText("نو");
      form.datVisit.SetText("1404/09/02");
      form.cmdSearch.Click();
      ASSERT_EQ(form.flxSearch.Rows(), 5);
      form.cmdSentToText.Click();
      form.flxSearch.MouseDown(4, 3, 1, 0);
      form.flxSearch.DblClick();
    });
    outside.fileDialog.chosen = "visits.txt";
    outside.screen.OnModalForm<tools::FormSendToTextFile>([](tools::FormSendToTextFile& form) {
      form.txtDelimiter.SetText(";");
      form.chkHeader.SetChecked(false);
      form.chkNewLine.SetChecked(true);
      form.cmdSave.Click();
      form.cmdOk.Click();
    });
    Editor().cmdSearch.Click();
    std::string expected;
    for (const std::string& line : Stored(
             "SELECT d.ProgramID || ';' || e.FirstName || ' ' || e.LastName || ';1404/09/02;' || "
             "o.Code || ';' || trim(ifnull(o.FirstName, '') || ' ' || ifnull(o.Name, '')) || ';' "
             "|| r.Description || ';' || t.Name || ';برنامه نو;' || h.FarsiCreateDate || ';' || "
             "s.FirstName || ' ' || s.LastName || ';' || b.Name || ';' "
             "FROM tblDistributionPromoterProgramDetail d "
             "JOIN tblDistributionPromoterProgram h ON h.ID = d.ProgramID "
             "JOIN tblEmployee e ON e.ID = d.PromoterID JOIN tblEmployee s ON s.ID = "
             "h.SupervisorID JOIN tblAccountBranch b ON b.ID = h.BranchID "
             "JOIN tblOrganization o ON o.ID = d.CustomerID "
             "JOIN tblDistributionOrganization x ON x.OrganizationID = o.ID "
             "JOIN tblDistributionPath t ON t.ID = x.PathID "
             "JOIN tblDistributionRegion r ON r.ID = t.RegionID "
             "WHERE d.ProgramID = " +
             id + " ORDER BY o.Code")) {
      expected.append(line).append("\r\n");
    }
    EXPECT_EQ(outside.fileSystem.files["visits.txt"], expected);
    EXPECT_EQ(Editor().txtID.Text(), id) << "the chosen program is shown";
    EXPECT_EQ(Editor().CurrentMode(), editor::Mode::kView);
  }

  void PreviewReport() {
    const std::string path = Cell(
        "SELECT FilePath FROM tblZomirReportTemplate WHERE FormTypeID = 3308 ORDER BY ID "
        "LIMIT 1");
    outside.fileSystem.files["/suite/" + path] = "";
    outside.screen.OnModalForm<tools::FormPrint>([](tools::FormPrint& form) {
      form.cmbReport().SetListIndex(0);
      form.cmdPrint.Click();
    });
    Editor().cmdPreview.Click();
    EXPECT_THAT(outside.reports.log,
                testing::IsSupersetOf({"load /suite/" + path, "formula 1: fmlID = " + id,
                                       std::string("produce screen")}));
  }

  /// Two documents refer to the program, one of them with a line of another form.
  void TakeBack() {
    for (const std::string document : {"901", "902"}) {
      Stored("INSERT INTO tblAccountDocument (ID, Code, DocumentDate, FarsiDocumentDate) VALUES (" +
             document + ", " + document + ", 20251122, '1404/09/01')");
      Stored(
          "INSERT INTO tblAccountDocumentDetail (DocumentID, RowNumber, AccountID, FormTypeID, "
          "FormID) SELECT " +
          document + ", 1, min(ID), 3308, " + id + " FROM tblAccount");
    }
    Stored(
        "INSERT INTO tblAccountDocumentDetail (DocumentID, RowNumber, AccountID, FormTypeID, "
        "FormID) SELECT 902, 2, min(ID), 77, 5 FROM tblAccount");
    const std::string others =
        Cell("SELECT count(*) FROM tblAccountDocumentDetail WHERE DocumentID < 901");
    std::int32_t shown = 0;
    outside.components.others["comVoucherView.comVoucherView1"] = [&shown] {
      return std::make_unique<Viewer>(shown);
    };
    Editor().cmdViewAccountDoc.Click();
    EXPECT_EQ(shown, 901);

    outside.components.WillAnswer({Answer::kYes});
    Editor().cmdBackToTemp.Click();
    EXPECT_THAT(Stored("SELECT ID FROM tblAccountDocument WHERE ID > 900"), IsEmpty());
    EXPECT_EQ(Cell("SELECT count(*) FROM tblAccountDocumentDetail"), others);
    EXPECT_EQ(Header(), "1|1|1|برنامه نو|~|" + Editor().datToday.Text());
    Editor().cmdViewAccountDoc.Click();
    EXPECT_EQ(shown, -1);
  }

  void DeleteProgram() {
    Stored(
        "INSERT INTO tblZomirFormAttachment (FormTypeID, FormID, FileName, Content) VALUES "
        "(3308, " +
        id + ", 'a.pdf', x'00'), (77, " + id + ", 'b.pdf', x'00')");
    outside.components.messages.clear();
    outside.components.WillAnswer({Answer::kNo, Answer::kYes});
    Editor().cmdDelete.Click();
    EXPECT_EQ(outside.components.messages.back().text, "شما به انجام اين عمليات مجاز نيستيد.");
    EXPECT_THAT(Visits(), SizeIs(1));
    Editor().cmdDelete.Click();
    EXPECT_THAT(Visits(), IsEmpty());
    EXPECT_THAT(Stored("SELECT ID FROM tblDistributionPromoterProgram WHERE ID = " + id),
                IsEmpty());
    EXPECT_THAT(Stored("SELECT FormTypeID FROM tblZomirFormAttachment WHERE FormID = " + id),
                ElementsAre("77"));
    EXPECT_EQ(Logged().back(), "330803|1|510");
    EXPECT_EQ(Editor().CurrentMode(), editor::Mode::kEmpty);
  }

  std::string Header() {
    return Cell(
        "SELECT CreatorID, BranchID, SupervisorID, Notes, Code, FarsiCreateDate FROM "
        "tblDistributionPromoterProgram WHERE ID = " +
        id);
  }
  std::vector<std::string> Logged() {
    return Stored(
        "SELECT EventID, UserID, EventTime FROM tblZomirFormAction WHERE FormTypeID = "
        "3308 AND FormCode = '" +
        id + "' ORDER BY ID");
  }
  std::vector<std::string> Visits() {
    return Stored(
        "SELECT FarsiVisitDate, VisitDate, count(DISTINCT CustomerID), Notes FROM "
        "tblDistributionPromoterProgramDetail WHERE ProgramID = " +
        id + " GROUP BY FarsiVisitDate, VisitDate, Notes ORDER BY VisitDate");
  }
  void Press(int row, int col = 2) {
    Editor().flxDetail.MouseDown(row, col, 1, 0);
    Editor().flxDetail.Click();
  }

  std::string id;
};

TEST_F(ScriptedDay, WholeLifeOfAProgram_StoresWhatEachStepSays) {
  CreateProgram();
  EditHeader();
  AddVisits();
  ReopenGroup();
  MarkAndSort();
  DeleteBlock();
  Finalise();
  SearchAndExport();
  PreviewReport();
  TakeBack();
  DeleteProgram();
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
  EXPECT_EQ(Editor().CurrentMode(), editor::Mode::kView);
}

TEST_F(ModuleTest, Search_WithAQuote_FailsByTheServersWordsAndTheNextOneWorks) {
  Module().Control().ClearShow();
  outside.screen.OnModalForm<search::FormSearch>([](search::FormSearch& form) {
    form.txtDescription.SetText("it's");
    EXPECT_THROW(form.cmdSearch.Click(), platform::RuntimeError);
    form.txtDescription.SetText("");
    form.txtID.SetText("x");  // no number: program 0
    form.cmdSearch.Click();
    EXPECT_EQ(form.flxSearch.Rows(), 1);
    form.txtID.SetText("1");
    form.cmdSearch.Click();
    EXPECT_GT(form.flxSearch.Rows(), 2);
  });
  Editor().cmdSearch.Click();
}

TEST_F(ModuleTest, Search_OfAHundredThousandLines_IsOrderedNumberedAndColoured) {
  Stored(
      "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 99999) INSERT INTO "
      "tblDistributionPromoterProgramDetail (ProgramID, PromoterID, FarsiVisitDate, VisitDate, "
      "CustomerID, Sequence) SELECT 14, 1 + i % 4, '1404/09/0' || (1 + i % 3), 20251122 + i % 3, "
      "1 + i % 1000, i FROM n");
  const std::string lines =
      Cell("SELECT count(*) FROM tblDistributionPromoterProgramDetail WHERE ProgramID = 14");
  Module().Control().ClearShow();
  outside.screen.OnModalForm<search::FormSearch>([&](search::FormSearch& form) {
    form.txtID.SetText("14");
    form.cmdSearch.Click();
    const controls::FlexGrid& grid = form.flxSearch;
    ASSERT_EQ(grid.Rows(), std::stoi(lines) + 1);
    EXPECT_EQ(grid.TextMatrix(grid.Rows() - 1, 0), lines);
    int unordered = 0;
    for (int row = 2; row < grid.Rows(); ++row) {
      if (grid.TextMatrix(row, 3) < grid.TextMatrix(row - 1, 3)) ++unordered;
      if (grid.TextMatrix(row, 3) == grid.TextMatrix(row - 1, 3) &&
          grid.TextMatrix(row, 2) == grid.TextMatrix(row - 1, 2) &&
          grid.TextMatrix(row, 4) < grid.TextMatrix(row - 1, 4)) {
        ++unordered;
      }
    }
    EXPECT_EQ(unordered, 0);
    EXPECT_EQ(grid.EffectiveBackColor(50000, 1), 13561085U);
    EXPECT_EQ(grid.EffectiveBackColor(50001, 11), 15464446U);
  });
  Editor().cmdSearch.Click();
}

}  // namespace
}  // namespace module
