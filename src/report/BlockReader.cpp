#include "report/BlockReader.h"

#include <algorithm>
#include <utility>

#include "report/ReportError.h"

namespace report {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::size_t kDeepest = 50;
constexpr std::size_t kMostColumns = 1000;

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(kBlanks) == std::string_view::npos;
}

std::string Tag(Element element) {
  return "<" + std::string(KindOf(element).name) + ">";
}

/// Whether blocks may stand in it.
bool HoldsBlocks(Element element) {
  return element == Element::kRoot || element == Element::kHtml || element == Element::kBody ||
         element == Element::kDiv;
}

bool HoldsText(Element element) {
  return HoldsBlocks(element) || IsTextBlock(element) || IsCell(element) || IsInline(element);
}

bool MayStandIn(Element outer, Element element) {
  switch (element) {
    case Element::kHtml:
      return outer == Element::kRoot;
    case Element::kHead:
    case Element::kBody:
      return outer == Element::kRoot || outer == Element::kHtml;
    case Element::kTitle:
    case Element::kStyle:
    case Element::kMeta:
      return outer == Element::kHead;
    case Element::kTableHead:
    case Element::kTableBody:
    case Element::kTableFoot:
      return outer == Element::kTable;
    case Element::kTr:
      return outer == Element::kTable || IsRowGroup(outer);
    case Element::kTd:
    case Element::kTh:
      return outer == Element::kTr;
    case Element::kHr:
    case Element::kTable:
      return HoldsBlocks(outer);
    default:
      return IsTextBlock(element) ? HoldsBlocks(outer) || IsCell(outer) : HoldsText(outer);
  }
}

}  // namespace

BlockReader::BlockReader(Markup& markup, const std::string& templateName, Styles& styles,
                         BlockLayout& layout, double highestHead)
    : markup_(markup),
      name_(templateName),
      styles_(styles),
      layout_(layout),
      highestHead_(highestHead),
      tokens_(templateName),
      open_{{Styles::kRootId, 0}} {
  NoteRest();
  begin_ = rest_;
}

bool BlockReader::Next(Block& block) {
  while (nextReady_ == readyCount_) {
    nextReady_ = readyCount_ = 0;
    if (ended_) return false;
    ended_ = !Step();
  }
  std::swap(block, ready_[nextReady_++]);
  ++given_;
  return true;
}

void BlockReader::GoTo(const Place& place) {
  if (place.rest.table) {
    // A row looks as the head and the first row of its table want it.
    Return(*place.rest.table);
    while (tables_ != place.rest.tables || !table_ || !table_->Fixed()) {
      if (!Step()) Refuse(0, "داده هاي گزارش عوض شده اند.", "the markup is not what it was");
    }
    std::shared_ptr<Table> table = std::move(table_);
    Return(place.rest);
    table_ = std::move(table);
  } else {
    Return(place.rest);
  }
  Block passed;
  for (std::size_t i = 0; i < place.skip; ++i) Next(passed);
}

void BlockReader::Return(const Rest& rest) {
  markup_.GoTo(rest.place);
  tokens_.Clear();
  sheet_.Clear();
  styles_.KeepSheets(rest.sheets);
  open_ = rest.open;
  current_.Clear();
  inRow_ = inCell_ = blank_ = false;
  table_ = nullptr;
  if (rest.inTable) {
    // Stands for a table whose rows nobody wants to see.
    table_ = std::make_shared<Table>();
    table_->columns.resize(kMostColumns + 1);
  }
  tableRest_ = rest.table;
  tables_ = rest.tables;
  gap_ = rest.gap;
  breakBefore_ = rest.breakBefore;
  nextReady_ = readyCount_ = 0;
  ended_ = false;
  rest_ = rest;
  given_ = 0;
}

