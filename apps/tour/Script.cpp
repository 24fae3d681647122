#include "apps/tour/Script.h"

#include <memory>

namespace tour {

using screens::Key;

namespace {

/// The program that is made and found again.
using Number = std::shared_ptr<std::string>;

constexpr char kEditor[] = "برنامه بازارياب ";
constexpr char kBatch[] = "افزودن ويزيت به برنامه بازارياب";
constexpr char kSearch[] = "جستجوي برنامه بازارياب";
constexpr char kVisits[] = "ويزيت ها";
constexpr char kOk[] = "تأييد";
constexpr char kYes[] = "بله";

void Expect(bool holds, const std::string& what) {
  if (!holds) throw Failure("expected " + what);
}

void AddHeaderSteps(Script& script, Player& player, const Number& made) {
  script.Add("The editor opens empty", [&player] {
    player.ExpectWindow(kEditor);
    player.Picture("editor-empty");
  });
  script.Add("A new program", [&player] { player.Click("جديد"); });
  script.Add("Saving without a branch is refused", [&player] { player.Click("ثبت موقت"); });
  script.Add("The message names the missing branch", [&player] {
    player.ExpectText("شعبه مشخص نشده است!");
    player.Picture("branch-missing", 1);
    player.Click(kOk);
  });
  script.Add("The branch list, narrowed by typing", [&player] {
    player.Type("شعبه", "ا");
    player.Picture("branch-list");
    player.PickItem("شعبه", 1);
    Expect(player.Text("شعبه").size() > 2, "a branch");
  });
  script.Add("Notes are typed", [&player] {
    player.Type("شرح", "برنامه ويزيت هفته آينده");
    player.Picture("editor-new");
  });
  script.Add("The program is saved", [&player, made] {
    player.Click("ثبت موقت");
    *made = player.Text("شماره رايانه اي");
    player.ExpectWindow("برنامه بازارياب  (مشاهده)");
    player.Picture("editor-saved");
  });
}

void AddBatchSteps(Script& script, Player& player) {
  script.Add("The batch form opens", [&player] { player.Click("افزودن ويزيت"); });
  script.Add("It lists the days to the end of the month", [&player] {
    player.ExpectWindow(kBatch);
    player.Picture("batch-empty");
  });
  script.Add("A date that is none is refused, the old one stays", [&player] {
    const std::string before = player.Text("تا تاريخ");
    player.Type("تا تاريخ", "1403/13/40");
    player.Press(Key::kEnter);
    player.ExpectText("1403/13/40");
    player.Picture("date-refused");
    player.Press(Key::kEscape);
    Expect(player.Text("تا تاريخ") == before, "the date as it was");
  });
  script.Add("The month page of a date box", [&player] {
    player.Open("از تاريخ");
    player.Picture("month-page");
    player.Press(Key::kEscape);
  });
  script.Add("Committing without a promoter is refused", [&player] { player.Click("ثبت"); });
  script.Add("The message names the missing promoter", [&player] {
    player.ExpectText("بازارياب مشخص نشده است!");
    player.Click(kOk);
  });
  script.Add("The supervisor's promoters", [&player] {
    player.Open("بازارياب");
    player.Picture("promoter-list");
    player.PickItem("بازارياب", 1);
    Expect(!player.Text("بازارياب").empty(), "a promoter");
    Expect(player.Rows("مناطق") > 0, "regions of the promoter");
  });
  script.Add("All of the promoter's regions", [&player] {
    player.Click("انتخاب همه، مناطق");
    Expect(player.Rows("مسيرها") > 1, "paths in the regions");
  });
  script.Add("Two paths", [&player] {
    player.ClickCell("مسيرها", 1, 0);
    player.ClickCell("مسيرها", 2, 0);
  });
  script.Add("Three days", [&player] {
    player.Go("تا تاريخ");
    player.Press(Key::kUp, 14);
    for (const int row : {1, 3, 5}) player.ClickCell("روزها", row, 0);
  });
  script.Add("The customers on these paths", [&player] {
    player.Click("جستجو");
    Expect(player.Rows("مشتريان") > 9, "customers on the paths");
    player.ClickCell("مشتريان", 0, 2);
    for (const int row : {1, 2, 3, 5, 7}) player.ClickCell("مشتريان", row, 2);
    player.Type("شرح", "معرفي کالاي جديد");
    player.Picture("batch-picked");
  });
  script.Add("The batch is committed", [&player] { player.Click("ثبت"); });
  script.Add("The form asks before it writes", [&player] {
    player.ExpectText("بازنويسي نخواهد شد");
    player.Picture("batch-question", 1);
    player.Click(kYes);
  });
}

void AddVisitSteps(Script& script, Player& player) {
  script.Add("The visits stand grouped in the editor", [&player] {
    player.ExpectWindow(kEditor);
    Expect(player.Rows(kVisits) == 3, "three groups of visits");
    Expect(player.CellText(kVisits, 1, 4) == "5", "five customers in a group");
    player.ClickCell(kVisits, 2, 1);
    player.Picture("editor-visits");
  });
  script.Add("A mark is taken back and set again", [&player] {
    player.Press(Key::kZ, 1, {.control = true});
    Expect(!player.IsMarked(kVisits, 2), "no mark in the second row");
    player.Press(Key::kY, 1, {.control = true});
    Expect(player.IsMarked(kVisits, 2), "the mark again");
  });
  script.Add("A day is found in the list", [&player] {
    const std::string day = player.CellText(kVisits, 3, 2);
    player.Press(Key::kF, 1, {.control = true});
    player.Write(day);
    player.Picture("editor-find");
    player.Press(Key::kEscape);
    player.Press(Key::kC, 1, {.control = true});
    Expect(player.Clipboard() == day, "the keyboard on the day that was found");
  });
  script.Add("Dragging frames a block, which can be copied", [&player] {
    player.DragRows(kVisits, 1, 2, 1);
    player.Picture("editor-frame");
    player.Press(Key::kC, 1, {.control = true});
    const std::string name = player.CellText(kVisits, 1, 1);
    Expect(player.Clipboard() == name + "\r\n" + name, "two rows of the promoter");
  });
  script.Add("A double click opens a group again",
             [&player] { player.DoubleClickCell(kVisits, 3, 1); });
  script.Add("It shows the group's day and customers", [&player] {
    player.ExpectWindow(kBatch);
    Expect(player.Rows("مشتريان") == 5, "the five customers");
    player.Picture("batch-group");
    player.Click("انصراف");
  });
  script.Add("Cancelling asks", [&player] { player.Click(kYes); });
  script.Add("Both forms enlarged", [&player] {
    player.ExpectWindow(kEditor);
    player.ResizeWindow(1.3);
    player.Picture("editor-large");
    player.Click("افزودن ويزيت");
  });
  script.Add("The batch form follows its window", [&player] {
    player.ExpectWindow(kBatch);
    player.ResizeWindow(1.3);
    player.Picture("batch-large");
    player.Click("انصراف");
  });
  script.Add("Back in the editor", [&player] { player.Click(kYes); });
}

void AddSearchSteps(Script& script, Player& player, const Number& made) {
  script.Add("The search opens", [&player] { player.Click("جستجو"); });
  script.Add("A search without a filter", [&player] {
    player.ExpectWindow(kSearch);
    player.Click("جستجو");
  });
  script.Add("It offers a limit of 1000 lines", [&player] {
    player.ExpectText("1000");
    player.Picture("search-question", 1);
    player.Click(kYes);
  });
  script.Add("The lines found", [&player] {
    Expect(player.Rows("نتيجه جستجو") > 100, "lines of the sample programs");
    player.Picture("search-result");
  });
  script.Add("Sent to a text file", [&player] { player.Click("فايل متني"); });
  script.Add("The settings of the text file", [&player] {
    player.ExpectWindow("تهيه فايل متني از روي گزارش");
    player.Picture("text-file", 1);
    player.Click("...ذخيره در");
  });
  script.Add("The file is named in the desktop's dialog",
             [&player] { player.SaveAs("visits.txt"); });
  script.Add("The file is written", [&player] { player.Click("تاييد"); });
  script.Add("The search says where", [&player] {
    player.ExpectText("visits.txt");
    player.Picture("text-file-saved", 1);
    player.Click(kOk);
  });
  script.Add("Copied to a workbook", [&player] { player.Click("انتقال به اكسل"); });
  script.Add("The copy is done", [&player] {
    const bool missing = player.UsesOtherPrograms() && player.Title() != "موفقيت";
    player.ExpectText(missing ? "Excel.Application" : "انتقال به اكسل با موفقيت انجام شد");
    player.Picture("workbook-saved", 1);
    player.Click(kOk);
  });
  script.Add("A new search for the program made before", [&player, made] {
    player.Click("جستجوي جديد");
    player.Type("شماره رايانه اي", *made);
    player.Click("جستجو");
    Expect(player.Rows("نتيجه جستجو") == 15, "its fifteen visits");
    player.Picture("search-own");
    player.DoubleClickCell("نتيجه جستجو", 1, 2);
    player.ExpectWindow("برنامه بازارياب  (مشاهده)");
  });
}

void SeePreview(Player& player) {
  player.ExpectText("صفحه 1 از 1");
  player.ExpectText("تاريخ چاپ: ");
  player.Picture("preview");
  player.Press(Key::kEscape);
}

void AddFinalSteps(Script& script, Player& player) {
  script.Add("The program is opened for editing", [&player] { player.Click("اصلاح"); });
  script.Add("And registered finally", [&player] {
    player.ExpectWindow("برنامه بازارياب  (اصلاح)");
    player.Picture("editor-edit");
    player.Click("ثبت نهايي");
    Expect(player.Text("شماره برنامه") == player.Text("شماره رايانه اي"),
           "a code: the program is final");
    player.Picture("editor-final");
  });
  script.Add("Templates for its report", [&player] { player.Click("پيش نمايش"); });
  script.Add("One is picked", [&player] {
    player.Open("قالب گزارش");
    player.Picture("template", 1);
    player.PickItem("قالب گزارش", 1);
    Expect(!player.Text("قالب گزارش").empty(), "a template");
    player.Click("چاپ");
  });
  script.Add("The preview, as wide as its window", [&player] {
    player.ExpectWindow("پيش‌نمايش چاپ");
    player.Click("عرض صفحه");
  });
  script.Add("It shows the report", [&player] { SeePreview(player); });
  script.Add("Its accounting document", [&player] { player.Click("سند حسابداري"); });
  script.Add("There is none yet", [&player] {
    player.Picture("document-none", 1);
    player.Click(kOk);
  });
  script.Add("Back to temporary", [&player] { player.Click("بازگشت به موقت"); });
  script.Add("The editor asks", [&player] {
    player.Picture("back-to-temp", 1);
    player.Click(kYes);
  });
  script.Add("A block of visits is deleted", [&player] {
    Expect(player.Text("شماره برنامه").empty(), "a temporary program");
    player.ClickCell(kVisits, 1, 1);
    player.Click("حذف از ليست");
  });
  script.Add("After a question", [&player] { player.Click(kYes); });
  script.Add("The whole program is deleted", [&player] {
    Expect(player.Rows(kVisits) == 2, "two groups left");
    player.Click("حذف");
  });
  script.Add("After a question", [&player] { player.Click(kYes); });
  script.Add("A program of last month and its document", [&player] {
    Expect(player.Text("شماره رايانه اي").empty(), "an empty editor");
    player.OpenProgram(1);
    player.Click("سند حسابداري");
  });
  script.Add("The document", [&player] {
    player.ExpectWindow("سند حسابداري");
    player.Picture("document");
    player.Press(Key::kEscape);
  });
}

}  // namespace

Script PlannersDay(Player& player) {
  Script script;
  const Number made = std::make_shared<std::string>();
  AddHeaderSteps(script, player, made);
  AddBatchSteps(script, player);
  AddVisitSteps(script, player);
  AddSearchSteps(script, player, made);
  AddFinalSteps(script, player);
  return script;
}

}  // namespace tour
