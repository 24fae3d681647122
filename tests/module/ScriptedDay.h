#pragma once

#include "ModuleHarness.h"

namespace module {

/// A planner's day; each step looks at what it has stored.
class ScriptedDay : public ModuleTest {
 protected:
  void PlayTheDay() {
    CreateProgram();
    EditHeader();
    AddVisits();
    ReopenGroup();
    SortByDay();
    DeleteBlock();
    Finalise();
    SearchAndExport();
    PreviewReport();
    TakeBack();
    DeleteProgram();
  }

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
  }

  void EditHeader() {
    Editor().cmdEdit.Click();
    Editor().txtDescription.SetText(" برنامه نو ");
    Editor().cmdTempSave.Click();
    EXPECT_EQ(Header(), "1|1|1|برنامه نو|~|" + Editor().datToday.Text());
    EXPECT_THAT(Logged(), testing::ElementsAre("330801|1|510", "330804|1|510"));
  }

  /// Three days for four customers of the supervisor's first promoter.
  void AddVisits() {
    promoter = std::stoi(
        Cell("SELECT min(PromoterID) FROM tblSaleSupervisorPromoter WHERE SupervisorID = 1"));
    for (int time = 0; time < 2; ++time) {  // the second time every visit exists already
      outside.components.WillAnswer({support::Answer::kYes});
      outside.screen.OnModalForm<batch::FormAddBatch>([&](batch::FormAddBatch& form) {
        form.sltPromoter.Select(promoter);
        form.datDateFrom.SetText("1404/09/01");
        form.datDateTo.SetText("1404/09/03");
        form.flxRegion.cmdSelectAll.Click();
        form.flxPath.cmdSelectAll.Click();
        FindOneCustomer(form);
        form.cmdSearch.Click();
        ASSERT_GT(form.flxCustomer.Flex.Rows(), 4);
        form.flxCustomer.cmdSelectNone.Click();
        for (int row = 1; row <= 4; ++row) form.flxCustomer.Flex.MouseDown(row, 2, 1, 0);
        form.flxDate.cmdSelectAll.Click();
        form.txtNotes.SetText("it's new");
        form.cmdAdd.Click();
      });
      Editor().cmdAddBatch.Click();
      EXPECT_THAT(Visits(), testing::ElementsAre("1404/09/01|20251122|4|it's new",
                                                 "1404/09/02|20251123|4|it's new",
                                                 "1404/09/03|20251124|4|it's new"));
    }
    EXPECT_EQ(Cell("SELECT count(DISTINCT Sequence) || ' ' || min(PromoterID) FROM "
                   "tblDistributionPromoterProgramDetail WHERE ProgramID = " +
                   id),
              "12 " + std::to_string(promoter));
    ASSERT_EQ(Editor().flxDetail.Rows(), 4);
  }

  /// By every filter at once; leaves the filters empty.
  void FindOneCustomer(batch::FormAddBatch& form) {
    const auto of = [&](const std::string& column) {
      return Cell("SELECT " + column +
                  " FROM tblOrganization o JOIN tblDistributionOrganization x "
                  "ON x.OrganizationID = o.ID JOIN tblDistributionPathPromoters p "
                  "ON p.PathID = x.PathID WHERE o.WorkActivityID > 0 AND p.EmployeeID = " +
                  std::to_string(promoter) + " ORDER BY o.ID LIMIT 1");
    };
    form.txtCodeFrom.SetText(of("o.Code"));
    form.txtCodeTo.SetText(of("o.Code"));
    form.txtName.SetText(of("o.Name"));
    form.sltCustomer.Select(std::stoi(of("o.ID")));
    form.sltBranch.Select(std::stoi(of("x.BranchID")));
    form.sltWorkActivity.Select(std::stoi(of("o.WorkActivityID")));
    form.cmdSearch.Click();
    EXPECT_EQ(form.flxCustomer.Flex.Rows(), 2);
    for (controls::TextBox* box : {&form.txtCodeFrom, &form.txtCodeTo, &form.txtName}) {
      box->SetText("");
    }
    for (controls::Selector* box : {&form.sltCustomer, &form.sltBranch, &form.sltWorkActivity}) {
      box->Clear();
    }
  }

  void ReopenGroup() {
    outside.components.WillAnswer({support::Answer::kYes});
    outside.screen.OnModalForm<batch::FormAddBatch>([](batch::FormAddBatch& form) {
      EXPECT_EQ(form.flxCustomer.Flex.Rows(), 5);
      EXPECT_EQ(form.txtNotes.Text(), "it's new");
      form.cmdCancel.Click();
    });
    Press(2);
    Editor().flxDetail.DblClick();
    EXPECT_THAT(Visits(), testing::SizeIs(3));
  }

