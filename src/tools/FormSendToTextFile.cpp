#include "tools/FormSendToTextFile.h"

#include "platform/ResumeNext.h"
#include "text/Fold.h"
#include "text/Text.h"
#include "tools/Layout.h"

namespace tools {

namespace {

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
  Resize(7200, 3900);
  Layout(*this).Set({{lblExcell_1, {150, 150, 6900, 600}},
                     {lblExcell_2, {5850, 960, 1200, 285}},
                     {txtDelimiter, {3900, 900, 1860}, {}, "ج", lblExcell_2},
                     {chkNewLine, {2400, 1410, 4650, 330}, {}, "خ"},
                     {chkHeader, {2400, 1770, 4650, 330}, {}, "س"},
                     {chkRemoveMoney, {2400, 2130, 4650, 330}, {}, "م"},
                     {txtSaveFileName, {150, 2640, 5460}, {}, {}, "نام فايل"},
                     {cmdSave, {5730, 2640, 1320}, {}, "ذ"},
                     {cmdOk, {1590, 3300, 1320, 420}, {}, "ت"},
                     {cmdCancel, {150, 3300, 1320, 420}, {}, "ف"}});
  SetDefaultButton(&cmdOk);
  SetCancelButton(&cmdCancel);
  // Inside the box it would be the delimiter of whoever leaves the box alone.
  txtDelimiter.SetToolTip("^t=Tab");
  txtDelimiter.SetSelectAllOnFocus(true);
  txtSaveFileName.SetEnabled(false);  // shows the chosen path; one typed here would not be written
  cmdSave.onClick = [this] { SaveClick(); };
  cmdOk.onClick = [this] { OkClick(); };
  cmdCancel.onClick = [this] { CancelClick(); };
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
