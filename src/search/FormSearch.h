#pragma once

#include <cstdint>
#include <string>

#include "controls/Controls.h"
#include "controls/DateBox.h"
#include "controls/FlexGrid.h"
#include "controls/Form.h"
#include "controls/Selector.h"
#include "host/modMain.h"
#include "tools/FormSendToTextFile.h"
#include "tools/Layout.h"
#include "tools/SpareWidth.h"

namespace search {

/// Finds promoter programs by their header and their visits and lets the user pick one. The result
/// has a line for each visit, so a program may stand on many lines. Hidden, never unloaded.
class FormSearch : public controls::Form {
 public:
  explicit FormSearch(host::modMain& module);

  /// Shows the form modally; the id of the chosen program, or -1.
  std::int32_t PickProgram();

  controls::Frame frameFilter{*this, "frameFilter", "مشخصات جستجو"};
  controls::Label lblID{frameFilter, "lblID", "شماره رايانه اي:"};
  controls::TextBox txtID{frameFilter, "txtID"};
  controls::Label lblCreator{frameFilter, "lblCreator", "ايجاد كننده:"};
  controls::Selector sltCreator;
  controls::Label lblProgram{frameFilter, "lblProgram", "برنامه:"};
  controls::Selector sltProgram;
  controls::Label lblSupervisor{frameFilter, "lblSupervisor", "مدير برنامه:"};
  controls::Selector sltSupervisor;
  controls::Label lblPromoter{frameFilter, "lblPromoter", "بازارياب:"};
  controls::Selector sltPromoter;
  controls::Label lblCustomer{frameFilter, "lblCustomer", "مشتري:"};
  controls::Selector sltCustomer;
  controls::Label lblBranch{frameFilter, "lblBranch", "شعبه:"};
  controls::Selector sltBranch;
  controls::Label lblDescription{frameFilter, "lblDescription", "شرح:"};
  controls::TextBox txtDescription{frameFilter, "txtDescription"};
  controls::Label lblCreateDate{frameFilter, "lblCreateDate", "تاريخ ايجاد:"};
  controls::DateBox datCreateDate{frameFilter, "datCreateDate"};
  controls::Label lblVisit{frameFilter, "lblVisit", "تاريخ ويزيت:"};
  controls::DateBox datVisit{frameFilter, "datVisit"};

  controls::Button cmdSearch{*this, "cmdSearch", "جستجو"};
  controls::Button cmdNewsearch{*this, "cmdNewsearch", "جستجوي جديد"};
  controls::Button cmdExcel{*this, "cmdExcel", "انتقال به اكسل"};
  controls::Button cmdSentToText{*this, "cmdSentToText", "فايل متني"};
  controls::Button cmdExit{*this, "cmdExit", "خروج"};
  controls::FlexGrid flxSearch{*this, "flxSearch"};

  /// The settings of the text export.
  tools::FormSendToTextFile& TextFileForm() { return textFileForm_; }

 protected:
  void FormLoad() override;
  void FormResize() override;

 private:
  // FormSearchLayout.cpp
  void PlaceControls();
  void SetUpGrid();

  // FormSearchQuery.cpp
  void SearchClick();
  std::string Condition() const;
  void ColourRows();

  void ChooseRow();
  void NewSearch();
  void SendToText();
  void WriteTextFile(const std::string& fileName, const std::string& delimiter, bool newLine,
                     bool headers);

  host::modMain& module_;
  tools::Layout layout_;
  tools::SpareWidth spareWidth_{flxSearch};
  tools::FormSendToTextFile textFileForm_;
  bool programChosen_ = false;
  std::int32_t chosenProgramId_ = -1;
};

}  // namespace search
