// The header: new, edit, cancel, and the two ways of storing it.

#include "calendar/Gregorian.h"
#include "editor/FormMain.h"
#include "platform/ResumeNext.h"
#include "text/Text.h"

namespace editor {

namespace {

// Permissions of the form, and the events of its action log.
constexpr std::int32_t kPermissionNew = 330801;
constexpr std::int32_t kPermissionEdit = 330802;
constexpr std::int32_t kPermissionTempSave = 330805;
constexpr std::int32_t kPermissionFinalSave = 330806;
constexpr std::int32_t kEventCreated = 330801;
constexpr std::int32_t kEventEdited = 330804;

}  // namespace

void FormMain::NewClick() {
  if (Permitted(kPermissionNew)) ShowNew();
}

void FormMain::EditClick() {
  if (Permitted(kPermissionEdit)) OpenForEdit(ProgramID());
}

void FormMain::CancelClick() {
  if (module_.AskQuestion("انصراف از ثبت", "آيا مطمئن هستيد؟") != host::kYes) return;
  if (mode_ == kCreate) {
    ShowEmpty();
  } else {
    OpenProgram(ProgramID());
  }
}

bool FormMain::SaveProgram(bool inFinal) {
  try {
    if (!Permitted(inFinal ? kPermissionFinalSave : kPermissionTempSave)) return false;
    const std::string_view notes = text::Trim(txtDescription.Text());
    // Quotes are not doubled: the server refuses such notes and the trap below says so.
    txtDescription.SetTag(notes.empty() ? "NULL" : std::string("'").append(notes).append("'"));
    if (!HeaderIsValid()) return false;
    if (mode_ == kCreate) InsertHeader();
    if (mode_ == kEdit) UpdateHeader(inFinal);
    OpenProgram(ProgramID());
    platform::ResumeNext([this] { cmdNew.SetFocus(); });
  } catch (const platform::RuntimeError& error) {
    module_.ShowMessage("خطا در ثبت", error.Description());
  }
  return false;
}

bool FormMain::HeaderIsValid() {
  const struct {
    bool missing;
    controls::Control& control;
    std::string_view message;
  } checks[] = {
      {!sltSupervisor.HasSelection(), sltSupervisor, "مدير برنامه مشخص نشده است!"},
      {!sltCreator.HasSelection(), sltCreator, "ايجاد کننده مشخص نشده است!"},
      {datCreateDate.IsEmpty(), datCreateDate, "تاريخ ايجاد مشخص نشده است!"},
      {!sltBranch.HasSelection(), sltBranch, "شعبه مشخص نشده است!"},
  };
  for (const auto& check : checks) {
    if (!check.missing) continue;
    module_.ShowMessage("اشکال", check.message);
    platform::ResumeNext([&] { check.control.SetFocus(); });
    return false;
  }
  return true;
}

void FormMain::InsertHeader() {
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.Run(
      "insert into tblDistributionPromoterProgram "
      "(CreatorID, CreateDate, FarsiCreateDate, BranchID, SupervisorID, Notes)"
      " values (" +
      std::to_string(sltCreator.SelectedID()) + ", '" +
      calendar::GregorianLiteral(datCreateDate.Value().value()) + "','" + datCreateDate.Text() +
      "' " + "," + std::to_string(sltBranch.SelectedID()) + "," +
      std::to_string(sltSupervisor.SelectedID()) + "," + txtDescription.Tag() + ")");
  sqlCommon.Run("Select SCOPE_IDENTITY() as newID");
  if (sqlCommon.RecordCount() > 0) {
    txtID.SetText(text::DecimalText(host::NumericValue(sqlCommon.Text("newID"))));
  }
  sqlCommon.Close();
  LogAction(kEventCreated, "ايجاد شد.");
}

void FormMain::UpdateHeader(bool inFinal) {
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.Run(std::string("update tblDistributionPromoterProgram ") +
                " Set CreatorID=" + std::to_string(sltCreator.SelectedID()) +
                ", BranchID=" + std::to_string(sltBranch.SelectedID()) + ", SupervisorID=" +
                std::to_string(sltSupervisor.SelectedID()) + ", Notes=" + txtDescription.Tag() +
                ", Code=" + (inFinal ? "ID" : "NULL") + " Where ID=" + std::to_string(ProgramID()));
  LogAction(kEventEdited, "اصلاح شد.");
}

void FormMain::LogAction(std::int32_t eventId, std::string_view whatHappened) {
  const std::string id = std::to_string(ProgramID());
  module_.DtEn().spZomirInsertFormAction({
      .eventId = eventId,
      .formCode = id,
      .formTypeId = host::kFormTypeId,
      .description = "فرم برنامه بازارياب به ش.ر. ”" + id + "“ " + std::string(whatHappened),
      .userId = module_.Context().userId,
      .eventDate = datToday.Value().value(),
      .farsiEventDate = datToday.Text(),
      .eventTime = module_.GetServices().desktop.MinutesSinceMidnight(),
  });
}

}  // namespace editor
