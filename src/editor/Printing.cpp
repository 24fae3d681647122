// Preview and print of the shown program with a chosen report template.

#include "editor/FormMain.h"
#include "platform/ResumeNext.h"
#include "text/Text.h"
#include "tools/BusyGrid.h"

namespace editor {

void FormMain::PreviewClick() {
  cmdPreview.SetEnabled(false);
  const auto offerAgain = [this] {
    cmdPreview.SetEnabled(true);
    // The keyboard went on to the next button when this one was disabled.
    platform::ResumeNext([this] { cmdPreview.SetFocus(); });
  };
  try {
    PrintProgram(true);
  } catch (...) {
    offerAgain();
    throw;
  }
  offerAgain();
}

bool FormMain::PrintProgram(bool inPreview) {
  tools::FormPrint& choice = PrintForm();
  choice.SetDocumnetID(host::kFormTypeId);
  if (module_.LoadReportTemplates(choice)) choice.Show(controls::Modality::kModal);
  std::string path = choice.TemplateFilePath();
  if (path.empty()) return false;

  platform::FileSystem& files = module_.GetServices().fileSystem;
  if (!files.FileExists(path)) {
    choice.SetTemplateFilePath(installDirectory_ + path);
    path = choice.TemplateFilePath();
    if (!files.FileExists(path)) {
      module_.ShowMessage("اشکال", "فايل چاپي در مسير مورد نظر «" + path + "» وجود ندارد.");
      return true;
    }
  }
  const tools::Hourglass hourglass(module_);
  const auto report = module_.GetServices().reports.Create();
  report->LoadReportFile(path);
  report->SetConnectionString(module_.Context().connectionString);
  report->SetSelectionFormula(1, "fmlID = " + text::DecimalText(host::NumericValue(txtID.Text())));
  platform::ResumeNext([&] {
    report->Produce(inPreview ? platform::ReportOutput::kScreen : platform::ReportOutput::kPrinter);
  });
  return false;
}

}  // namespace editor