/// False at the end.
bool BlockReader::Step() {
  HtmlToken token;
  if (tokens_.Next(token)) {
    Take(token);
    return true;
  }
  if (given_ > 0 && AtRest()) NoteRest();
  if (tokens_.Read(markup_)) return true;
  Finish();
  return false;
}

bool BlockReader::AtRest() const {
  return tokens_.AtRest() && !inRow_ && current_.runs.empty() && (!table_ || table_->Fixed()) &&
         TopElement() != Element::kStyle;
}

void BlockReader::NoteRest() {
  rest_ = {markup_.Where(), open_, styles_.SheetCount(), tables_, table_ != nullptr,
           tableRest_,      gap_,  breakBefore_};
  given_ = 0;
}

void BlockReader::Finish() {
  EndParagraph();
  const auto left = std::find_if(open_.begin(), open_.end(), [this](const Open& open) {
    const Element element = styles_.ElementOf(open.style);
    return element != Element::kRoot && element != Element::kHtml && element != Element::kBody;
  });
  if (left == open_.end()) return;
  const std::string tag = Tag(styles_.ElementOf(left->style));
  Refuse(left->line, "نشانه «" + tag + "» بسته نشده است.", tag + " is not closed");
}

void BlockReader::Refuse(int line, const std::string& words, const std::string& technical) const {
  RefuseTemplate(name_, line, words, technical);
}

void BlockReader::Take(const HtmlToken& token) {
  switch (token.kind) {
    case HtmlToken::Kind::kText:
      return TakeText(token);
    case HtmlToken::Kind::kStart:
      return OpenTag(token);
    case HtmlToken::Kind::kEnd:
      return CloseTag(token);
  }
}

void BlockReader::TakeText(const HtmlToken& token) {
  const Element outer = TopElement();
  if (outer == Element::kTitle) return;
  if (outer == Element::kStyle) return sheet_.Add(token.text, token.line);
  if (HoldsText(outer)) {
    if (current_.runs.empty() && !inRow_) current_.line = token.line;
    return AppendText(token.text);
  }
  if (!IsBlank(token.text)) {
    Refuse(token.line, "در «" + Tag(outer) + "» جاي متن نيست؛ متن جدول در «<td>» مي آيد.",
           "text directly in " + Tag(outer));
  }
}

/// Blanks in a row are one, and none at either end of a line.
void BlockReader::AppendText(std::string_view text) {
  std::vector<Block::Run>& runs = current_.runs;
  const std::size_t firstRun = inCell_ ? current_.cells.back().firstRun : 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t begin = std::min(text.find_first_not_of(kBlanks, at), text.size());
    blank_ = blank_ || begin > at;
    if (begin == text.size()) return;
    at = std::min(text.find_first_of(kBlanks, begin), text.size());
    const bool goesOn = runs.size() > firstRun && runs.back().kind == Block::RunKind::kText;
    if (!goesOn || runs.back().style != Top()) AddRun(Block::RunKind::kText, Top(), 0);
    if (blank_ && goesOn) current_.text += ' ';
    current_.text.append(text, begin, at - begin);
    runs.back().end = current_.text.size();
    blank_ = false;
  }
}

void BlockReader::AddRun(Block::RunKind kind, Styles::Id style, double amount) {
  const std::size_t at = current_.text.size();
  current_.runs.push_back({kind, style, at, at, amount});
  if (kind != Block::RunKind::kText) blank_ = false;
}

void BlockReader::OpenTag(const HtmlToken& token) {
  const Styles::Id id = styles_.Of(Top(), token.text, token.line);
  const Element element = styles_.ElementOf(id);
  CheckPlace(element, token.line);
  switch (element) {
    case Element::kMeta:
      return;
    case Element::kBr:
      return BreakLine(id);
    case Element::kHr:
      return AddRule(id);
    case Element::kMeter:
      return AddRun(Block::RunKind::kMeter, id, styles_.MeterShare(token.text, token.line));
    default:
      break;
  }
  if (open_.size() == kDeepest) {
    Refuse(token.line, "نشانه ها بيش از اندازه تودرتو هستند.", "elements are nested too deep");
  }
  if (IsTextBlock(element)) OpenTextBlock(id);
  if (element == Element::kTable) OpenTable(id);
  if (element == Element::kTr) {
    inRow_ = true;
    current_.style = id;
    current_.line = token.line;
  }
  if (IsCell(element)) {
    inCell_ = true;
    blank_ = false;
    current_.cells.push_back({id, current_.runs.size(), 0});
  }
  open_.push_back({id, token.line});
}

