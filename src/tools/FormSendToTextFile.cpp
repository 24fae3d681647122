#include "tools/FormSendToTextFile.h"

#include "platform/ResumeNext.h"
#include "text/Fold.h"
#include "text/Text.h"
#include "tools/Placing.h"

namespace tools {

namespace {

/// Shown on hovering; inside the box it would be the delimiter of whoever leaves the box alone.
constexpr std::string_view kTabHint = "^t=Tab";

/// The path, with ".txt" where its name has no ending. Digits alone are none, but part of a date.
std::string WithEnding(const std::string& path) {
  const std::size_t name = path.find_last_of("/\\") + 1;
  const std::size_t dot = path.rfind('.');
  if (dot == std::string::npos || dot < name) return path + ".txt";
  if (dot + 1 == path.size()) return path + "txt";
  const std::string ending = text::LatinDigits(path.substr(dot + 1));
  return ending.find_first_not_of("0123456789") == std::string::npos ? path + ".txt" : path;
}

}  // namespace

FormSendToTextFile::FormSendToTextFile(host::modMain& module)
    : Form(module.GetServices().screen, "FormSendToTextFile", Border::kFixed), module_(module) {
  SetCaption("تهيه فايل متني از روي گزارش");
  PlaceControls();
  txtDelimiter.SetSelectAllOnFocus(true);
  cmdSave.onClick = [this] { SaveClick(); };
  cmdOk.onClick = [this] { OkClick(); };
  cmdCancel.onClick = [this] { CancelClick(); };
}

void FormSendToTextFile::PlaceControls() {
  Resize(7200, 3900);
  lblExcell_1.Move(150, 150, 6900, 600);
  lblExcell_2.Move(5850, 960, 1200, 285);
  txtDelimiter.Move(3900, 900, 1860, 375);
  txtDelimiter.SetToolTip(std::string(kTabHint));
  chkNewLine.Move(2400, 1410, 4650, 330);
  chkHeader.Move(2400, 1770, 4650, 330);
  chkRemoveMoney.Move(2400, 2130, 4650, 330);
  cmdSave.Move(5730, 2640, 1320, 375);
  txtSaveFileName.Move(150, 2640, 5460, 375);
  txtSaveFileName.SetEnabled(false);  // shows the chosen path; one typed here would not be written
  cmdOk.Move(1590, 3300, 1320, 420);
  cmdCancel.Move(150, 3300, 1320, 420);
  SetDefaultButton(&cmdOk);
  SetCancelButton(&cmdCancel);
  SetTabOrder(
      {&txtDelimiter, &chkNewLine, &chkHeader, &chkRemoveMoney, &cmdSave, &cmdOk, &cmdCancel});
  lblExcell_2.SetNamed(&txtDelimiter);
  txtSaveFileName.SetAccessibleName("نام فايل");
  SetAccessKeys({{lblExcell_2, "ج"},
                 {chkNewLine, "خ"},
                 {chkHeader, "س"},
                 {chkRemoveMoney, "م"},
                 {cmdSave, "ذ"},
                 {cmdOk, "ت"},
                 {cmdCancel, "ف"}});
}

void FormSendToTextFile::FormLoad() {
  txtDelimiter.SetText("^t");
  chkNewLine.SetChecked(false);
  chkHeader.SetChecked(true);
  chkRemoveMoney.SetChecked(false);
  txtSaveFileName.SetText("");
  fileName_.clear();
}

bool FormSendToTextFile::getTextFileName(std::int32_t& /*inReportID*/, std::string& outFileName,
                                         std::string& outDelimiter, bool& addNewLine,
                                         bool& AddHeaders, bool& removeMoneySep) {
  using platform::ResumeNext;
  confirmed_ = false;
  ResumeNext([&] { Show(controls::Modality::kModal); });
  // Reading models throws nothing.
  outFileName = fileName_;
  const std::string_view trimmed = text::Trim(txtDelimiter.Text());
  outDelimiter = trimmed == "^t" || trimmed == "^T" ? "\t" : txtDelimiter.Text();
  addNewLine = chkNewLine.Checked();
  AddHeaders = chkHeader.Checked();
  removeMoneySep = chkRemoveMoney.Checked();
  ResumeNext([&] { Unload(); });
  return confirmed_;
}

void FormSendToTextFile::SaveClick() {
  if (!module_.AskSaveFileName(fileName_, "فايل متني") || fileName_.empty()) return;
  fileName_ = WithEnding(fileName_);  // before the question: what is written is what is asked about
  if (module_.GetServices().fileSystem.FileExists(fileName_) &&
      module_.AskQuestion("هشدار", "فايل مورد نظر تكراري است، آيا بازنويسي شود؟") == host::kNo) {
    return;  // fileName_ keeps the declined path: the caller is given what was last chosen
  }
  txtSaveFileName.SetText(fileName_);
}

void FormSendToTextFile::OkClick() {
  if (txtSaveFileName.Text().empty()) {
    module_.ShowMessage("خطا", "لطفاً با دكمه ذخيره در، نام فايل را مشخص كنيد.");
    return;
  }
  confirmed_ = true;
  Hide();
}

void FormSendToTextFile::CancelClick() {
  confirmed_ = false;
  Hide();
}

}  // namespace tools
