#include "tools/FormPrint.h"

#include "platform/ResumeNext.h"
#include "tools/Placing.h"

namespace tools {

FormPrint::FormPrint(host::modMain& module)
    : Form(module.GetServices().screen, "FormPrint", Border::kFixed), module_(module) {
  SetCaption("انتخاب قالب گزارش");
  Resize(6000, 1650);
  lblReport.Move(4650, 300, 1200, 285);
  cmbReport_.Move(150, 240, 4410, 375);
  cmdPrint.Move(1590, 1050, 1320, 420);
  cmdOk.Move(150, 1050, 1320, 420);
  SetDefaultButton(&cmdOk);
  SetEscapeCloses();
  SetFirstFocus(&cmbReport_);
  SetTabOrder({&cmbReport_, &cmdPrint, &cmdOk});
  lblReport.SetNamed(&cmbReport_);
  SetAccessKeys({{lblReport, "ق"}, {cmdPrint, "چ"}, {cmdOk, "ت"}});
  cmdPrint.onClick = [this] { PrintClick(); };
  cmdOk.onClick = [this] { PrintClick(); };
}

void FormPrint::PrintClick() {
  if (cmbReport_.ListIndex() == -1) {
    platform::ResumeNext([this] { cmbReport_.SetFocus(); });
    module_.ShowMessage("هشدار", "قالب گزارش مشخص نيست، آنرا مشخص سازيد.");
    return;
  }
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.CloseIfOpen();
  sqlCommon.SetSource("Select * From tblZomirReportTemplate Where ID = " +
                      std::to_string(cmbReport_.ItemData(cmbReport_.ListIndex())));
  sqlCommon.Open();
  templateFilePath_ = sqlCommon.Text("FilePath");
  sqlCommon.Close();
  Unload();
}

}  // namespace tools
