#include "batch/FormAddBatch.h"

#include "batch/PickedIds.h"
#include "platform/ResumeNext.h"
#include "text/Text.h"
#include "tools/RowMarks.h"

namespace batch {

FormAddBatch::FormAddBatch(host::modMain& module)
    : Form(module.GetServices().screen, "FormAddBatch", Border::kSizable),
      sltPromoter(*this, "sltPromoter", module),
      flxRegion(*this, "flxRegion", module),
      flxPath(*this, "flxPath", module),
      flxDate(*this, "flxDate", module),
      sltCustomer(frameFilter, "sltCustomer", module),
      sltBranch(frameFilter, "sltBranch", module),
      sltWorkActivity(frameFilter, "sltWorkActivity", module),
      flxCustomer(*this, "flxCustomer", module),
      module_(module),
      layout_(*this, 2000) {
  SetCaption("افزودن ويزيت به برنامه بازارياب");
  PlaceControls();
  txtCodeFrom.SetLatinDigits(true);
  txtCodeTo.SetLatinDigits(true);

  sltPromoter.onChange = [this] { PromoterChanged(); };
  datDateFrom.onChange = [this] { FillDateGrid(); };
  datDateTo.onChange = [this] { FillDateGrid(); };
  flxRegion.Selected = [this](std::int32_t) { RegionPicksChanged(); };
  flxRegion.UnSelected = [this](std::int32_t) { RegionPicksChanged(); };
  SetUpWeekdays();
  const auto count = [this](const controls::Change& change) {
    if (change.aspect == controls::Aspect::kCells || change.aspect == controls::Aspect::kRows) {
      ShowCount();
    }
  };
  followDates_ = flxDate.getFlex().Subscribe(count);
  followCustomers_ = flxCustomer.getFlex().Subscribe(count);
  ShowCount();
  cmdSearch.onClick = [this] { SearchClick(); };
  cmdNewsearch.onClick = [this] { NewsearchClick(); };
  cmdAdd.onClick = [this] { AddClick(); };
  cmdCancel.onClick = [this] { CancelClick(); };
}

bool FormAddBatch::getProgramDetail(std::int32_t& inProgramID, std::int32_t& inoutPromoterID,
                                    std::string& inoutDates, std::string& inoutCustomerIDs,
                                    std::string& inoutNotes, bool& inViewMode,
                                    std::int32_t& inSupervisor) {
  committed_ = false;
  Load();
  const std::string promotersOfSupervisor =
      " ID in (select x.PromoterID from tblSaleSupervisorPromoter x where x.SupervisorID=" +
      std::to_string(inSupervisor) + ")";
  sltPromoter.SetCondition(promotersOfSupervisor);
  sltPromoter.SetStandingCondition(promotersOfSupervisor);
  for (controls::Button* button : {&cmdAdd, &cmdSearch, &cmdNewsearch}) {
    button->SetEnabled(!inViewMode);
  }
  if (inoutPromoterID > 0) {
    FillData(inProgramID, inoutPromoterID, inoutDates, inoutCustomerIDs, inoutNotes);
  }
  Show(controls::Modality::kModal);
  if (committed_) {
    inoutPromoterID = sltPromoter.SelectedID();
    inoutDates = GetSelectedDates();
    inoutCustomerIDs = GetSelectedCustomers();
    inoutNotes = text::Replace(text::Trim(txtNotes.Text()), "'", "''");
  }
  return committed_;
}

bool FormAddBatch::FillData(std::int32_t& inProgramID, std::int32_t& inoutPromoterID,
                            std::string& inoutDates, std::string& /*inoutCustomerIDs*/,
                            std::string& inoutNotes) {
  sltPromoter.Select(inoutPromoterID);
  host::Recordset& sqlCommon = module_.DtEn().sqlCommon();
  if (!inoutDates.empty()) {
    inoutDates = text::Replace(inoutDates, "/", "");
    sqlCommon.Run("select x.ID from dbo.fnZomirStringToTable('" + inoutDates + "') x");
    if (sqlCommon.RecordCount() > 0) {
      flxDate.getFlex().SetRows(1);
      for (; !sqlCommon.Eof(); sqlCommon.MoveNext()) {
        const std::string_view id = sqlCommon.Text("ID");
        datTemp.SetText(std::string(text::Mid(id, 1, 4))
                            .append("/")
                            .append(text::Mid(id, 5, 2))
                            .append("/")
                            .append(text::Mid(id, 7, 2)));
        AddDateRow();
      }
    }
    sqlCommon.Close();
  }

  std::string customerIds;
  sqlCommon.Run(
      "select CustomerID from tblDistributionPromoterProgramDetail pd where pd.ProgramID=" +
      std::to_string(inProgramID) + " and FarsiVisitDate='" + datTemp.Text() +
      "' and pd.PromoterID=" + std::to_string(inoutPromoterID));
  for (; !sqlCommon.Eof(); sqlCommon.MoveNext()) {
    AppendId(customerIds, sqlCommon.Text("CustomerID"));
  }
  sqlCommon.Close();
  LoadCustomers("ID in (" + customerIds + ")");
  txtNotes.SetText(inoutNotes);
  return false;
}

void FormAddBatch::FormLoad() {
  module_.SwitchKeyboard();

  module_.SetViews(sltCustomer, "vwOrganizationMajor", "vwOrganizationMinor");
  module_.SetViews(sltBranch, "vwAccountBranchMajor", "vwAccountBranchMinor");
  module_.SetViews(sltPromoter, "vwSalePromoterMajor", "vwSalePromoterMinor");
  module_.SetViews(sltWorkActivity, "vwZomirWorkActivityMajor", "vwZomirWorkActivityMinor");

  const std::chrono::sys_days today = module_.GetServices().desktop.Today();
  datDateFrom.SetValue(today);
  datDateTo.SetValue(today);
  datDateTo.SetText(host::FirstOfNextMonth(datDateTo.Text()));
  datDateTo.StepDays(-1);
  FillDateGrid();
  PromoterChanged();
  RegionPicksChanged();
}

void FormAddBatch::FormResize() {
  layout_.FollowSize();
  PlaceBesideButtons();
}

void FormAddBatch::ShowCount() {
  const std::int64_t days = tools::MarkedRows(flxDate.getFlex());
  const std::int64_t customers = tools::MarkedRows(flxCustomer.getFlex());
  lblCount.SetCaption(std::to_string(days) + " روز × " + std::to_string(customers) +
                      " مشتري = " + std::to_string(days * customers) + " ويزيت");
}

void FormAddBatch::Refuse(std::string_view message, controls::Control& control) {
  module_.ShowMessage("اشکال", message);
  platform::ResumeNext([&] { control.SetFocus(); });
}

void FormAddBatch::AddClick() {
  if (!sltPromoter.HasSelection()) {
    Refuse("بازارياب مشخص نشده است!", sltPromoter);
  } else if (GetSelectedDates().empty()) {
    Refuse("روز انتخاب نشده است!", flxDate.getFlex());
  } else if (GetSelectedCustomers().empty()) {
    Refuse("مشتري انتخاب نشده است!", flxCustomer.getFlex());
  } else if (module_.AskQuestion(
                 "اطلاع", "اگر برنامه اي تکراري باشد، بازنويسي نخواهد شد. آيا ادامه ميدهيد؟") !=
             host::kNo) {
    committed_ = true;
    Hide();
  }
}

void FormAddBatch::CancelClick() {
  if (module_.AskQuestion("پرسش", "آيا براي انصراف مطمئن هستيد؟") == host::kNo) return;
  committed_ = false;
  Hide();
}

void FormAddBatch::NewsearchClick() {
  ClearCustomers();
}

}  // namespace batch
