#include "search/FormSearch.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "text/Text.h"
#include "tools/BusyGrid.h"
#include "tools/CopyToExcel.h"

namespace search {

namespace {

bool HasBreak(std::string_view text) {
  return text.find('\r') != std::string_view::npos || text.find('\n') != std::string_view::npos;
}

void AppendWithoutBreaks(std::string& line, std::string_view text) {
  std::copy_if(text.begin(), text.end(), std::back_inserter(line),
               [](char c) { return c != '\r' && c != '\n'; });
}

}  // namespace

FormSearch::FormSearch(host::modMain& module)
    : Form(module.GetServices().screen, "FormSearch", Border::kSizable),
      sltCreator(frameFilter, "sltCreator", module),
      sltProgram(frameFilter, "sltProgram", module),
      sltSupervisor(frameFilter, "sltSupervisor", module),
      sltPromoter(frameFilter, "sltPromoter", module),
      sltCustomer(frameFilter, "sltCustomer", module),
      sltBranch(frameFilter, "sltBranch", module),
      module_(module),
      layout_(*this),
      textFileForm_(module) {
  SetCaption("جستجوي برنامه بازارياب");
  txtID.SetLatinDigits(true);
  flxSearch.SetFillStyle(controls::FlexGrid::FillStyle::kRepeat);
  PlaceControls();

  cmdSearch.onClick = [this] { SearchClick(); };
  cmdNewsearch.onClick = [this] { NewSearch(); };
  cmdExcel.onClick = [this] { tools::CopyToExcel(module_, flxSearch); };
  cmdSentToText.onClick = [this] { SendToText(); };
  cmdExit.onClick = [this] { Hide(); };
  flxSearch.onDblClick = [this] { ChooseRow(); };
}

std::int32_t FormSearch::PickProgram() {
  programChosen_ = false;
  Show(controls::Modality::kModal);
  return programChosen_ ? chosenProgramId_ : -1;
}

void FormSearch::FormLoad() {
  module_.SetViews(sltCreator, "vwUserMajor", "vwUserMinor");
  module_.SetViews(sltProgram, "vwDistributionPromoterProgramMajor",
                   "vwDistributionPromoterProgramMinor");
  module_.SetViews(sltSupervisor, "vwSaleSupervisorMajor", "vwSaleSupervisorMinor");
  module_.SetViews(sltPromoter, "vwSalePromoterMajor", "vwSalePromoterMinor");
  module_.SetViews(sltCustomer, "vwOrganizationMajor", "vwOrganizationMinor");
  module_.SetViews(sltBranch, "vwAccountBranchMajor", "vwAccountBranchMinor");
  SetUpGrid();
  NewSearch();
}

void FormSearch::FormResize() {
  layout_.FollowSize();
  spareWidth_.Share();
}

void FormSearch::ChooseRow() {
  programChosen_ = true;
  chosenProgramId_ = host::NumericId(flxSearch.TextMatrix(flxSearch.Row(), 1));
  Hide();
}

void FormSearch::NewSearch() {
  txtID.SetText("");
  txtDescription.SetText("");
  // The promoter stays: an office searches one promoter's programs again and again.
  for (controls::Selector* selector :
       {&sltBranch, &sltCreator, &sltSupervisor, &sltProgram, &sltCustomer}) {
    selector->Clear();
  }
  datCreateDate.Clear();
  datVisit.Clear();
  flxSearch.SetRows(1);
  flxSearch.SetRows(2);
}

void FormSearch::SendToText() {
  std::int32_t reportId = -1;
  std::string fileName;
  std::string delimiter;
  bool newLine = false;
  bool headers = false;
  bool withoutMoneySeparators = false;  // asked for by the dialog, of no use to these columns
  if (!textFileForm_.getTextFileName(reportId, fileName, delimiter, newLine, headers,
                                     withoutMoneySeparators)) {
    return;
  }
  WriteTextFile(fileName, delimiter, newLine, headers);
  module_.ShowMessage("اطلاع", "فايل متني با نام «" + fileName + "» ذخيره شد.");
}

void FormSearch::WriteTextFile(const std::string& fileName, const std::string& delimiter,
                               bool newLine, bool headers) {
  const tools::BusyGrid busy(module_, flxSearch);
  const auto file = module_.GetServices().fileSystem.CreateTextFile(fileName);
  std::vector<int> cols;
  for (int col = 1; col < flxSearch.Cols(); ++col) {
    if (flxSearch.ColWidth(col) != 0) cols.push_back(col);
  }
  const int lastRow = flxSearch.Rows() - 1;
  std::string line;
  for (int row = headers ? 0 : 1; row <= lastRow; ++row) {
    line.clear();
    for (const int col : cols) line.append(flxSearch.TextMatrix(row, col)).append(delimiter);
    if (HasBreak(line)) {  // seldom: it is cheaper to begin again than to look at every cell
      line.clear();
      for (const int col : cols) {
        AppendWithoutBreaks(line, flxSearch.TextMatrix(row, col));
        line += delimiter;
      }
    }
    file->Write(line);
    if (row < lastRow || newLine) file->WriteLineBreak();
  }
  file->Close();
}

}  // namespace search
