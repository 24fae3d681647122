#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "controls/Controls.h"
#include "controls/DateBox.h"
#include "controls/Form.h"
#include "controls/Selector.h"
#include "host/modMain.h"
#include "tools/Layout.h"
#include "tools/comFlex.h"

namespace batch {

/// The modal form on which one batch of visits is put together: a promoter, days picked from a
/// range, and customers found by region, path and other filters. It is hidden, never unloaded, so
/// that it keeps its contents from one batch to the next.
class FormAddBatch : public controls::Form {
 public:
  explicit FormAddBatch(host::modMain& module);

  /// Shows the form modally; true when the user committed the batch. Then the four in-out arguments
  /// hold the promoter, the picked days as an id list of compact dates (13920705), the picked
  /// customers as an id list, and the trimmed notes with every quote doubled. Otherwise they are as
  /// they came, but for the slashes of inoutDates. A promoter above 0 opens the form on that
  /// promoter's day, inoutDates, of the program. In view mode nothing can be searched or committed.
  bool getProgramDetail(std::int32_t& inProgramID, std::int32_t& inoutPromoterID,
                        std::string& inoutDates, std::string& inoutCustomerIDs,
                        std::string& inoutNotes, bool& inViewMode, std::int32_t& inSupervisor);

  /// Fills the form from one promoter's day of a program; marks nothing. The result is always
  /// false; no caller uses it. Errors of the database travel out.
  bool FillData(std::int32_t& inProgramID, std::int32_t& inoutPromoterID, std::string& inoutDates,
                std::string& inoutCustomerIDs, std::string& inoutNotes);

  controls::Label lblPromoter{*this, "lblPromoter", "بازارياب:"};
  controls::Selector sltPromoter;
  controls::Label lblDateFrom{*this, "lblDateFrom", "از تاريخ:"};
  controls::DateBox datDateFrom{*this, "datDateFrom"};
  controls::Label lblDateTo{*this, "lblDateTo", "تا تاريخ:"};
  controls::DateBox datDateTo{*this, "datDateTo"};
  /// Calendar calculator; never shown.
  controls::DateBox datTemp{*this, "datTemp"};
  tools::comFlex flxRegion;
  tools::comFlex flxPath;
  tools::comFlex flxDate;
  /// Saturday to Friday, beside the buttons under the days.
  std::array<controls::Button, 7> cmdWeekday{{{flxDate, "cmdSaturday", "ش"},
                                              {flxDate, "cmdSunday", "ي"},
                                              {flxDate, "cmdMonday", "د"},
                                              {flxDate, "cmdTuesday", "س"},
                                              {flxDate, "cmdWednesday", "چ"},
                                              {flxDate, "cmdThursday", "پ"},
                                              {flxDate, "cmdFriday", "ج"}}};

  controls::Frame frameFilter{*this, "frameFilter", "جستجوي مشتري"};
  controls::Label lblCodeFrom{frameFilter, "lblCodeFrom", "از كد:"};
  controls::TextBox txtCodeFrom{frameFilter, "txtCodeFrom"};
  controls::Label lblCodeTo{frameFilter, "lblCodeTo", "تا كد:"};
  controls::TextBox txtCodeTo{frameFilter, "txtCodeTo"};
  controls::Label lblName{frameFilter, "lblName", "نام:"};
  controls::TextBox txtName{frameFilter, "txtName"};
  controls::Label lblCustomer{frameFilter, "lblCustomer", "مشتري:"};
  controls::Selector sltCustomer;
  controls::Label lblBranch{frameFilter, "lblBranch", "شعبه:"};
  controls::Selector sltBranch;
  controls::Label lblWorkActivity{frameFilter, "lblWorkActivity", "نوع فعاليت:"};
  controls::Selector sltWorkActivity;
  controls::Button cmdSearch{frameFilter, "cmdSearch", "جستجو"};
  controls::Button cmdNewsearch{frameFilter, "cmdNewsearch", "جستجوي جديد"};

  tools::comFlex flxCustomer;
  /// How many visits the marks make, beside the buttons under the customers.
  controls::Label lblCount{flxCustomer, "lblCount"};
  controls::Label lblNotes{*this, "lblNotes", "شرح:"};
  controls::TextBox txtNotes{*this, "txtNotes"};
  controls::Button cmdAdd{*this, "cmdAdd", "ثبت"};
  controls::Button cmdCancel{*this, "cmdCancel", "انصراف"};

 protected:
  void FormLoad() override;
  void FormResize() override;
  /// The close box asks what cmdCancel asks.
  void FormClose() override { cmdCancel.Click(); }

 private:
  // FormAddBatchLayout.cpp
  void PlaceControls();
  void PlaceBesideButtons();

  // FormAddBatchDates.cpp
  void FillDateGrid();
  void AddDateRow();
  void SetUpWeekdays();
  void WeekdayClick(std::string_view weekday);
  std::string GetSelectedDates();

  // FormAddBatchCustomers.cpp
  void PromoterChanged();
  void RegionPicksChanged();
  void SearchClick();
  std::string CustomerCondition() const;
  void ClearCustomers();
  void LoadCustomers(std::string_view condition);
  std::string GetSelectedCustomers();

  void ShowCount();
  void AddClick();
  void CancelClick();
  void NewsearchClick();
  void Refuse(std::string_view message, controls::Control& control);

  host::modMain& module_;
  tools::Layout layout_;
  bool committed_ = false;
  controls::Subscription followDates_;
  controls::Subscription followCustomers_;
};

}  // namespace batch
