#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "controls/Sheet.h"
#include "report/Block.h"
#include "report/Letters.h"
#include "report/Styles.h"

namespace report {

/// What blocks put onto a page; texts above lines above grounds.
struct PageContent {
  std::vector<controls::SheetFill> grounds;
  std::vector<controls::SheetFill> lines;
  std::vector<controls::SheetText> texts;
};

/// How far a block that is higher than a page has been painted, in points below its top.
struct BlockPart {
  double from = 0;  // what comes to stand at the top of the next page
  double done = 0;  // lines that end above this have been painted
};

/// Breaks the texts of blocks into lines, gives columns their widths, and paints.
class BlockLayout {
 public:
  BlockLayout(const Letters& letters, const Styles& styles, double left, double right)
      : letters_(letters), styles_(styles), left_(left), right_(right) {}

  /// Gives `table` its columns by its head and its first row (null: it has none), and lays its head
  /// out.
  void FixColumns(Table& table, const Block* row);
  void LayOut(Block& block);

  void Paint(const Block& block, double top, PageContent& page);
  /// Paints what there is room for, at least one line. Gives the height when that was all that was
  /// left, and else moves `part` on.
  std::optional<double> PaintPart(const Block& block, BlockPart& part, double top, double room,
                                  PageContent& page);
  /// Around the part of a table between `top` and `bottom`.
  void PaintTableBorder(const Table& table, double top, double bottom, PageContent& page);

 private:
  struct Insets {
    double top, right, bottom, left;
  };
  /// A word, or the part of one that is in one style.
  struct Atom {
    Styles::Id style;
    std::size_t begin;
    std::size_t end;
    double width;
    bool blankBefore;
  };

  Insets InsetsOf(Styles::Id id) const;
  bool SharesBorders(Styles::Id style) const;
  double LineHeight(Styles::Id style);
  double BlankWidth(Styles::Id style);

  void LayOut(Block& block, const Table* table);
  void PlaceCells(Block& block, const Table* table) const;
  void LayOutRule(Block& block) const;
  double CellHeight(const Block::Cell& cell) const;
  void BreakIntoLines(Block& block, Block::Cell& cell);
  void LayOutSegment(Block& block, std::size_t firstRun, std::size_t endRun, double room);
  bool LayOutOnOneLine(Block& block, std::size_t firstRun, std::size_t endRun, double room);
  void TakeAtoms(const Block& block, std::size_t firstRun, std::size_t endRun);
  void FillLines(Block& block, double room);
  void AddAtom(Block& block, const Atom& atom, bool afterBlank);
  void AddCutWord(Block& block, const Atom& atom, double room);
  void BeginLine(Block& block);
  void EndLine(Block& block);
  void AddMeter(Block& block, const Block::Run& run, double room);

  void PaintBoxes(const Block& block, double top, double bottom, PageContent& page) const;
  void PaintBorders(const controls::SheetBox& box, const Style& style, bool shared,
                    PageContent& page) const;
  void PaintLine(const Block& block, const Block::TextLine& line, const controls::SheetBox& box,
                 PageContent& page) const;

  const Letters& letters_;
  const Styles& styles_;
  double left_;
  double right_;
  double lineTop_ = 0;               // of the line under way, in its cell
  std::vector<double> lineHeights_;  // by style; negative: not asked for yet
  std::vector<double> blankWidths_;
  std::vector<Atom> atoms_;
};

}  // namespace report
