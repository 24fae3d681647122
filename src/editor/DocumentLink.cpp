// The accounting document that the suite has tied to a program, and two routines for the modules
// that post such documents.

#include <array>

#include "editor/FormMain.h"
#include "platform/ResumeNext.h"
#include "text/Text.h"

namespace editor {

namespace {

constexpr std::int32_t kPermissionViewDocument = 303;
constexpr std::int32_t kBranchClassId = 19;
constexpr std::string_view kViewer = "comVoucherView.comVoucherView1";
constexpr std::string_view kNotAllowed = "شما مجاز به انجام اين عمليات نيستيد.";

}  // namespace

void FormMain::ViewAccountDocClick() {
  if (!module_.HasPermission(kPermissionViewDocument)) {
    module_.ShowMessage("خطا", kNotAllowed);
    return;
  }
  std::int32_t documentId = -1;
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.Run("Select Top 1 DocumentID from tblAccountDocumentDetail Where FormID=" +
                text::DecimalText(host::NumericValue(txtID.Text())) + " and FormTypeID=3308");
  if (sqlCommon.RecordCount() > 0) documentId = host::NumericId(sqlCommon.Text("DocumentID"));
  sqlCommon.Close();
  if (const auto viewer = CreateDocumentViewer()) {
    const host::HostContext& context = module_.Context();
    platform::ResumeNext([&] { viewer->Put("UserID", context.userId); });
    platform::ResumeNext([&] { viewer->Put("PositionID", context.positionId); });
    platform::ResumeNext([&] { viewer->Put("OLEConnectionString", context.connectionString); });
    const std::array<platform::AutomationValue, 1> arguments{documentId};
    platform::ResumeNext([&] { viewer->Call("View", arguments); });
  }
}

std::unique_ptr<platform::AutomationObject> FormMain::CreateDocumentViewer() {
  std::unique_ptr<platform::AutomationObject> viewer;
  const auto create = [&] {
    return platform::ResumeNext([&] { viewer = module_.GetServices().components.Create(kViewer); });
  };
  if (create() != platform::kCannotCreateComponent) return viewer;
  platform::ResumeNext([&] {
    module_.GetServices().desktop.Start("Regsvr32  \"" + installDirectory_ +
                                        "System\\comVoucherView.ocx\" /s");
  });
  if (create() == platform::kCannotCreateComponent) module_.ShowMessage("خطا", kNotAllowed);
  return viewer;
}

bool FormMain::InsertDocumentObject(std::int32_t& inDocID, std::int32_t& inRowNumber,
                                    std::int32_t& inAccountID, std::int32_t& inClassID,
                                    std::int32_t& inObjectID) {
  if (inObjectID < 1 || inClassID < 1) return false;
  const std::string documentId = std::to_string(inDocID);
  const std::string rowNumber = std::to_string(inRowNumber);
  const std::string classId = std::to_string(inClassID);
  const std::string objectId = std::to_string(inObjectID);
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.Run(
      "insert into tblAccountDocumentObjects (DocumentID, RowNumber, Sequence, ClassID, ObjectID) "
      " Select " +
      documentId + ", " + rowNumber + ", Sequence, " + classId + ", " + objectId +
      " from tblAccountRelatedClasses ac "
      " Where ac.AccountID=" +
      std::to_string(inAccountID) + " and ac.ClassID=" + classId +
      " and not Exists(Select x.* from tblAccountDocumentObjects x where x.ClassID= " + classId +
      " and x.DocumentID=" + documentId + " and x.RowNumber=" + rowNumber + ")");
  if (inClassID == kBranchClassId) {
    sqlCommon.Run("update tblAccountDocumentDetail set BranchID=" + objectId +
                  " Where DocumentID=" + documentId + " and RowNumber=" + rowNumber);
  }
  return false;
}

std::int32_t FormMain::GetAssetGroupAccountID(std::int32_t inGroupID) {
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.Run("Select x.AssetGroupAccountID from tblAssetGroup x Where x.ID=" +
                std::to_string(inGroupID));
  const std::int32_t accountId =
      sqlCommon.RecordCount() > 0 ? host::NumericId(sqlCommon.Text("AssetGroupAccountID")) : -1;
  sqlCommon.Close();
  return accountId;
}

}  // namespace editor
