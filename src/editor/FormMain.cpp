#include "editor/FormMain.h"

namespace editor {

FormMain::FormMain(host::modMain& module)
    : Form(module.GetServices().screen, "FormMain", Border::kSizable),
      sltCreator(frameHeader, "sltCreator", module),
      sltSupervisor(frameHeader, "sltSupervisor", module),
      sltBranch(frameHeader, "sltBranch", module),
      module_(module),
      resizeRules_(4000, 4000) {
  PlaceControls();

  cmdNew.onClick = [this] { NewClick(); };
  cmdEdit.onClick = [this] { EditClick(); };
  cmdCancel.onClick = [this] { CancelClick(); };
  cmdTempSave.onClick = [this] { SaveProgram(false); };
  cmdFinalSave.onClick = [this] { SaveProgram(true); };
  cmdAddBatch.onClick = [this] { AddBatchClick(); };
  cmdSelectAll.onClick = [this] { MarkRows(Marking::kAll); };
  cmdSelectInverse.onClick = [this] { MarkRows(Marking::kInverse); };
  cmdSelectNone.onClick = [this] { MarkRows(Marking::kNone); };
  cmdDeleteSelected.onClick = [this] { DeleteSelectedClick(); };
  flxDetail.onMouseDown = [this](int, int) { DetailMouseDown(); };
  flxDetail.onClick = [this] { DetailClick(); };
  flxDetail.onDblClick = [this] { DetailDblClick(); };
}

batch::FormAddBatch& FormMain::BatchForm() {
  if (!batchForm_) batchForm_ = std::make_unique<batch::FormAddBatch>(module_);
  return *batchForm_;
}

void FormMain::FormResize() {
  resizeRules_.Apply(Width(), Height());
}

void FormMain::FormClose() {
  const bool headerIsOpen = mode_ == Mode::kEdit || mode_ == Mode::kCreate;
  if (headerIsOpen && module_.AskQuestion("انصراف از ثبت", "آيا مطمئن هستيد؟") == host::kNo) return;
  Unload();
}

bool FormMain::Permitted(std::int32_t permission) {
  if (module_.HasPermission(permission)) return true;
  module_.ShowMessage("خطا", "شما به انجام اين عمليات مجاز نيستيد.");
  return false;
}

}  // namespace editor