void BlockReader::CheckPlace(Element element, int line) const {
  const Element outer = TopElement();
  if (table_ && element == Element::kTable) {
    Refuse(line, "در خانه جدول نمي شود جدول ديگري گذاشت.", "a table within a table");
  }
  if (!MayStandIn(outer, element) || (inCell_ && element == Element::kHr)) {
    Refuse(line, "جاي «" + Tag(element) + "» در «" + Tag(outer) + "» نيست.",
           Tag(element) + " has no place in " + Tag(outer) + " of line " +
               std::to_string(open_.back().line));
  }
  if (element == Element::kTableHead && table_->Fixed()) {
    Refuse(line, "سر جدول بايد پيش از سطرهاي آن بيايد.", "<thead> behind rows of the table");
  }
  const bool isBlock =
      IsTextBlock(element) || element == Element::kTable || element == Element::kHr;
  if (isBlock && !inCell_ && styles_[TextBlock()].IsBox()) {
    Refuse(line, "بخشي كه زمينه، حاشيه يا اندازه دارد تنها متن مي پذيرد.",
           Tag(outer) + " with ground, border, padding or height takes text alone, no " +
               Tag(element));
  }
}

void BlockReader::OpenTextBlock(Styles::Id id) {
  const Style& style = styles_[id];
  if (inCell_) {
    if (style.IsBox() || style.breakBefore || style.breakAfter) {
      Refuse(current_.line,
             "در خانه جدول، بخش زمينه، حاشيه و اندازه ندارد؛ «<span>» زمينه مي پذيرد.",
             "a block in a cell takes no ground, border, padding, height or page break");
    }
    return BreakInCell(style.marginTop);
  }
  EndParagraph();
  gap_ = std::max(gap_, style.marginTop);
  breakBefore_ = breakBefore_ || style.breakBefore;
}

void BlockReader::OpenTable(Styles::Id id) {
  EndParagraph();
  const Style& style = styles_[id];
  gap_ = std::max(gap_, style.marginTop);
  breakBefore_ = breakBefore_ || style.breakBefore;
  table_ = std::make_shared<Table>();
  table_->style = id;
  ++tables_;
  // Without what leads to the table before, else the rests of all tables would hang together.
  Rest rest = rest_;
  rest.table = nullptr;
  tableRest_ = std::make_shared<const Rest>(std::move(rest));
}

void BlockReader::CloseTag(const HtmlToken& token) {
  const std::string name = HtmlTokens::TagName(token.text);
  if (name == KindOf(Element::kMeter).name) return;
  if (open_.size() == 1 || name != KindOf(TopElement()).name) {
    const std::string open =
        Tag(TopElement()) + " of line " + std::to_string(open_.back().line) + " is open";
    Refuse(token.line, "نشانه «</" + name + ">» چيزي را كه باز است نمي بندد.",
           "</" + name + "> closes nothing: " + (open_.size() == 1 ? "nothing is open" : open));
  }
  const Element element = TopElement();
  const Style& style = styles_[Top()];
  if (IsCell(element)) {
    current_.cells.back().endRun = current_.runs.size();
    inCell_ = false;
  } else if (IsTextBlock(element) && inCell_) {
    BreakInCell(style.marginBottom);
  } else if (IsTextBlock(element)) {
    EndParagraph(style.IsBox());
  } else if (element == Element::kStyle) {
    styles_.AddSheet(sheet_);
    sheet_.Clear();
  }
  open_.pop_back();
  if (element == Element::kTr) CloseRow();
  if (element == Element::kTable) CloseTable();
  if (element == Element::kTable || (IsTextBlock(element) && !inCell_)) {
    gap_ = std::max(gap_, style.marginBottom);
    breakBefore_ = breakBefore_ || style.breakAfter;
  }
}

