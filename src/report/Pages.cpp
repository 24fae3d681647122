#include "report/Pages.h"

#include <algorithm>
#include <utility>

#include "report/BlockLayout.h"
#include "report/BlockReader.h"
#include "report/Styles.h"

namespace report {

namespace {

using controls::Rgb;
using controls::Sheet;
using controls::SheetBox;
using controls::SheetFont;
using controls::SheetText;

// All in points.
constexpr double kShortSide = 595;
constexpr double kLongSide = 842;
constexpr double kMargin = 34;
constexpr double kHeaderHeight = 26;
constexpr double kFooterHeight = 20;
constexpr double kGap = 8;
constexpr double kHeaderLine = 1.2;
constexpr double kFooterLine = 0.6;
constexpr double kTolerance = 0.01;

constexpr SheetFont kTitleFont{11, true};
constexpr SheetFont kFrameFont{};
constexpr controls::Colour kTitleColour = Rgb(54, 44, 36);
constexpr controls::Colour kMutedText = Rgb(104, 89, 76);
constexpr controls::Colour kAccent = Rgb(158, 97, 52);
constexpr controls::Colour kLine = Rgb(203, 184, 166);

constexpr double kHighestHead = 2.0 / 3;  // of a page's room
constexpr std::size_t kReadyPages = 8;

SheetBox LineAt(double y, double thickness, const SheetBox& area) {
  return {area.left, y - thickness / 2, area.right, y + thickness / 2};
}

}  // namespace

class Pages::Layout {
 public:
  Layout(FilledReport report, const Letters& letters)
      : report_(std::move(report)),
        styles_(report_.name),
        layout_(letters, styles_, kMargin, Width() - kMargin),
        reader_(*report_.body, report_.name, styles_, layout_, Room() * kHighestHead) {
    bookmarks_.push_back({reader_.Begin(), {}});
  }

  const FilledReport& Report() const { return report_; }
  double Width() const { return IsPortrait() ? kShortSide : kLongSide; }
  double Height() const { return IsPortrait() ? kLongSide : kShortSide; }
  int Count() const { return reached_; }
  bool Finished() const { return ended_ && reached_ == Known(); }

  bool LayOutMore() {
    if (reached_ == Known() && !ended_) Content(reached_ - 1);
    if (reached_ == Known()) return false;
    ++reached_;
    return true;
  }

  Sheet At(int page) {
    Sheet sheet = Content(page);
    AddFrame(sheet, page);
    return sheet;
  }

 private:
  /// Where a page begins.
  struct Bookmark {
    BlockReader::Place place;
    BlockPart part;  // of the block there, when its upper part is on the page before
  };
  struct ReadyPage {
    int page;
    Sheet sheet;
  };

  bool IsPortrait() const { return report_.orientation == Orientation::kPortrait; }
  double Top() const { return kMargin + kHeaderHeight + kGap; }
  double Room() const { return Height() - Top() - kMargin - kFooterHeight - kGap; }
  int Known() const { return static_cast<int>(bookmarks_.size()); }

  const Sheet& Content(int page);
  Sheet Make(int page);
  void GoTo(int page);
  void FillPage();
  bool PlaceBlock();
  void PaintHead();
  void LeaveTable();
  void AddFrame(Sheet& sheet, int page) const;
  std::string Shown(int number) const { return WithDigits(std::to_string(number), report_.digits); }

  const FilledReport report_;
  Styles styles_;
  BlockLayout layout_;
  BlockReader reader_;
  std::vector<Bookmark> bookmarks_;
  int reached_ = 1;
  bool ended_ = false;            // the last page is known
  std::vector<ReadyPage> ready_;  // the last one used at the end

