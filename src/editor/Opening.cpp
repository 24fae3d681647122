// Opening the editor, its four modes, and loading a program's header and grouped visits.

#include "calendar/Gregorian.h"
#include "editor/FormMain.h"
#include "platform/ResumeNext.h"
#include "tools/BusyGrid.h"
#include "tools/Columns.h"

namespace editor {

namespace {

constexpr tools::Column kDetailColumns[] = {
    {"رديف", 800},
    {"PromoterID", 0, "PromoterID"},
    {"بازارياب", 3000, "PromoterName"},
    {"", 0, "VisitDate"},
    {"تاريخ", 1500, "FarsiVisitDate"},
    {"شرح", 2000, "Notes", true},
    {"تعداد مشتري", 1500, "cnt"},
};

std::chrono::sys_days DateOf(std::string_view text) {
  const auto day = calendar::GregorianFromText(text);
  if (!day) throw platform::RuntimeError(platform::kTypeMismatch, "Type mismatch");
  return *day;
}

}  // namespace

void FormMain::FormLoad() {
  module_.SwitchKeyboard();
  ReadInstallDirectory();
  module_.SetViews(sltCreator, "vwUserMajor", "vwUserMinor");
  module_.SetViews(sltSupervisor, "vwSaleSupervisorMajor", "vwSaleSupervisorMinor");
  module_.SetViews(sltBranch, "vwAccountBranchMajor", "vwAccountBranchMinor");
  datToday.SetValue(module_.GetServerDate());
  tools::SetColumns(flxDetail, kDetailColumns, controls::FlexGrid::Alignment::kCentreCentre);
  ShowEmpty();
}

void FormMain::ReadInstallDirectory() {
  installDirectory_.clear();
  host::Recordset& rows = module_.DtEn().sqlProgramDetail();
  rows.Run("Select Isnull(BasePath,'') as InstallDirectory from vwZomirBasePath Where ID=1 ");
  if (rows.RecordCount() > 0) installDirectory_ = rows.Text("InstallDirectory");
  rows.Close();
}

bool FormMain::ClearShow() {
  Load();
  ShowEmpty();
  ShowForm();
  return false;
}

bool FormMain::View(std::int32_t inProgramID) {
  Load();
  OpenProgram(inProgramID);
  ShowForm();
  return false;
}

void FormMain::ShowForm() {
  if (platform::ResumeNext([this] { Show(controls::Modality::kModeless); }) != 0) {
    platform::ResumeNext([this] { Show(controls::Modality::kModal); });
  }
}

void FormMain::DisableComponents() {
  const char* const suffix = mode_ == kEdit     ? " (اصلاح)"
                             : mode_ == kCreate ? " (ايجاد)"
                             : mode_ == kEmpty  ? ""
                                                : " (مشاهده)";
  SetCaption(std::string("برنامه بازارياب ") + suffix);
  layout_.EnableFor(mode_);
}

void FormMain::ShowEmpty() {
  mode_ = kEmpty;
  DisableComponents();
  ClearControls();
}

void FormMain::ShowNew() {
  mode_ = kCreate;
  DisableComponents();
  ClearControls();
  // The header's first field that the new program does not bring along.
  platform::ResumeNext([this] { sltBranch.SetFocus(); });
}

void FormMain::OpenProgram(std::int32_t programId) {
  if (programId <= 0) {
    ShowEmpty();
    return;
  }
  LoadProgram(programId);
  mode_ = txtCode.Text().empty() ? kTemporary : kFinal;
  DisableComponents();
}

void FormMain::OpenForEdit(std::int32_t programId) {
  LoadProgram(programId);
  mode_ = kEdit;
  DisableComponents();
  platform::ResumeNext([this] { sltBranch.SetFocus(); });
}

void FormMain::LoadProgram(std::int32_t programId) {
  mode_ = kEmpty;
  try {
    ClearControls();
    LoadHeader(programId);
  } catch (...) {
    mode_ = kEmpty;
    DisableComponents();  // else the buttons of the program before would act on half of this one
    throw;
  }
}

void FormMain::ClearControls() {
  txtID.SetText("");
  txtCode.SetText("");
  sltCreator.Select(module_.Context().userId);
  datCreateDate.Clear();
  datCreateDate.SetValue(module_.GetServerDate());
  sltSupervisor.Select(module_.Context().employeeId);
  sltBranch.Clear();
  txtDescription.SetText("");
  LoadDetails(-1);
}

void FormMain::LoadHeader(std::int32_t programId) {
  host::Recordset& rows = module_.DtEn().sqlProgram();
  rows.Run("select * from tblDistributionPromoterProgram Where ID=" + std::to_string(programId));
  if (rows.RecordCount() < 1) {
    module_.ShowMessage("خطا", "ركورد مورد نظر يافت نشد.");
  } else {
    txtID.SetText(std::string(rows.Text("ID")));
    sltCreator.Select(host::NumericId(rows.Text("CreatorID")));
    txtCode.SetText(std::string(rows.Text("Code")));
    if (!rows.Text("CreateDate").empty()) {
      datCreateDate.SetValue(DateOf(rows.Text("CreateDate")));
    }
    sltBranch.Select(host::NumericId(rows.Text("BranchID")));
    sltSupervisor.Select(host::NumericId(rows.Text("SupervisorID")));
    txtDescription.SetText(std::string(rows.Text("Notes")));
  }
  rows.Close();
  LoadDetails(ProgramID());
}

void FormMain::LoadDetails(std::int32_t programId) {
  lblAdded.SetCaption("");
  const tools::BusyGrid busy(module_, flxDetail);
  flxDetail.SetRows(1);
  host::Recordset& rows = module_.DtEn().sqlProgramDetail();
  rows.Run(
      "select PromoterID "
      ", (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName "
      ", VisitDate, FarsiVisitDate, Notes"
      ", count(*) as cnt"
      " from tblDistributionPromoterProgramDetail "
      " Where ProgramID=" +
      std::to_string(programId) + " group by PromoterID, VisitDate, FarsiVisitDate, Notes");
  tools::FillRows(flxDetail, kDetailColumns, rows);
}

std::int32_t FormMain::ProgramID() const {
  return host::NumericId(txtID.Text());
}

}  // namespace editor
