#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "report/Styles.h"

namespace report {

struct Table;

/// What stands on a page as a whole: a row of a table, a line or paragraph of text, a rule. Its
/// parts lie one behind the other, so that a block that is used again needs no memory.
struct Block {
  enum class RunKind { kText, kBreak, kMeter };
  struct Run {
    RunKind kind;
    Styles::Id style;
    std::size_t begin;  // in text
    std::size_t end;
    double amount;  // a meter's share; the points that a break leaves free
  };
  struct Cell {
    Styles::Id style;
    std::size_t firstRun;
    std::size_t endRun;
    // When it is laid out:
    std::size_t firstLine = 0;
    std::size_t endLine = 0;
    double left = 0;
    double right = 0;
    double contentHeight = 0;
  };
  /// A part of a line in one style.
  struct Piece {
    Styles::Id style;
    std::size_t begin;  // in text
    std::size_t end;
    double offset;  // from where reading the line begins
    double width;
    bool isMeter;
  };
  struct TextLine {
    std::size_t firstPiece;
    std::size_t endPiece;
    double top;  // below the cell's inner edge
    double height;
    double width;
  };

  Styles::Id style = Styles::kRootId;
  std::shared_ptr<const Table> table;  // of a row
  bool isRule = false;
  bool breakBefore = false;
  double gap = 0;  // above it, but at the top of a page
  int line = 0;    // of the template
  std::string text;
  std::vector<Run> runs;
  std::vector<Cell> cells;

  // When it is laid out:
  bool laidOut = false;
  double left = 0;
  double right = 0;
  double height = 0;  // with the space between it and the next row
  std::vector<Piece> pieces;
  std::vector<TextLine> lines;

  void Clear() {
    style = Styles::kRootId;
    table = nullptr;
    isRule = breakBefore = laidOut = false;
    gap = height = left = right = 0;
    text.clear();
    runs.clear();
    cells.clear();
    pieces.clear();
    lines.clear();
  }
};

struct Table {
  Styles::Id style = Styles::kRootId;
  std::vector<Block> head;  // stands above the first of its rows on each page
  double headHeight = 0;
  /// Where each column begins, from the side where reading does, and where the last one ends with
  /// the space behind it. Empty until the first row is known.
  std::vector<double> columns;
  double left = 0;
  double right = 0;
  bool Fixed() const { return !columns.empty(); }
};

}  // namespace report
