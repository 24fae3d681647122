// Deleting a whole program: its visits, its attachments, its header.

#include "editor/FormMain.h"
#include "platform/ResumeNext.h"

namespace editor {

namespace {

constexpr std::int32_t kPermissionDelete = 330803;
constexpr std::int32_t kEventDeleted = 330803;

}  // namespace

void FormMain::DeleteClick() {
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  try {
    // A refused right is silent here; who declines reads the text of a refused right. Users of the
    // suite know both.
    if (!module_.HasPermission(kPermissionDelete)) return;
    if (module_.AskQuestion("حذف", "آيا مطمئن هستيد؟") != host::kYes) {
      module_.ShowMessage("خطا", "شما به انجام اين عمليات مجاز نيستيد.");
      return;
    }
    const std::string id = std::to_string(ProgramID());
    sqlCommon.Run("Delete tblDistributionPromoterProgramDetail Where ProgramID=" + id);
    sqlCommon.Run("Delete tblZomirFormAttachment Where FormTypeID = " +
                  std::to_string(host::kFormTypeId) + " and FormID = " + id);
    sqlCommon.Run("Delete tblDistributionPromoterProgram Where ID=" + id);
  } catch (const platform::RuntimeError& error) {
    module_.ShowMessage("خطا",
                        "به اين فرم برنامه بازارياب وابستگي وجود دارد.\r\n" + error.Description());
    return;
  }
  platform::ResumeNext([this] { LogAction(kEventDeleted, "حذف شد."); });
  ShowEmpty();
}

}  // namespace editor
