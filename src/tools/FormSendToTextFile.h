#pragma once

#include <cstdint>
#include <string>

#include "controls/Controls.h"
#include "controls/Form.h"
#include "host/modMain.h"

namespace tools {

/// Asks how a grid is to be written to a delimited text file. It gathers the settings; the caller
/// writes the file.
class FormSendToTextFile : public controls::Form {
 public:
  explicit FormSendToTextFile(host::modMain& module);

  /// Shows the form modally; true when the user confirmed. The arguments are set on both ends:
  /// the path last chosen through cmdSave (also one whose overwriting was declined), the delimiter
  /// ("^t" is a tab), and the three ticks. Throws nothing: what fails on the way, the showing too,
  /// is passed over, and a dialog that could not be shown was not confirmed. inReportID is of no
  /// use here.
  bool getTextFileName(std::int32_t& inReportID, std::string& outFileName,
                       std::string& outDelimiter, bool& addNewLine, bool& AddHeaders,
                       bool& removeMoneySep);

  controls::Label lblExcell_1{*this, "lblExcell_1",
                              "جهت تهيه فايل متني، جداكننده ستونهاي گزارش را مشخص كنيد و پس از "
                              "مشخص كردن مسير فايل  دكمه تاييد را بزنيد:"};
  controls::Label lblExcell_2{*this, "lblExcell_2", "جدا كننده:"};
  controls::TextBox txtDelimiter{*this, "txtDelimiter"};
  controls::CheckBox chkNewLine{*this, "chkNewLine", "در انتها يك خط اضافه شود."};
  controls::CheckBox chkHeader{*this, "chkHeader", "سر ستونها منتقل شود."};
  controls::CheckBox chkRemoveMoney{*this, "chkRemoveMoney",
                                    "مقادير مالي بدون جداکننده ارسال شوند."};
  controls::TextBox txtSaveFileName{*this, "txtSaveFileName"};
  controls::Button cmdSave{*this, "cmdSave", "...ذخيره در"};
  controls::Button cmdOk{*this, "cmdOk", "تاييد"};
  controls::Button cmdCancel{*this, "cmdCancel", "انصراف"};

 protected:
  void FormLoad() override;
  void FormClose() override { cmdCancel.Click(); }

 private:
  void SaveClick();
  void OkClick();
  void CancelClick();

  host::modMain& module_;
  std::string fileName_;
  bool confirmed_ = false;
};

}  // namespace tools
