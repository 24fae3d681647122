// The condition text, the statement, and what becomes of its rows.

#include "calendar/Gregorian.h"
#include "search/FormSearch.h"
#include "text/Text.h"
#include "tools/BusyGrid.h"

namespace search {

namespace {

constexpr std::string_view kNoFilter = "1=1";

constexpr std::string_view kFields =
    "ID as 'شماره رايانه اي' "
    ", (Select x.Name from vwSalePromoterMajor x where x.ID=PromoterID) as 'بازارياب' "
    ", FarsiVisitDate as 'تاريخ ويزيت' "
    ", (Select x.Code from tblOrganization x where x.ID=CustomerID) as 'كد مشتري' "
    ", (Select ltrim(rtrim(isnull(x.FirstName,'')+' '+isnull(x.Name,''))) from tblOrganization x "
    "where x.ID=CustomerID) as 'نام مشتري' "
    ", (Select r.Description from tblDistributionRegion r inner join tblDistributionPath p on "
    "p.RegionID=r.ID where p.ID in (Select do.PathID from tblDistributionOrganization do where "
    "do.OrganizationID=CustomerID)) as 'منطقه' "
    ", (Select p.Name from tblDistributionPath p where p.ID in (Select do.PathID from "
    "tblDistributionOrganization do where do.OrganizationID=CustomerID)) as 'مسير' "
    ", p.Notes as 'شرح' "
    ", FarsiCreateDate as 'تاريخ ايجاد' "
    ", (Select x.Name from vwEmployeeMajor x Where x.ID=SupervisorID) as 'مدير برنامه' "
    ", (Select x.Name from vwAccountBranchMajor x where x.ID=BranchID) as 'شعبه' ";

constexpr std::string_view kTables =
    " from tblDistributionPromoterProgram p left outer join "
    "tblDistributionPromoterProgramDetail pd on p.ID=pd.ProgramID  ";

}  // namespace

std::string FormSearch::Condition() const {
  std::string condition(kNoFilter);
  const auto addId = [&condition](std::string_view clause, const controls::Selector& selector) {
    if (selector.HasSelection()) {
      condition.append(clause).append(std::to_string(selector.SelectedID()));
    }
  };
  const auto addDate = [&condition](std::string_view clause, const controls::DateBox& box) {
    if (const auto day = box.Value()) {
      condition.append(clause).append(calendar::GregorianLiteral(*day)).append("'");
    }
  };
  if (!txtID.Text().empty()) {
    condition.append(" and ID = ").append(text::DecimalText(host::NumericValue(txtID.Text())));
  }
  addId(" and CreatorID = ", sltCreator);
  addId(" and ProgramID = ", sltProgram);
  addId(" and SupervisorID= ", sltSupervisor);
  addId(" and PromoterID = ", sltPromoter);
  addId(" and CustomerID = ", sltCustomer);
  addId(" and BranchID= ", sltBranch);
  if (!txtDescription.Text().empty()) {
    condition.append(" and p.Notes like '%").append(txtDescription.Text()).append("%'");
  }
  addDate(" and CreateDate = '", datCreateDate);
  addDate(" and VisitDate = '", datVisit);
  return condition;
}

void FormSearch::SearchClick() {
  const std::string condition = Condition();
  std::string_view limit;
  if (condition == kNoFilter) {
    const int answer = module_.AskQuestion(
        "هشدار", "فيلدهاي جستجو را پر نشده است. آيا نتيجه جستجو به 1000 رکورد محدود گردد؟");
    if (answer == host::kNo) {
      module_.ShowMessage("اطلاع", "جستجو انجام نشد!");
      return;
    }
    limit = " TOP 1000 ";
  }
  const tools::BusyGrid busy(module_, flxSearch);
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  sqlCommon.Run(std::string("Select ")
                    .append(limit)
                    .append(kFields)
                    .append(kTables)
                    .append(" Where ")
                    .append(condition)
                    .append(" order by pd.VisitDate, 2, 4"));
  flxSearch.Bind(sqlCommon.TakeRows());
  tools::NumberRows(flxSearch);
  SetUpGrid();
  ColourRows();
  spareWidth_.Share();
}

void FormSearch::ColourRows() {
  flxSearch.SetBackColor(controls::palette::kGridRow);
  flxSearch.SetRow(0);
  while (flxSearch.Row() < flxSearch.Rows() - 1) {
    flxSearch.SetRow(flxSearch.Row() + 1);
    flxSearch.SetCol(1);
    flxSearch.SetColSel(flxSearch.Cols() - 1);
    flxSearch.SetCellBackColor(flxSearch.Row() % 2 == 0 ? controls::palette::kGridBand
                                                        : controls::palette::kGridRow);
  }
}

}  // namespace search