void BlockReader::CloseRow() {
  inRow_ = false;
  if (current_.cells.empty()) return current_.Clear();
  std::size_t columns = 0;
  for (const Block::Cell& cell : current_.cells) {
    columns += static_cast<std::size_t>(styles_[cell.style].columns);
  }
  if (columns > kMostColumns) {
    Refuse(current_.line, "سطر جدول بيش از اندازه خانه دارد.", "too many cells in a row");
  }
  if (TopElement() == Element::kTableHead) {
    table_->head.push_back(current_);
    return current_.Clear();
  }
  if (!table_->Fixed()) FixTable(&current_);
  if (columns >= table_->columns.size()) {
    Refuse(current_.line, "سطر جدول بيش از سر جدول و سطر نخست آن خانه دارد.",
           "the row has more cells than the head and the first row of its table");
  }
  current_.table = table_;
  Give(current_);
}

void BlockReader::CloseTable() {
  if (!table_->Fixed()) {
    FixTable(nullptr);
    GiveHead();
  }
  table_ = nullptr;
  tableRest_ = nullptr;
}

void BlockReader::FixTable(const Block* row) {
  layout_.FixColumns(*table_, row);
  if (table_->headHeight > highestHead_) GiveHead();
}

/// As rows like others.
void BlockReader::GiveHead() {
  std::vector<Block> head;
  head.swap(table_->head);
  table_->headHeight = 0;
  for (Block& row : head) {
    row.table = table_;
    Give(row);
  }
}

void BlockReader::BreakLine(Styles::Id id) {
  if (inCell_ || styles_[TextBlock()].IsBox()) {
    AddRun(Block::RunKind::kBreak, id, 0);
  } else {
    // Lines of their own, so that a long text need not be held as a whole.
    EndParagraph(true);
  }
}

/// A line ends here, but not twice.
void BlockReader::BreakInCell(double gap) {
  std::vector<Block::Run>& runs = current_.runs;
  if (runs.size() == current_.cells.back().firstRun) return;
  if (runs.back().kind != Block::RunKind::kBreak) AddRun(Block::RunKind::kBreak, Top(), 0);
  runs.back().amount = std::max(runs.back().amount, gap);
}

Styles::Id BlockReader::TextBlock() const {
  const auto block = std::find_if(open_.rbegin(), open_.rend(), [this](const Open& open) {
    return !IsInline(styles_.ElementOf(open.style));
  });
  return block->style;
}

void BlockReader::EndParagraph(bool evenEmpty) {
  blank_ = false;
  if (current_.runs.empty() && !evenEmpty) return;
  current_.style = TextBlock();
  current_.cells.push_back({current_.style, 0, current_.runs.size()});
  Give(current_);
}

void BlockReader::AddRule(Styles::Id id) {
  EndParagraph();
  const Style& style = styles_[id];
  gap_ = std::max(gap_, style.marginTop);
  breakBefore_ = breakBefore_ || style.breakBefore;
  current_.style = id;
  current_.isRule = true;
  Give(current_);
  gap_ = style.marginBottom;
  breakBefore_ = style.breakAfter;
}

void BlockReader::Give(Block& block) {
  block.gap = std::exchange(gap_, 0);
  block.breakBefore = std::exchange(breakBefore_, false);
  if (readyCount_ == ready_.size()) ready_.emplace_back();
  std::swap(ready_[readyCount_++], block);
  block.Clear();
}

}  // namespace report
