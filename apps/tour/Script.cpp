#include "apps/tour/Script.h"

#include <cstdio>

namespace tour {

namespace {

/// The editor shows a program that may be edited or, being final, taken back.
bool Views(Player& player) {
  return player.IsEnabled("FormMain.cmdEdit") || player.IsEnabled("FormMain.cmdBackToTemp");
}

void AddHeaderSteps(Script& script, Player& player) {
  script.Add("The editor opens empty", [&player] { player.Picture("FormMain", "editor-empty"); });
  script.Add("A new program", [&player] { player.Click("FormMain.cmdNew"); });
  script.Add("Saving without a branch is refused",
             [&player] { player.Click("FormMain.cmdTempSave"); });
  script.Add("The message names the missing branch", [&player] {
    player.Picture("FormMain", "branch-missing");
    player.AnswerMessage(0);
  });
  script.Add("The branch list, narrowed by typing", [&player] {
    player.Type("FormMain.sltBranch", "ا");
    player.Picture("FormMain", "branch-list");
    player.PressKey("FormMain.sltBranch", Key::kEnter);
    Expect(player.Text("FormMain.sltBranch").size() > 2, "a branch");
  });
  script.Add("Notes are typed", [&player] {
    player.Type("FormMain.txtDescription", "برنامه ويزيت هفته آينده");
    player.Picture("FormMain", "editor-new");
  });
  script.Add("The program is saved", [&player] {
    player.Click("FormMain.cmdTempSave");
    Expect(Views(player), "view mode after saving");
    player.Picture("FormMain", "editor-saved");
  });
}

void AddBatchSteps(Script& script, Player& player) {
  script.Add("The batch form opens", [&player] { player.Click("FormMain.cmdAddBatch"); });
  script.Add("It lists the days to the end of the month",
             [&player] { player.Picture("FormAddBatch", "batch-empty"); });
  script.Add("A date that is none is refused, the old one stays", [&player] {
    const std::string before = player.Text("FormAddBatch.datDateTo");
    player.PressKey("FormAddBatch.datDateTo", Key::kEnd);
    for (int i = 0; i < 10; ++i) player.PressKey("FormAddBatch.datDateTo", Key::kBackspace);
    player.Type("FormAddBatch.datDateTo", "1403/13/40");
    player.PressKey("FormAddBatch.datDateTo", Key::kEnter);
    player.Picture("FormAddBatch", "date-refused");
    player.PressKey("FormAddBatch.datDateTo", Key::kEscape);
    Expect(player.Text("FormAddBatch.datDateTo") == before, "the date as it was");
  });
  script.Add("The month page of a date box", [&player] {
    player.PressKey("FormAddBatch.datDateFrom", Key::kF4);
    player.Picture("FormAddBatch", "month-page");
    player.PressKey("FormAddBatch.datDateFrom", Key::kEscape);
  });
  script.Add("Committing without a promoter is refused",
             [&player] { player.Click("FormAddBatch.cmdAdd"); });
  script.Add("The message names the missing promoter", [&player] { player.AnswerMessage(0); });
  script.Add("The supervisor's promoters", [&player] {
    player.PressKey("FormAddBatch.sltPromoter", Key::kF4);
    player.Picture("FormAddBatch", "promoter-list");
    player.PressKey("FormAddBatch.sltPromoter", Key::kDown);
    player.PressKey("FormAddBatch.sltPromoter", Key::kEnter);
    Expect(!player.Text("FormAddBatch.sltPromoter").empty(), "a promoter");
    Expect(player.Rows("FormAddBatch.flxRegion.Flex") > 1, "regions of the promoter");
  });
  script.Add("All of the promoter's regions", [&player] {
    player.Click("FormAddBatch.flxRegion.cmdSelectAll");
    Expect(player.Rows("FormAddBatch.flxPath.Flex") > 2, "paths in the regions");
  });
  script.Add("Two paths", [&player] {
    player.ClickCell("FormAddBatch.flxPath.Flex", 1, 0);
    player.ClickCell("FormAddBatch.flxPath.Flex", 2, 0);
  });
  script.Add("Three days", [&player] {
    for (int day = 0; day < 14; ++day) player.PressKey("FormAddBatch.datDateTo", Key::kUp);
    for (const int row : {1, 3, 5}) player.ClickCell("FormAddBatch.flxDate.Flex", row, 0);
  });
  script.Add("The customers on these paths", [&player] {
    player.Click("FormAddBatch.cmdSearch");
    Expect(player.Rows("FormAddBatch.flxCustomer.Flex") > 10, "customers on the paths");
    player.ClickCell("FormAddBatch.flxCustomer.Flex", 0, 2);
    for (const int row : {1, 2, 3, 5, 7}) player.ClickCell("FormAddBatch.flxCustomer.Flex", row, 2);
    player.Type("FormAddBatch.txtNotes", "معرفي کالاي جديد");
    player.Picture("FormAddBatch", "batch-picked");
  });
  script.Add("The batch is committed", [&player] { player.Click("FormAddBatch.cmdAdd"); });
  script.Add("The form asks before it writes", [&player] {
    player.Picture("FormAddBatch", "batch-question");
    player.AnswerMessage(0);
  });
}

void AddVisitSteps(Script& script, Player& player) {
  script.Add("The visits stand grouped in the editor", [&player] {
    Expect(player.Rows("FormMain.flxDetail") == 4, "three groups of visits");
    Expect(player.CellText("FormMain.flxDetail", 1, 6) == "5", "five customers in a group");
    player.ClickCell("FormMain.flxDetail", 2, 2);
    player.Picture("FormMain", "editor-visits");
  });
  script.Add("Dragging frames a block", [&player] {
    player.DragRows("FormMain.flxDetail", 1, 2, 2);
    Expect(player.BlockRows("FormMain.flxDetail") == std::pair(1, 2), "a block of two rows");
    player.Picture("FormMain", "editor-frame");
  });
  script.Add("A double click opens a group again",
             [&player] { player.DoubleClickCell("FormMain.flxDetail", 3, 2); });
  script.Add("It shows the group's day and customers", [&player] {
    Expect(player.Rows("FormAddBatch.flxCustomer.Flex") == 6, "the five customers");
    player.Picture("FormAddBatch", "batch-group");
    player.Click("FormAddBatch.cmdCancel");
  });
  script.Add("Cancelling asks", [&player] { player.AnswerMessage(0); });
  script.Add("Both forms enlarged", [&player] {
    player.ResizeWindow("FormMain", 1.3);
    player.Picture("FormMain", "editor-large");
    player.Click("FormMain.cmdAddBatch");
  });
  script.Add("The batch form keeps its contents",
             [&player] { player.ResizeWindow("FormAddBatch", 1.3); });
  script.Add("It follows its window", [&player] {
    player.Picture("FormAddBatch", "batch-large");
    player.Click("FormAddBatch.cmdCancel");
  });
  script.Add("Back in the editor", [&player] { player.AnswerMessage(0); });
}

void AddSearchSteps(Script& script, Player& player) {
  script.Add("The search opens", [&player] { player.Click("FormMain.cmdSearch"); });
  script.Add("A search without a filter", [&player] { player.Click("FormSearch.cmdSearch"); });
  script.Add("It offers a limit of 1000 lines", [&player] {
    player.Picture("FormSearch", "search-question");
    player.AnswerMessage(0);
  });
  script.Add("The lines found", [&player] {
    Expect(player.Rows("FormSearch.flxSearch") > 100, "lines of the sample programs");
    player.Picture("FormSearch", "search-result");
  });
  script.Add("Sent to a text file", [&player] { player.Click("FormSearch.cmdSentToText"); });
  script.Add("The settings of the text file", [&player] {
    player.Picture("FormSendToTextFile", "text-file");
    player.Click("FormSendToTextFile.cmdSave");
  });
  script.Add("The file is named in the desktop's dialog",
             [&player] { player.SaveAs("visits.txt"); });
  script.Add("The file is written", [&player] { player.Click("FormSendToTextFile.cmdOk"); });
  script.Add("The search says where", [&player] {
    player.Picture("FormSearch", "text-file-saved");
    player.AnswerMessage(0);
  });
  script.Add("Copied to a workbook", [&player] { player.Click("FormSearch.cmdExcel"); });
  script.Add("The copy is done", [&player] {
    player.Picture("FormSearch", "workbook-saved");
    player.AnswerMessage(0);
  });
  script.Add("A new search for the program made before", [&player] {
    player.Click("FormSearch.cmdNewsearch");
    player.Type("FormSearch.txtID", player.Text("FormMain.txtID"));
    player.Click("FormSearch.cmdSearch");
    Expect(player.Rows("FormSearch.flxSearch") == 16, "its fifteen visits");
    player.DoubleClickCell("FormSearch.flxSearch", 1, 2);
    Expect(!player.IsShown("FormSearch") && Views(player), "the program");
  });
}

void AddFinalSteps(Script& script, Player& player) {
  script.Add("The program is opened for editing", [&player] { player.Click("FormMain.cmdEdit"); });
  script.Add("And registered finally", [&player] {
    player.Picture("FormMain", "editor-edit");
    player.Click("FormMain.cmdFinalSave");
    Expect(player.Text("FormMain.txtCode") == player.Text("FormMain.txtID"),
           "a code: the program is final");
    player.Picture("FormMain", "editor-final");
  });
  script.Add("Templates for its report", [&player] { player.Click("FormMain.cmdPreview"); });
  script.Add("One is picked", [&player] {
    player.PressKey("FormPrint.cmbReport", Key::kDown);
    Expect(!player.Text("FormPrint.cmbReport").empty(), "a template");
    player.Picture("FormPrint", "template");
    player.Click("FormPrint.cmdPrint");
  });
  script.Add("The preview", [&player] { player.PictureAndCloseDialog("preview"); });
  script.Add("Its accounting document", [&player] { player.Click("FormMain.cmdViewAccountDoc"); });
  script.Add("There is none yet", [&player] {
    player.Picture("FormMain", "document-none");
    player.AnswerMessage(0);
  });
  script.Add("Back to temporary", [&player] { player.Click("FormMain.cmdBackToTemp"); });
  script.Add("The editor asks", [&player] {
    player.Picture("FormMain", "back-to-temp");
    player.AnswerMessage(0);
  });
  script.Add("A block of visits is deleted", [&player] {
    Expect(player.Text("FormMain.txtCode").empty(), "a temporary program");
    player.ClickCell("FormMain.flxDetail", 1, 2);
    player.Click("FormMain.cmdDeleteSelected");
  });
  script.Add("After a question", [&player] { player.AnswerMessage(0); });
  script.Add("The whole program is deleted", [&player] {
    Expect(player.Rows("FormMain.flxDetail") == 3, "two groups left");
    player.Click("FormMain.cmdDelete");
  });
  script.Add("After a question", [&player] { player.AnswerMessage(0); });
  script.Add("A program of last month and its document", [&player] {
    Expect(player.Text("FormMain.txtID").empty(), "an empty editor");
    player.OpenProgram(1);
    player.Click("FormMain.cmdViewAccountDoc");
  });
  script.Add("The document", [&player] { player.PictureAndCloseDialog("document"); });
}

}  // namespace

void Script::PlayNext() {
  const Step& step = steps_[next_++];
  std::printf("%2zu. %s\n", next_, step.what.c_str());
  std::fflush(stdout);
  step.act();
}

void Expect(bool holds, const std::string& what) {
  if (!holds) throw Failure("expected " + what);
}

Script PlannersDay(Player& player) {
  Script script;
  AddHeaderSteps(script, player);
  AddBatchSteps(script, player);
  AddVisitSteps(script, player);
  AddSearchSteps(script, player);
  AddFinalSteps(script, player);
  return script;
}

}  // namespace tour
