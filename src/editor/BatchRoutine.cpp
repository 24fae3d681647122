// From the batch form to visits in the database.

#include "batch/BatchInsert.h"
#include "editor/FormMain.h"

namespace editor {

void FormMain::AddBatchClick() {
  std::int32_t promoterId = 0;
  std::string dates;
  std::string customerIds;
  std::string notes;
  bool viewMode = false;
  std::int32_t supervisor = sltSupervisor.SelectedID();
  InsertBatchDetail(promoterId, dates, customerIds, notes, viewMode, supervisor);
}

void FormMain::InsertBatchDetail(std::int32_t& promoterId, std::string& dates,
                                 std::string& customerIds, std::string& notes, bool& viewMode,
                                 std::int32_t& supervisor) {
  std::int32_t programId = ProgramID();
  if (!BatchForm().getProgramDetail(programId, promoterId, dates, customerIds, notes, viewMode,
                                    supervisor)) {
    return;
  }
  notes = notes.empty() ? "null" : "'" + notes + "'";
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.CloseIfOpen();
  sqlCommon.Open(batch::BatchInsertStatement({.programId = ProgramID(),
                                              .promoterId = promoterId,
                                              .dates = dates,
                                              .customerIds = customerIds,
                                              .notesLiteral = notes}));
  LoadDetails(programId);
}

}  // namespace editor
