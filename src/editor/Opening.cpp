// Opening the editor, its four modes, and loading a program's header and grouped visits.

#include "calendar/Gregorian.h"
#include "editor/FormMain.h"
#include "platform/ResumeNext.h"
#include "text/Text.h"
#include "tools/BusyGrid.h"

namespace editor {

namespace {

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
  SetDetailColumns();
  ShowEmpty();
}

void FormMain::ReadInstallDirectory() {
  installDirectory_.clear();
  host::Recordset& rows = module_.DtEn().sqlProgramDetail();
  rows.CloseIfOpen();
  rows.Open("Select Isnull(BasePath,'') as InstallDirectory from vwZomirBasePath Where ID=1 ");
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
  SetCaption(std::string("برنامه بازارياب ").append(CaptionSuffix(mode_)));
  const bool temporary = txtCode.Text().empty();
  const auto enable = [&](const std::vector<controls::Control*>& all) {
    for (controls::Control* control : all) {
      if (const EnabledIn* row = FindEnabledIn(control->Name())) {
        control->SetEnabled(row->Holds(mode_, temporary));
      }
    }
  };
  enable(Controls());
  enable(frameHeader.Controls());
}

void FormMain::ShowEmpty() {
  mode_ = Mode::kEmpty;
  DisableComponents();
  ClearControls();
}

void FormMain::ShowNew() {
  mode_ = Mode::kCreate;
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
  mode_ = Mode::kView;
  DisableComponents();
}

void FormMain::OpenForEdit(std::int32_t programId) {
  LoadProgram(programId);
  mode_ = Mode::kEdit;
  DisableComponents();
  platform::ResumeNext([this] { sltBranch.SetFocus(); });
}

void FormMain::LoadProgram(std::int32_t programId) {
  mode_ = Mode::kEmpty;
  try {
    ClearControls();
    LoadHeader(programId);
  } catch (...) {
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
  rows.CloseIfOpen();
  rows.Open("select * from tblDistributionPromoterProgram Where ID=" + std::to_string(programId));
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
  flxDetail.SetFixedCols(1);
  flxDetail.SetRows(1);
  host::Recordset& rows = module_.DtEn().sqlProgramDetail();
  rows.CloseIfOpen();
  rows.Open(
      "select PromoterID "
      ", (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName "
      ", VisitDate, FarsiVisitDate, Notes"
      ", count(*) as cnt"
      " from tblDistributionPromoterProgramDetail "
      " Where ProgramID=" +
      std::to_string(programId) + " group by PromoterID, VisitDate, FarsiVisitDate, Notes");
  for (; !rows.Eof(); rows.MoveNext()) {
    flxDetail.AddItem("");
    const int row = flxDetail.Rows() - 1;
    flxDetail.SetTextMatrix(row, 0, std::to_string(row));
    flxDetail.SetTextMatrix(row, 1, text::DecimalText(host::NumericValue(rows.Text("PromoterID"))));
    flxDetail.SetTextMatrix(row, 2, rows.Text("PromoterName"));
    flxDetail.SetTextMatrix(row, 3, rows.Text("VisitDate"));
    flxDetail.SetTextMatrix(row, 4, rows.Text("FarsiVisitDate"));
    flxDetail.SetTextMatrix(row, 5, rows.Text("Notes"));
    flxDetail.SetTextMatrix(row, 6, rows.Text("cnt"));
  }
  rows.Close();
  platform::ResumeNext([this] { flxDetail.SetFixedCols(1); });
  // Refused by the grid while it has its caption row alone.
  platform::ResumeNext([this] { flxDetail.SetFixedRows(1); });
}

std::int32_t FormMain::ProgramID() const {
  return host::NumericId(txtID.Text());
}

}  // namespace editor
