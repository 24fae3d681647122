// From the batch form to visits in the database.

#include <algorithm>
#include <optional>

#include "batch/BatchInsert.h"
#include "editor/FormMain.h"

namespace editor {

namespace {

std::int64_t IdCount(std::string_view idList) {
  return idList.empty() ? 0 : 1 + std::count(idList.begin(), idList.end(), ',');
}

std::string WhatWasAdded(std::int64_t added, std::int64_t wanted) {
  const std::int64_t before = wanted - added;
  std::string words = added > 0 ? std::to_string(added) + " ويزيت افزوده شد" : "ويزيتي افزوده نشد";
  if (before > 0) words += "؛ " + std::to_string(before) + " ويزيت از پيش در برنامه بود";
  return words + ".";
}

}  // namespace

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
  sqlCommon.Run(batch::BatchInsertStatement({.programId = ProgramID(),
                                             .promoterId = promoterId,
                                             .dates = dates,
                                             .customerIds = customerIds,
                                             .notesLiteral = notes}));
  const std::optional<std::int64_t> added = sqlCommon.AffectedRows();
  LoadDetails(programId);
  if (added) lblAdded.SetCaption(WhatWasAdded(*added, IdCount(dates) * IdCount(customerIds)));
}

}  // namespace editor
