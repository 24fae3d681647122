// The delimited export: any cells, any delimiter. What was written is cell and delimiter in turn, a
// line a row, and reads back wherever no cell holds the delimiter.

#include <vector>

#include "Fuzz.h"
#include "search/FormSearch.h"
#include "support/ScriptedPlatform.h"
#include "text/Text.h"

namespace {

std::string WithoutBreaks(std::string_view text) {
  return text::Replace(text::Replace(text, "\r", ""), "\n", "");
}

std::vector<std::string> Split(std::string_view text, std::string_view by) {
  std::vector<std::string> parts;
  for (;;) {
    const std::size_t end = text.find(by);
    parts.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + by.size());
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Choices choices(data, size);
  support::ScriptedPlatform outside;
  host::modMain module(outside.Services());
  search::FormSearch form(module);
  form.Load();
  controls::FlexGrid& grid = form.flxSearch;
  const bool headers = choices.Upto(1) == 1;
  const bool lastBreak = choices.Upto(1) == 1;
  const std::string delimiter = WithoutBreaks(choices.Piece());  // typed into a box of one line
  grid.SetRows(2 + choices.Upto(6));
  grid.SetCols(2 + choices.Upto(5));
  std::vector<std::vector<std::string>> cells(static_cast<std::size_t>(grid.Rows()));
  for (int col = 1; col < grid.Cols(); ++col) {
    grid.SetColWidth(col, choices.Upto(7) == 0 ? 0 : 500);
    for (int row = 0; row < grid.Rows(); ++row) {
      const std::string text = choices.Piece();
      grid.SetTextMatrix(row, col, text);
      if (grid.ColWidth(col) == 0) continue;
      cells[static_cast<std::size_t>(row)].push_back(WithoutBreaks(text));
    }
  }
  outside.desktop.chosen = "list.txt";
  outside.screen.OnModalForm<tools::FormSendToTextFile>([&](tools::FormSendToTextFile& dialog) {
    dialog.txtDelimiter.SetText(delimiter);
    dialog.chkHeader.SetChecked(headers);
    dialog.chkNewLine.SetChecked(lastBreak);
    dialog.cmdSave.Click();
    dialog.cmdOk.Click();
  });
  form.cmdSentToText.Click();

  const std::string& written = outside.fileSystem.files.at("list.txt");
  const std::string_view trimmed = text::Trim(delimiter);
  const std::string by = trimmed == "^t" || trimmed == "^T" ? "\t" : delimiter;
  if (!headers) cells.erase(cells.begin());
  std::vector<std::string> lines = Split(written, "\r\n");
  if (lastBreak) {
    fuzz::Require(lines.back().empty(), "a last line break", written);
    lines.pop_back();
  }
  fuzz::Require(lines.size() == cells.size(), "a line a row", written);
  for (std::size_t row = 0; row < cells.size(); ++row) {
    std::string joined;
    bool readsBack = !by.empty();
    for (const std::string& cell : cells[row]) {
      // A piece of the delimiter at a cell's end could begin it too early.
      if (!by.empty() && (cell + by).find(by) != cell.size()) readsBack = false;
      joined += cell + by;
    }
    fuzz::Require(lines[row] == joined, "cell and delimiter in turn", lines[row]);
    if (!readsBack) continue;
    std::vector<std::string> read = Split(lines[row], by);
    fuzz::Require(read.back().empty(), "a delimiter behind the last", lines[row]);
    read.pop_back();
    fuzz::Require(read == cells[row], "reads back", lines[row]);
  }
  return 0;
}
