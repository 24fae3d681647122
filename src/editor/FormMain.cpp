#include "editor/FormMain.h"

namespace editor {

FormMain::FormMain(host::modMain& module)
    : Form(module.GetServices().screen, "FormMain", Border::kSizable),
      sltCreator(frameHeader, "sltCreator", module),
      sltSupervisor(frameHeader, "sltSupervisor", module),
      sltBranch(frameHeader, "sltBranch", module),
      module_(module),
      layout_(*this, 4000),
      marks_(module, flxDetail, {&cmdSelectAll, &cmdSelectInverse, &cmdSelectNone},
             [this] { return cmdAddBatch.Enabled(); }) {
  PlaceControls();

  cmdNew.onClick = [this] { NewClick(); };
  cmdEdit.onClick = [this] { EditClick(); };
  cmdCancel.onClick = [this] { CancelClick(); };
  cmdTempSave.onClick = [this] { SaveProgram(false); };
  cmdFinalSave.onClick = [this] { SaveProgram(true); };
  cmdDelete.onClick = [this] { DeleteClick(); };
  cmdBackToTemp.onClick = [this] { BackToTempClick(); };
  cmdViewAccountDoc.onClick = [this] { ViewAccountDocClick(); };
  cmdPreview.onClick = [this] { PreviewClick(); };
  cmdSearch.onClick = [this] { SearchClick(); };
  cmdAddBatch.onClick = [this] { AddBatchClick(); };
  cmdDeleteSelected.onClick = [this] { DeleteSelectedClick(); };
  flxDetail.onClick = [this] { DetailClick(); };
  flxDetail.onDblClick = [this] { DetailDblClick(); };
}

namespace {

template <typename FormKind>
FormKind& MadeOnce(std::unique_ptr<FormKind>& form, host::modMain& module) {
  if (!form) form = std::make_unique<FormKind>(module);
  return *form;
}

}  // namespace

batch::FormAddBatch& FormMain::BatchForm() {
  return MadeOnce(batchForm_, module_);
}

search::FormSearch& FormMain::SearchForm() {
  return MadeOnce(searchForm_, module_);
}

tools::FormPrint& FormMain::PrintForm() {
  return MadeOnce(printForm_, module_);
}

bool FormMain::DialogIsUp() const {
  const auto isUp = [](const auto& form) { return form && form->Visible(); };
  return isUp(batchForm_) || isUp(searchForm_) || isUp(printForm_);
}

void FormMain::SearchClick() {
  const std::int32_t programId = SearchForm().PickProgram();
  if (programId > 0) OpenProgram(programId);
}

void FormMain::FormResize() {
  layout_.FollowSize();
}

void FormMain::UnloadAll() {
  Unload();
  batchForm_.reset();
  searchForm_.reset();
  printForm_.reset();
}

bool FormMain::MayClose() {
  const bool headerIsOpen = Visible() && (mode_ & (kEdit | kCreate)) != 0;
  return !headerIsOpen || module_.AskQuestion("انصراف از ثبت", "آيا مطمئن هستيد؟") != host::kNo;
}

void FormMain::FormClose() {
  if (MayClose()) Unload();
}

bool FormMain::Permitted(std::int32_t permission) {
  if (module_.HasPermission(permission)) return true;
  module_.ShowMessage("خطا", "شما به انجام اين عمليات مجاز نيستيد.");
  return false;
}

}  // namespace editor
