#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Controls.h"
#include "controls/FlexGrid.h"
#include "controls/Form.h"

namespace screens {

/// An accounting document as texts, UTF-8; amounts as the database wrote them, empty where there is
/// none.
struct AccountingDocument {
  enum Column {
    kRow,
    kAccountCode,
    kAccountName,
    kBranch,
    kDescription,
    kDebit,
    kCredit,
    kColumns
  };
  using Line = std::array<std::string, kColumns>;
  std::string code;
  std::string date;
  std::string description;
  std::vector<Line> lines;
  std::string debit;  // sums of the lines
  std::string credit;
};

/// Thousands parted by commas, without decimals that are zero; nothing is 0. A text that is no
/// number stays as it is.
std::string GroupedAmount(std::string_view amount);

/// A window with the document's head, its lines and their sums, for reading and copying.
class DocumentForm : public controls::Form {
 public:
  DocumentForm(controls::Screen& screen, const AccountingDocument& document);

  /// Shows it and waits until it is closed.
  void Run();

  controls::Frame frameHead;
  controls::Label lblCode;
  controls::TextBox txtCode;
  controls::Label lblDate;
  controls::TextBox txtDate;
  controls::Label lblDescription;
  controls::TextBox txtDescription;
  controls::FlexGrid flxLines;
  controls::Label lblDebit;
  controls::Label lblCredit;
  controls::Button cmdClose;

 protected:
  void FormResize() override;

 private:
  void FillLines(const std::vector<AccountingDocument::Line>& lines);
  /// As its widest text needs.
  controls::Twips NeededWidth(int col) const;
};

}  // namespace screens
