#include "TourSteps.h"

namespace desktop {

namespace {

void AddHeaderSteps(Tour& tour, editor::FormMain& editor) {
  tour.Add("The editor opens empty", [&] { tour.Picture(editor, "editor-empty"); });
  tour.Add("A new program", [&] { tour.Click(editor.cmdNew); });
  tour.Add("Saving without a branch is refused", [&] { tour.Click(editor.cmdTempSave); });
  tour.Add("The message names the missing branch", [&] {
    tour.Picture(editor, "branch-missing");
    tour.AnswerMessage(0);
  });
  tour.Add("The branch list, narrowed by typing", [&] {
    tour.Type(editor.sltBranch, QStringLiteral("ا"));
    tour.Picture(editor, "branch-list");
    tour.PressKey(editor.sltBranch, Qt::Key_Return);
    tour.Expect(editor.sltBranch.HasSelection(), "a branch");
  });
  tour.Add("Notes are typed", [&] {
    tour.Type(editor.txtDescription, QStringLiteral("برنامه ويزيت هفته آينده"));
    tour.Picture(editor, "editor-new");
  });
  tour.Add("The program is saved", [&] {
    tour.Click(editor.cmdTempSave);
    tour.Expect(editor.CurrentMode() == editor::Mode::kView, "view mode after saving");
    tour.Picture(editor, "editor-saved");
  });
}

void AddBatchSteps(Tour& tour, editor::FormMain& editor) {
  batch::FormAddBatch& form = editor.BatchForm();
  tour.Add("The batch form opens", [&] { tour.Click(editor.cmdAddBatch); });
  tour.Add("It lists the days to the end of the month", [&] { tour.Picture(form, "batch-empty"); });
  tour.Add("A date that is none is refused, the old one stays", [&] {
    const std::string before = form.datDateTo.Text();
    tour.PressKey(form.datDateTo, Qt::Key_End);
    for (int i = 0; i < 10; ++i) tour.PressKey(form.datDateTo, Qt::Key_Backspace);
    tour.Type(form.datDateTo, QStringLiteral("1403/13/40"));
    tour.PressKey(form.datDateTo, Qt::Key_Return);
    tour.Picture(form, "date-refused");
    tour.PressKey(form.datDateTo, Qt::Key_Escape);
    tour.Expect(form.Visible() && form.datDateTo.Text() == before, "the date as it was");
  });
  tour.Add("The month page of a date box", [&] {
    tour.PressKey(form.datDateFrom, Qt::Key_F4);
    tour.Picture(form, "month-page");
    tour.PressKey(form.datDateFrom, Qt::Key_Escape);
  });
  tour.Add("Committing without a promoter is refused", [&] { tour.Click(form.cmdAdd); });
  tour.Add("The message names the missing promoter", [&] { tour.AnswerMessage(0); });
  tour.Add("The supervisor's promoters", [&] {
    tour.PressKey(form.sltPromoter, Qt::Key_F4);
    tour.Picture(form, "promoter-list");
    tour.PressKey(form.sltPromoter, Qt::Key_Down);
    tour.PressKey(form.sltPromoter, Qt::Key_Return);
    tour.Expect(form.sltPromoter.HasSelection(), "a promoter");
    tour.Expect(form.flxRegion.Flex.Rows() > 1, "regions of the promoter");
  });
  tour.Add("All of the promoter's regions", [&] {
    tour.Click(form.flxRegion.cmdSelectAll);
    tour.Expect(form.flxPath.Flex.Rows() > 2, "paths in the regions");
  });
  tour.Add("Two paths", [&] {
    tour.ClickCell(form.flxPath.Flex, 1, 0);
    tour.ClickCell(form.flxPath.Flex, 2, 0);
  });
  tour.Add("Three days", [&] {
    for (int day = 0; day < 14; ++day) tour.PressKey(form.datDateTo, Qt::Key_Up);
    for (const int row : {1, 3, 5}) tour.ClickCell(form.flxDate.Flex, row, 0);
  });
  tour.Add("The customers on these paths", [&] {
    tour.Click(form.cmdSearch);
    tour.Expect(form.flxCustomer.Flex.Rows() > 10, "customers on the paths");
    tour.ClickCell(form.flxCustomer.Flex, 0, 2);
    for (const int row : {1, 2, 3, 5, 7}) tour.ClickCell(form.flxCustomer.Flex, row, 2);
    tour.Type(form.txtNotes, QStringLiteral("معرفي کالاي جديد"));
    tour.Picture(form, "batch-picked");
  });
  tour.Add("The batch is committed", [&] { tour.Click(form.cmdAdd); });
  tour.Add("The form asks before it writes", [&] {
    tour.Picture(form, "batch-question");
    tour.AnswerMessage(0);
  });
}

void AddVisitSteps(Tour& tour, editor::FormMain& editor) {
  batch::FormAddBatch& form = editor.BatchForm();
  tour.Add("The visits stand grouped in the editor", [&] {
    tour.Expect(editor.flxDetail.Rows() == 4, "three groups of visits");
    tour.Expect(editor.flxDetail.TextMatrix(1, 6) == "5", "five customers in a group");
    tour.ClickCell(editor.flxDetail, 2, 2);
    tour.Picture(editor, "editor-visits");
  });
  tour.Add("Dragging frames a block", [&] {
    tour.DragRows(editor.flxDetail, 1, 2, 2);
    tour.Expect(editor.flxDetail.RowSel() == 2, "a block of two rows");
    tour.Picture(editor, "editor-frame");
  });
  tour.Add("A double click opens a group again",
           [&] { tour.DoubleClickCell(editor.flxDetail, 3, 2); });
  tour.Add("It shows the group's day and customers", [&] {
    tour.Expect(form.flxCustomer.Flex.Rows() == 6, "the five customers");
    tour.Picture(form, "batch-group");
    tour.Click(form.cmdCancel);
  });
  tour.Add("Cancelling asks", [&] { tour.AnswerMessage(0); });
  tour.Add("Both forms enlarged", [&] {
    tour.ResizeWindow(editor, 1.3);
    tour.Picture(editor, "editor-large");
    tour.Click(editor.cmdAddBatch);
  });
  tour.Add("The batch form keeps its contents", [&] { tour.ResizeWindow(form, 1.3); });
  tour.Add("It follows its window", [&] {
    tour.Picture(form, "batch-large");
    tour.Click(form.cmdCancel);
  });
  tour.Add("Back in the editor", [&] { tour.AnswerMessage(0); });
}

void AddSearchSteps(Tour& tour, editor::FormMain& editor) {
  search::FormSearch& form = editor.SearchForm();
  tour.Add("The search opens", [&] { tour.Click(editor.cmdSearch); });
  tour.Add("A search without a filter", [&] { tour.Click(form.cmdSearch); });
  tour.Add("It offers a limit of 1000 lines", [&] {
    tour.Picture(form, "search-question");
    tour.AnswerMessage(0);
  });
  tour.Add("The lines found", [&] {
    tour.Expect(form.flxSearch.Rows() > 100, "lines of the sample programs");
    tour.Picture(form, "search-result");
  });
  tour.Add("Sent to a text file", [&] { tour.Click(form.cmdSentToText); });
  tour.Add("The settings of the text file", [&] {
    tour.Picture(form.TextFileForm(), "text-file");
    tour.Click(form.TextFileForm().cmdSave);
  });
  tour.Add("The file is named in the desktop's dialog", [&] { tour.SaveAs("visits.txt"); });
  tour.Add("The file is written", [&] { tour.Click(form.TextFileForm().cmdOk); });
  tour.Add("The search says where", [&] {
    tour.Picture(form, "text-file-saved");
    tour.AnswerMessage(0);
  });
  tour.Add("Copied to a workbook", [&] { tour.Click(form.cmdExcel); });
  tour.Add("The copy is done", [&] {
    tour.Picture(form, "workbook-saved");
    tour.AnswerMessage(0);
  });
  tour.Add("A new search for the program made before", [&] {
    tour.Click(form.cmdNewsearch);
    tour.Type(form.txtID, QString::fromStdString(editor.txtID.Text()));
    tour.Click(form.cmdSearch);
    tour.Expect(form.flxSearch.Rows() == 16, "its fifteen visits");
    tour.DoubleClickCell(form.flxSearch, 1, 2);
    tour.Expect(!form.Visible() && editor.CurrentMode() == editor::Mode::kView, "the program");
  });
}

void AddFinalSteps(Tour& tour, editor::FormMain& editor) {
  tour.Add("The program is opened for editing", [&] { tour.Click(editor.cmdEdit); });
  tour.Add("And registered finally", [&] {
    tour.Picture(editor, "editor-edit");
    tour.Click(editor.cmdFinalSave);
    tour.Expect(editor.txtCode.Text() == editor.txtID.Text(), "a code: the program is final");
    tour.Picture(editor, "editor-final");
  });
  tour.Add("Templates for its report", [&] { tour.Click(editor.cmdPreview); });
  tour.Add("One is picked", [&] {
    tour.Expect(editor.PrintForm().cmbReport().ListCount() > 0, "a template");
    editor.PrintForm().cmbReport().SetListIndex(0);
    tour.Picture(editor.PrintForm(), "template");
    tour.Click(editor.PrintForm().cmdPrint);
  });
  tour.Add("The preview", [&] {
    tour.PictureOfDialog("preview");
    tour.CloseDialog();
  });
  tour.Add("Its accounting document", [&] { tour.Click(editor.cmdViewAccountDoc); });
  tour.Add("There is none yet", [&] {
    tour.Picture(editor, "document-none");
    tour.AnswerMessage(0);
  });
  tour.Add("Back to temporary", [&] { tour.Click(editor.cmdBackToTemp); });
  tour.Add("The editor asks", [&] {
    tour.Picture(editor, "back-to-temp");
    tour.AnswerMessage(0);
  });
  tour.Add("A block of visits is deleted", [&] {
    tour.Expect(editor.txtCode.Text().empty(), "a temporary program");
    tour.ClickCell(editor.flxDetail, 1, 2);
    tour.Click(editor.cmdDeleteSelected);
  });
  tour.Add("After a question", [&] { tour.AnswerMessage(0); });
  tour.Add("The whole program is deleted", [&] {
    tour.Expect(editor.flxDetail.Rows() == 3, "two groups left");
    tour.Click(editor.cmdDelete);
  });
  tour.Add("After a question", [&] { tour.AnswerMessage(0); });
  tour.Add("A program of last month and its document", [&] {
    tour.Expect(editor.CurrentMode() == editor::Mode::kEmpty, "an empty editor");
    editor.View(1);
    tour.Click(editor.cmdViewAccountDoc);
  });
  tour.Add("The document", [&] {
    tour.PictureOfDialog("document");
    tour.CloseDialog();
  });
}

}  // namespace

void AddSteps(Tour& tour, module::Module& module) {
  AddHeaderSteps(tour, module.Editor());
  AddBatchSteps(tour, module.Editor());
  AddVisitSteps(tour, module.Editor());
  AddSearchSteps(tour, module.Editor());
  AddFinalSteps(tour, module.Editor());
}

}  // namespace desktop
