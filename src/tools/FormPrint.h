#pragma once

#include <cstdint>
#include <string>

#include "controls/Controls.h"
#include "controls/Form.h"
#include "host/modMain.h"

namespace tools {

/// Lets the user pick one report template. The list is filled by modMain::LoadReportTemplates; the
/// chosen template's path outlives the form's unloading.
class FormPrint : public controls::Form, public host::ReportTemplateForm {
 public:
  explicit FormPrint(host::modMain& module);

  controls::ComboBox& cmbReport() override { return cmbReport_; }
  /// The form type whose templates are listed; the caller sets it before the list is filled.
  std::int32_t DocumnetID() const override { return formTypeId_; }
  /// Forgets an earlier choice.
  void SetDocumnetID(std::int32_t formTypeId) {
    formTypeId_ = formTypeId;
    templateFilePath_.clear();
  }

  /// Empty when nothing was chosen.
  const std::string& TemplateFilePath() const { return templateFilePath_; }
  void SetTemplateFilePath(std::string path) { templateFilePath_ = std::move(path); }

  controls::Label lblReport{*this, "lblReport", "قالب گزارش:"};

 private:
  controls::ComboBox cmbReport_{*this, "cmbReport"};

 public:
  controls::Button cmdPrint{*this, "cmdPrint", "چاپ"};
  controls::Button cmdOk{*this, "cmdOk", "تاييد"};

 private:
  void PrintClick();

  host::modMain& module_;
  std::string templateFilePath_;
  std::int32_t formTypeId_ = 0;
};

}  // namespace tools