  int next_ = -1;         // the page that the reader stands before; -1: somewhere
  bool waiting_ = false;  // block_ is still to be placed
  Block block_;
  BlockPart part_;
  // Of the page under way:
  PageContent content_;
  double y_ = 0;  // free from here
  bool empty_ = true;
  std::shared_ptr<const Table> table_;  // whose rows came last, and where they begin
  double tableTop_ = 0;
};

const Sheet& Pages::Layout::Content(int page) {
  const auto found = std::find_if(ready_.begin(), ready_.end(),
                                  [page](const ReadyPage& each) { return each.page == page; });
  if (found != ready_.end()) {
    std::rotate(found, found + 1, ready_.end());
  } else {
    Sheet sheet = Make(page);
    if (ready_.size() == kReadyPages) ready_.erase(ready_.begin());
    ready_.push_back({page, std::move(sheet)});
  }
  return ready_.back().sheet;
}

Sheet Pages::Layout::Make(int page) {
  if (std::exchange(next_, -1) != page) GoTo(page);
  FillPage();
  next_ = page + 1;
  if (next_ == Known()) {
    if (waiting_) {
      bookmarks_.push_back({reader_.LastBegins(), part_});
    } else {
      ended_ = true;
    }
  }
  Sheet sheet{Width(), Height(), std::move(content_.grounds), std::move(content_.texts)};
  sheet.fills.insert(sheet.fills.end(), content_.lines.begin(), content_.lines.end());
  return sheet;
}

void Pages::Layout::GoTo(int page) {
  const Bookmark& bookmark = bookmarks_[static_cast<std::size_t>(page)];
  reader_.GoTo(bookmark.place);
  waiting_ = false;
  part_ = bookmark.part;
}

/// Until a block does not fit, which then waits for the next page.
void Pages::Layout::FillPage() {
  content_ = {};
  y_ = Top();
  empty_ = true;
  do {
    if (!waiting_) {
      if (!reader_.Next(block_)) break;
      layout_.LayOut(block_);
      waiting_ = true;
    }
  } while (PlaceBlock());
  LeaveTable();
}

/// False when the page is full.
bool Pages::Layout::PlaceBlock() {
  if (!empty_ && block_.breakBefore) return false;
  const bool newTable = block_.table != table_;
  const double gap = empty_ ? 0 : block_.gap;
  const double head = newTable && block_.table ? block_.table->headHeight : 0;
  const double left = Top() + Room() - y_ - gap - head + kTolerance;
  const bool whole = part_.done == 0;
  if (!empty_ && block_.height > left) return false;
  if (newTable) {
    LeaveTable();
    table_ = block_.table;
    tableTop_ = y_ + gap;
  }
  y_ += gap;
  if (newTable && table_) PaintHead();
  empty_ = false;
  if (whole && block_.height <= left) {
    layout_.Paint(block_, y_, content_);
    y_ += block_.height;
  } else {
    const auto height = layout_.PaintPart(block_, part_, y_, left, content_);
    y_ += height.value_or(left);
    if (!height) return false;
    part_ = {};
  }
  waiting_ = false;
  return true;
}

void Pages::Layout::PaintHead() {
  for (const Block& row : table_->head) {
    layout_.Paint(row, y_, content_);
    y_ += row.height;
  }
}

void Pages::Layout::LeaveTable() {
  if (table_) layout_.PaintTableBorder(*table_, tableTop_, y_, content_);
  table_ = nullptr;
}

void Pages::Layout::AddFrame(Sheet& sheet, int page) const {
  const SheetBox top{kMargin, kMargin, Width() - kMargin, kMargin + kHeaderHeight};
  const SheetBox bottom{kMargin, Height() - kMargin - kFooterHeight, Width() - kMargin,
                        Height() - kMargin};
  sheet.fills.push_back({LineAt(top.bottom, kHeaderLine, top), kAccent});
  sheet.fills.push_back({LineAt(bottom.top, kFooterLine, bottom), kLine});
  using Side = SheetText::Side;
  const std::string total = Finished() ? Shown(Count()) : "...";
  sheet.texts.push_back({report_.title, top, kTitleFont, kTitleColour, Side::kRight, true});
  sheet.texts.push_back({report_.header, top, kFrameFont, kMutedText, Side::kLeft, true});
  sheet.texts.push_back(
      {"تاريخ چاپ: " + report_.printDate, bottom, kFrameFont, kMutedText, Side::kRight, true});
  sheet.texts.push_back({"صفحه " + Shown(page + 1) + " از " + total, bottom, kFrameFont, kMutedText,
                         Side::kLeft, true});
}

Pages::Pages(FilledReport report, const Letters& letters)
    : layout_(std::make_unique<Layout>(std::move(report), letters)) {}

Pages::~Pages() = default;

const std::string& Pages::Title() const {
  return layout_->Report().title;
}

double Pages::Width() const {
  return layout_->Width();
}

double Pages::Height() const {
  return layout_->Height();
}

int Pages::Count() const {
  return layout_->Count();
}

bool Pages::Finished() const {
  return layout_->Finished();
}

bool Pages::LayOutMore() {
  return layout_->LayOutMore();
}

Sheet Pages::At(int page) {
  return layout_->At(page);
}

}  // namespace report
