#include "screens/DocumentForm.h"

#include <algorithm>

#include "screens/DialogMetrics.h"
#include "screens/PlainPointer.h"
#include "text/Text.h"

namespace screens {

using controls::FlexGrid;
using controls::Label;
using controls::TextBox;
using controls::Twips;
using namespace dialog;
using Column = AccountingDocument::Column;

namespace {

constexpr Twips kWidth = 920 * kPixel;
constexpr Twips kLeastWidth = 620 * kPixel;
constexpr Twips kFieldHeight = 25 * kPixel;
constexpr Twips kLabelWidth = 76 * kPixel;
constexpr Twips kShortField = 130 * kPixel;
constexpr Twips kHeadHeight = 2 * (kFieldHeight + kGap) + kGap;
/// Of all that is above and below the lines.
constexpr Twips kAround = 2 * kMargin + kHeadHeight + 2 * kGap + kButtonHeight;
constexpr Twips kCellPadding = 8 * kPixel;
constexpr Twips kNarrowestColumn = 48 * kPixel;
constexpr int kFewestRows = 6;
constexpr int kMostRows = 20;

constexpr std::array<std::string_view, Column::kColumns> kHeadings{
    "رديف", "كد حساب", "نام حساب", "شعبه", "شرح", "بدهكار", "بستانكار"};

bool AreDigits(std::string_view amount) {
  return std::ranges::all_of(amount, text::IsDigit);
}

/// The side on which a line has nothing stays empty.
std::string LineAmount(std::string_view amount) {
  const std::string grouped = GroupedAmount(amount);
  return grouped == "0" ? std::string() : grouped;
}

Twips GridHeight(int rows) {
  // The heading, and the grid's own lines.
  return (rows + 1) * FlexGrid::kRowHeight + 4 * kPixel;
}

/// Where the next pair of a row that is read from the right may begin.
Twips PlacePair(Label& label, TextBox& field, Twips right, Twips top, Twips fieldWidth) {
  label.Move(right - kLabelWidth, top, kLabelWidth, kFieldHeight);
  field.Move(label.Left() - fieldWidth, top, fieldWidth, kFieldHeight);
  return field.Left() - 2 * kGap;
}

}  // namespace

std::string GroupedAmount(std::string_view amount) {
  if (amount.empty()) return "0";
  std::string_view digits = amount;
  const bool negative = digits.starts_with('-');
  if (negative) digits.remove_prefix(1);
  const std::string_view whole = digits.substr(0, digits.find('.'));
  std::string_view decimals = digits.substr(std::min(digits.size(), whole.size() + 1));
  if (whole.empty() || !AreDigits(whole) || !AreDigits(decimals)) return std::string(amount);
  decimals = decimals.substr(0, decimals.find_last_not_of('0') + 1);
  std::string grouped(whole);
  for (std::size_t left = whole.size(); left > 3;) grouped.insert(left -= 3, 1, ',');
  if (negative) grouped.insert(0, 1, '-');
  if (!decimals.empty()) grouped.append(1, '.').append(decimals);
  return grouped;
}

DocumentForm::DocumentForm(controls::Screen& screen, const AccountingDocument& document)
    : Form(screen, "DocumentForm", Border::kSizable),
      frameHead(*this, "frameHead"),
      lblCode(frameHead, "lblCode", "شماره سند"),
      txtCode(frameHead, "txtCode"),
      lblDate(frameHead, "lblDate", "تاريخ سند"),
      txtDate(frameHead, "txtDate"),
      lblDescription(frameHead, "lblDescription", "شرح سند"),
      txtDescription(frameHead, "txtDescription"),
      flxLines(*this, "flxLines"),
      lblDebit(*this, "lblDebit", "جمع بدهكار: " + GroupedAmount(document.debit)),
      lblCredit(*this, "lblCredit", "جمع بستانكار: " + GroupedAmount(document.credit)),
      cmdClose(*this, "cmdClose", "بستن") {
  SetCaption("سند حسابداري " + document.code);
  txtCode.SetText(document.code);
  txtDate.SetText(document.date);
  txtDescription.SetText(document.description);
  lblCode.SetNamed(&txtCode);
  lblDate.SetNamed(&txtDate);
  lblDescription.SetNamed(&txtDescription);
  for (TextBox* field : {&txtCode, &txtDate, &txtDescription}) field->SetLocked(true);
  for (Label* sum : {&lblDebit, &lblCredit}) sum->SetLook(Label::Look::kStrong);
  FillLines(document.lines);

  cmdClose.SetAccessKey("ب");
  cmdClose.onClick = [this] { Hide(); };
  SetDefaultButton(&cmdClose);
  SetCancelButton(&cmdClose);
  SetFirstFocus(&cmdClose);
  int index = 0;
  for (controls::Control* control : std::initializer_list<controls::Control*>{
           &txtCode, &txtDate, &txtDescription, &flxLines, &cmdClose}) {
    control->SetTabIndex(index++);
  }
  SetMinimumSize(kLeastWidth, kAround + GridHeight(kFewestRows));
  const int rows = std::clamp(flxLines.Rows() - 1, kFewestRows, kMostRows);
  Resize(kWidth, kAround + GridHeight(rows));
}

void DocumentForm::FillLines(const std::vector<AccountingDocument::Line>& lines) {
  flxLines.SetRedraw(false);
  flxLines.SetCols(Column::kColumns);
  flxLines.SetRows(static_cast<int>(lines.size()) + 1);
  flxLines.SetFixedCols(0);
  for (int col = 0; col < Column::kColumns; ++col) {
    const auto at = static_cast<std::size_t>(col);
    const bool amount = col == Column::kDebit || col == Column::kCredit;
    const bool centred = col == Column::kRow || col == Column::kAccountCode;
    // Amounts at the right too, so that their units stand one below the other.
    flxLines.SetColAlignment(
        col, centred ? FlexGrid::Alignment::kCentreCentre : FlexGrid::Alignment::kRightCentre);
    flxLines.SetTextMatrix(0, col, kHeadings[at]);
    int row = 0;
    for (const AccountingDocument::Line& line : lines) {
      flxLines.SetTextMatrix(++row, col, amount ? LineAmount(line[at]) : line[at]);
    }
    flxLines.SetColWidth(col, NeededWidth(col));
  }
  flxLines.SetCol(Column::kRow);
  flxLines.SetHighLight(FlexGrid::HighLight::kWithFocus);
  flxLines.SetStretchCol(Column::kDescription);
  flxLines.SetRedraw(true);
}

Twips DocumentForm::NeededWidth(int col) const {
  Twips widest = kNarrowestColumn;
  for (int row = 0; row < flxLines.Rows(); ++row) {
    widest =
        std::max(widest, GetScreen().TextWidth(flxLines.TextMatrix(row, col)) + 2 * kCellPadding);
  }
  return widest;
}

void DocumentForm::FormResize() {
  const Twips inside = std::max(0.0, Width() - 2 * kMargin);
  frameHead.Move(kMargin, kMargin, inside, kHeadHeight);
  const Twips right = inside - kGap;
  const Twips second = PlacePair(lblCode, txtCode, right, kGap, kShortField);
  PlacePair(lblDate, txtDate, second, kGap, kShortField);
  PlacePair(lblDescription, txtDescription, right, kFieldHeight + 2 * kGap,
            std::max(0.0, right - kLabelWidth - kGap));

  const Twips top = kMargin + kHeadHeight + kGap;
  const Twips foot = std::max(top, Height() - kMargin - kButtonHeight);
  flxLines.Move(kMargin, top, inside, std::max(0.0, foot - kGap - top));
  cmdClose.Move(kMargin, foot, kButtonWidth, kButtonHeight);
  const Twips sums = std::max(0.0, inside - kButtonWidth - kGap) / 2;
  lblDebit.Move(kMargin + inside - sums, foot, sums, kButtonHeight);
  lblCredit.Move(lblDebit.Left() - sums, foot, sums, kButtonHeight);
}

void DocumentForm::Run() {
  const PlainPointer plain(GetScreen());
  Show(controls::Modality::kModal);
}

}  // namespace screens