  void SortByDay() {
    while (Editor().flxDetail.TextMatrix(1, 4) != "1404/09/03") Press(0, 4);
    EXPECT_EQ(Editor().flxDetail.TextMatrix(3, 4), "1404/09/01");
  }

  /// The rows shift under the block: of the days 3, 2, 1 the first and the third go.
  void DeleteBlock() {
    outside.components.WillAnswer({support::Answer::kYes});
    Editor().flxDetail.MouseDown(1, 2, 1, 0);
    Editor().flxDetail.MouseDrag(2, 5);
    Editor().cmdDeleteSelected.Click();
    EXPECT_THAT(Visits(), testing::ElementsAre("1404/09/02|20251123|4|it's new"));
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
    outside.screen.OnModalForm<search::FormSearch>([this](search::FormSearch& form) {
      form.txtID.SetText(id);
      for (controls::Selector* each : {&form.sltCreator, &form.sltSupervisor, &form.sltBranch}) {
        each->Select(1);
      }
      form.sltProgram.Select(std::stoi(id));
      form.sltPromoter.Select(promoter);
      form.txtDescription.SetText("نو");
      form.datCreateDate.SetText(Editor().datToday.Text());
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
    Stored(
        "INSERT INTO tblAccountDocument (ID, Code, DocumentDate, FarsiDocumentDate) VALUES "
        "(901, 901, 20251122, '1404/09/01'), (902, 902, 20251122, '1404/09/01'); "
        "INSERT INTO tblAccountDocumentDetail (DocumentID, RowNumber, AccountID, FormTypeID, "
        "FormID) VALUES (901, 1, (SELECT min(AccountID) FROM tblAccountRelatedClasses WHERE "
        "ClassID = 19), 3308, " +
        id + "), (902, 1, 1, 3308, " + id + "), (902, 2, 1, 77, 5)");
    const std::string others =
        Cell("SELECT count(*) FROM tblAccountDocumentDetail WHERE DocumentID < 901");
    std::int32_t document = 901;
    std::int32_t row = 1;
    std::int32_t branch = 2;
    std::int32_t branches = 19;
    std::int32_t account =
        std::stoi(Cell("SELECT AccountID FROM tblAccountDocumentDetail WHERE DocumentID = 901"));
    for (int time = 0; time < 2; ++time) {  // the second time it is tied already
      Editor().InsertDocumentObject(document, row, account, branches, branch);
    }
    EXPECT_THAT(
        Stored("SELECT d.BranchID, o.ClassID, o.ObjectID FROM tblAccountDocumentDetail d "
               "JOIN tblAccountDocumentObjects o USING (DocumentID) WHERE DocumentID = 901"),
        testing::ElementsAre("2|19|2"));

    outside.components.WillAnswer({support::Answer::kYes});
    Editor().cmdBackToTemp.Click();
    EXPECT_THAT(Stored("SELECT ID FROM tblAccountDocument WHERE ID > 900"), testing::IsEmpty());
    EXPECT_EQ(Cell("SELECT count(*) FROM tblAccountDocumentDetail"), others);
    EXPECT_EQ(Header(), "1|1|1|برنامه نو|~|" + Editor().datToday.Text());
  }

  void DeleteProgram() {
    Stored(
        "INSERT INTO tblZomirFormAttachment (FormTypeID, FormID, FileName, Content) VALUES "
        "(3308, " +
        id + ", 'a.pdf', x'00'), (77, " + id + ", 'b.pdf', x'00')");
    outside.components.messages.clear();
    outside.components.WillAnswer({support::Answer::kNo, support::Answer::kYes});
    Editor().cmdDelete.Click();
    EXPECT_EQ(outside.components.messages.back().text, "شما به انجام اين عمليات مجاز نيستيد.");
    EXPECT_THAT(Visits(), testing::SizeIs(1));
    Editor().cmdDelete.Click();
    EXPECT_THAT(Visits(), testing::IsEmpty());
    EXPECT_THAT(Stored("SELECT ID FROM tblDistributionPromoterProgram WHERE ID = " + id),
                testing::IsEmpty());
    EXPECT_THAT(Stored("SELECT FormTypeID FROM tblZomirFormAttachment WHERE FormID = " + id),
                testing::ElementsAre("77"));
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
  int promoter = 0;
};

}  // namespace module
