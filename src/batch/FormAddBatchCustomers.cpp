// From the promoter to the customers: regions, paths in the picked regions, and the search.

#include "batch/Columns.h"
#include "batch/FormAddBatch.h"
#include "batch/PickedIds.h"
#include "text/Text.h"
#include "tools/BusyGrid.h"

namespace batch {

void FormAddBatch::PromoterChanged() {
  for (tools::comFlex* grid : {&flxRegion, &flxPath}) grid->getFlex().SetRows(1);
  ClearCustomers();
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.Run(
      "Select distinct r.Description as RegionName, r.ID  "
      " from tblDistributionPathPromoters inner join tblDistributionPath p on PathID=p.ID"
      " inner join tblDistributionRegion r on r.ID = p.RegionID "
      " where EmployeeID=" +
      std::to_string(sltPromoter.SelectedID()));
  const tools::BusyGrid busy(module_, flxRegion.getFlex());
  tools::FillRows(flxRegion.getFlex(), kRegionColumns, sqlCommon);
}

void FormAddBatch::RegionPicksChanged() {
  std::string regions = PickedIds(
      flxRegion, [this](int row) { return std::string(flxRegion.getFlex().TextMatrix(row, 1)); });
  if (regions.empty()) regions = "-1";
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.Run(
      "Select distinct p.Name + ' ('+isnull(r.Description,'')+')'as PathName, p.ID "
      " from tblDistributionPathPromoters inner join tblDistributionPath p on p.ID=PathID"
      " inner join tblDistributionRegion r on r.ID = p.RegionID "
      " where EmployeeID=" +
      std::to_string(sltPromoter.SelectedID()) + " and p.RegionID in (" + regions + ")");
  const tools::BusyGrid busy(module_, flxPath.getFlex());
  tools::FillRows(flxPath.getFlex(), kPathColumns, sqlCommon);
}

void FormAddBatch::SearchClick() {
  const std::string paths = PickedIds(
      flxPath, [this](int row) { return std::string(flxPath.getFlex().TextMatrix(row, 1)); });
  if (paths.empty()) {
    Refuse("مسيري انتخاب نشده است!", flxPath.getFlex());
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
  flxCustomer.getFlex().SetEmptyText("");
  flxCustomer.getFlex().SetRows(1);
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

  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.Run(statement);
  const tools::BusyGrid busy(module_, flxCustomer.getFlex());
  flxCustomer.getFlex().SetEmptyText("مشتري با اين مشخصات يافت نشد");
  tools::FillRows(flxCustomer.getFlex(), kCustomerColumns, sqlCommon);
}

std::string FormAddBatch::GetSelectedCustomers() {
  return PickedIds(flxCustomer, [this](int row) {
    return text::DecimalText(
        host::NumericValue(flxCustomer.getFlex().TextMatrix(row, kCustomerIdCol)));
  });
}

}  // namespace batch
