#include "tools/FormPrint.h"

#include "platform/ResumeNext.h"
#include "tools/Layout.h"

namespace tools {

FormPrint::FormPrint(host::modMain& module)
    : Form(module.GetServices().screen, "FormPrint", Border::kFixed), module_(module) {
  SetCaption("انتخاب قالب گزارش");
  Resize(6000, 1650);
  Layout(*this).Set({{lblReport, {4650, 300, 1200, 285}},
                     {cmbReport_, {150, 240, 4410}, {}, "ق", lblReport},
                     {cmdPrint, {1590, 1050, 1320, 420}, {}, "چ"},
                     {cmdOk, {150, 1050, 1320, 420}, {}, "ت"}});
  SetDefaultButton(&cmdOk);
  SetEscapeCloses();
  SetFirstFocus(&cmbReport_);
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
  sqlCommon.Run("Select * From tblZomirReportTemplate Where ID = " +
                std::to_string(cmbReport_.ItemData(cmbReport_.ListIndex())));
  templateFilePath_ = sqlCommon.Text("FilePath");
  sqlCommon.Close();
  Unload();
}

}  // namespace tools
