// From final back to temporary. The way forward is the final save of HeaderSaving.cpp.

#include "editor/FormMain.h"

namespace editor {

namespace {

constexpr std::int32_t kPermissionBackToTemp = 330807;

}  // namespace

void FormMain::BackToTempClick() {
  if (!Permitted(kPermissionBackToTemp)) return;
  // Only a plain no stops: a dialog closed without an answer goes on.
  if (module_.AskQuestion("پرسش", "آيا براي بازگشت به حالت موقت مطئمن هستيد؟") == host::kNo) return;

  host::Recordset& documents = module_.DtEn().sqlList();
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  documents.Run(
      "Select distinct x.DocumentID from tblAccountDocumentDetail x Where x.FormTypeID= 3308 and "
      "x.FormID=" +
      std::to_string(ProgramID()));
  for (; !documents.Eof(); documents.MoveNext()) {
    const std::string documentId(documents.Text("DocumentID"));
    sqlCommon.Run("Delete tblAccountDocumentDetail Where DocumentID=" + documentId);
    sqlCommon.Run("Delete tblAccountDocument Where ID=" + documentId);
  }
  documents.Close();
  documents.Run("Update tblDistributionPromoterProgram Set Code=null Where ID=" +
                std::to_string(ProgramID()));
  OpenProgram(ProgramID());
}

}  // namespace editor
