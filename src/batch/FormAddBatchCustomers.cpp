// From the promoter to the customers: regions, paths in the picked regions, and the search.

#include "batch/FormAddBatch.h"
#include "batch/PickedIds.h"
#include "platform/ResumeNext.h"
#include "text/Text.h"
#include "tools/BusyGrid.h"

namespace batch {

namespace {

/// Refills a grid of two columns, name and id, from two fields of an open recordset.
void FillNamesAndIds(controls::FlexGrid& grid, host::Recordset& rows, std::string_view nameField,
                     std::string_view heading) {
  grid.SetRows(1);
  for (; !rows.Eof(); rows.MoveNext()) {
    grid.AddItem("");
    grid.SetTextMatrix(grid.Rows() - 1, 0, rows.Text(nameField));
    grid.SetTextMatrix(grid.Rows() - 1, 1, rows.Text("ID"));
  }
  platform::ResumeNext([&] { grid.SetFixedRows(1); });
  grid.SetTextMatrix(0, 0, heading);
}

}  // namespace

void FormAddBatch::PromoterChanged() {
  for (tools::comFlex* grid : {&flxRegion, &flxPath}) grid->Flex.SetRows(1);
  ClearCustomers();
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.CloseIfOpen();
  sqlCommon.Open(
      "Select distinct r.Description as RegionName, r.ID  "
      " from tblDistributionPathPromoters inner join tblDistributionPath p on PathID=p.ID"
      " inner join tblDistributionRegion r on r.ID = p.RegionID "
      " where EmployeeID=" +
      std::to_string(sltPromoter.SelectedID()));
  const tools::BusyGrid busy(module_, flxRegion.Flex);
  FillNamesAndIds(flxRegion.Flex, sqlCommon, "RegionName", "عنوان منطقه");
  sqlCommon.Close();
}

void FormAddBatch::RegionPicksChanged() {
  std::string regions = PickedIds(
      flxRegion, [this](int row) { return std::string(flxRegion.Flex.TextMatrix(row, 1)); });
  if (regions.empty()) regions = "-1";
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.CloseIfOpen();
  sqlCommon.Open(
      "Select distinct p.Name + ' ('+isnull(r.Description,'')+')'as PathName, p.ID "
      " from tblDistributionPathPromoters inner join tblDistributionPath p on p.ID=PathID"
      " inner join tblDistributionRegion r on r.ID = p.RegionID "
      " where EmployeeID=" +
      std::to_string(sltPromoter.SelectedID()) + " and p.RegionID in (" + regions + ")");
  const tools::BusyGrid busy(module_, flxPath.Flex);
  FillNamesAndIds(flxPath.Flex, sqlCommon, "PathName", "عنوان مسير");
  sqlCommon.Close();
}

void FormAddBatch::SearchClick() {
  const std::string paths =
      PickedIds(flxPath, [this](int row) { return std::string(flxPath.Flex.TextMatrix(row, 1)); });
  if (paths.empty()) {
    Refuse("مسيري انتخاب نشده است!", flxPath.Flex);
    return;
  }
  LoadCustomers(" do.PathID in (" + paths + ")  and " + CustomerCondition());
}

std::string FormAddBatch::CustomerCondition() const {
  std::string condition = "1=1";
  const auto add = [&condition](std::string_view clause, std::string_view value,
                                std::string_view end) {
    condition.append(" and ").append(clause).append(value).append(end);
  };
  const std::string_view codeFrom = text::Trim(txtCodeFrom.Text());
  if (!codeFrom.empty()) add(" Code >= '", codeFrom, "'");
  const std::string_view codeTo = text::Trim(txtCodeTo.Text());
  if (!codeTo.empty()) add(" Code <= '", codeTo, "'");
  if (sltBranch.HasSelection()) {
    add(" do.BranchID = ", std::to_string(sltBranch.SelectedID()), "");
  }
  const std::string_view name = text::Trim(txtName.Text());
  if (!name.empty()) {
    add(" ltrim(rtrim(isnull(FirstName,'')+' '+isnull(Name,''))) like '%", name, "%'");
  }
  if (sltCustomer.HasSelection()) add(" ID = ", std::to_string(sltCustomer.SelectedID()), "");
  if (sltWorkActivity.HasSelection()) {
    add(" WorkActivityID = ", std::to_string(sltWorkActivity.SelectedID()), "");
  }
  return condition;
}

void FormAddBatch::ClearCustomers() {
  flxCustomer.Flex.SetEmptyText("");
  flxCustomer.Flex.SetRows(1);
}

void FormAddBatch::LoadCustomers(std::string_view condition) {
  std::string statement =
      "Select ID, Code "
      ", ltrim(rtrim(isnull(FirstName,'')+' '+isnull(Name,''))) as 'Name'"
      ", Address, CellPhone, Phone1, Phone2, Address "
      ", (Select p.Name from tblDistributionPath p where p.ID=do.PathID) as PathName"
      ", (Select r.Description from tblDistributionRegion r where r.ID in (Select p.RegionID from "
      "tblDistributionPath p where p.ID=do.PathID)) as RegionName"
      ", (Select w.Name from tblZomirWorkActivity w where w.ID=WorkActivityID) as WorkActivityName"
      " from tblOrganization left outer join tblDistributionOrganization do on "
      "tblOrganization.ID=do.OrganizationID "
      " where ";
  statement += condition;

  static constexpr std::string_view kFields[] = {
      "Code",   "Name",     "Address",    "CellPhone",        "Phone1",
      "Phone2", "PathName", "RegionName", "WorkActivityName", "ID"};

  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.CloseIfOpen();
  sqlCommon.Open(statement);
  controls::FlexGrid& grid = flxCustomer.Flex;
  const tools::BusyGrid busy(module_, grid);
  grid.SetRows(1);
  grid.SetEmptyText("مشتري با اين مشخصات يافت نشد");
  grid.SetCols(kCustomerCols);
  for (; !sqlCommon.Eof(); sqlCommon.MoveNext()) {
    grid.AddItem("");
    const int row = grid.Rows() - 1;
    int col = 0;
    grid.SetTextMatrix(row, col++, std::to_string(row));
    for (const std::string_view field : kFields) {
      grid.SetTextMatrix(row, col++, sqlCommon.Text(field));
    }
  }
  sqlCommon.Close();
  platform::ResumeNext([&] { grid.SetFixedRows(1); });
  SetCustomerHeadings();
}

std::string FormAddBatch::GetSelectedCustomers() {
  return PickedIds(flxCustomer, [this](int row) {
    return text::DecimalText(host::NumericValue(flxCustomer.Flex.TextMatrix(row, 10)));
  });
}

}  // namespace batch
