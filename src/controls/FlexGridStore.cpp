#include "controls/FlexGridStore.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <numeric>
#include <string>
#include <utility>

#include "platform/RuntimeError.h"

namespace controls {

namespace {

using platform::TextSlice;

constexpr std::size_t kMaxCells = std::size_t{1} << 28U;
// Below this, unused text is not worth a compaction.
constexpr std::size_t kSmallArena = std::size_t{64} * 1024;

[[noreturn]] void ThrowOutOfMemory() {
  throw platform::RuntimeError(7, "Out of memory");
}

std::size_t LengthOf(const TextSlice& slice) {
  return slice.IsNull() ? 0 : slice.length;
}

// Large lists grow by a quarter instead of by double, so that their slack stays small.
std::size_t GrownCapacity(std::size_t capacity, std::size_t needed) {
  return std::max(needed, capacity + capacity / 4);
}

bool IsSlack(std::size_t size, std::size_t capacity) {
  return capacity - size > size / 4;
}

template <typename T>
void Reserve(std::vector<T>& items, std::size_t size) {
  if (size > items.capacity()) items.reserve(GrownCapacity(items.capacity(), size));
}

// std::string::reserve doubles at least; a new string takes what it is told.
void SetCapacity(std::string& text, std::size_t capacity) {
  std::string moved;
  moved.reserve(capacity);
  moved.append(text);
  text = std::move(moved);
}

}  // namespace

FlexGridStore::FlexGridStore(int rows, int cols) : cols_(cols) {
  SetRows(rows);
}

void FlexGridStore::CheckCellCount(int rows, int cols) const {
  if (static_cast<std::size_t>(rows) * static_cast<std::size_t>(std::max(cols, 1)) > kMaxCells) {
    ThrowOutOfMemory();
  }
}

void FlexGridStore::SetRows(int rows) {
  CheckCellCount(rows, cols_);
  const auto count = static_cast<std::size_t>(rows);
  if (count < order_.size()) {
    if (count < colours_.size() / 2) {
      order_.resize(count);
      LayOutAnew(cols_);
    } else {
      for (std::size_t i = count; i < order_.size(); ++i) FreeRow(order_[i]);
      order_.resize(count);
    }
    ReclaimText();
    return;
  }
  ReserveRows(count);
  while (order_.size() < count) order_.push_back(TakeFreeId());
}

void FlexGridStore::SetCols(int cols) {
  if (cols == cols_) return;
  CheckCellCount(Rows(), cols);
  LayOutAnew(cols);
  ReclaimText();
}

// New cells in the order of the rows, of `cols` columns; texts stay where they are.
void FlexGridStore::LayOutAnew(int cols) {
  const auto width = static_cast<std::size_t>(cols);
  const std::size_t kept = std::min(width, static_cast<std::size_t>(cols_));
  std::vector<TextSlice> cells(order_.size() * width);
  std::vector<RowColour> colours(order_.size());
  std::unordered_map<std::uint32_t, std::vector<Colour>> mixed;
  std::size_t live = 0;
  for (std::size_t row = 0; row < order_.size(); ++row) {
    const std::uint32_t id = order_[row];
    const TextSlice* from = texts_.cells.data() + std::size_t{id} * static_cast<std::size_t>(cols_);
    for (std::size_t col = 0; col < kept; ++col) {
      cells[row * width + col] = from[col];
      live += LengthOf(from[col]);
    }
    RowColour colour = colours_[id];
    if (colour.IsMixed()) {
      std::vector<Colour> several = std::move(mixed_[id]);
      several.resize(width);
      mixed.emplace(static_cast<std::uint32_t>(row), std::move(several));
    } else if (colour.colour != 0 && colour.last >= cols) {
      colour.last = static_cast<std::uint16_t>(std::max(cols - 1, 0));
      if (colour.first >= cols) colour = {};
    }
    colours[row] = colour;
  }
  texts_.cells = std::move(cells);
  colours_ = std::move(colours);
  mixed_ = std::move(mixed);
  order_.shrink_to_fit();
  std::iota(order_.begin(), order_.end(), 0U);
  freeIds_ = {};
  liveBytes_ = live;
  cols_ = cols;
}

// Once less than half of the arena is in use, the texts move to a new one in the order of rows.
void FlexGridStore::ReclaimText() {
  if (texts_.arena.size() < kSmallArena || liveBytes_ >= texts_.arena.size() / 2) return;
  std::string arena;
  arena.reserve(liveBytes_);
  for (const std::uint32_t id : order_) {
    TextSlice* cells = texts_.cells.data() + std::size_t{id} * static_cast<std::size_t>(cols_);
    for (int col = 0; col < cols_; ++col) {
      const std::string_view text = texts_.Text(cells[col]);
      cells[col] = {static_cast<std::uint32_t>(arena.size()),
                    static_cast<std::uint32_t>(text.size())};
      arena.append(text);
    }
  }
  texts_.arena = std::move(arena);
}

bool FlexGridStore::IsOwnText(std::string_view text) const {
  const char* begin = texts_.arena.data();
  return !text.empty() && !std::less<>()(text.data(), begin) &&
         std::less<>()(text.data(), begin + texts_.arena.size());
}

// Makes room for so many more bytes, or throws.
void FlexGridStore::ReserveText(std::size_t bytes) {
  if (bytes >= TextSlice::kNull - texts_.arena.size()) ThrowOutOfMemory();
  const std::size_t needed = texts_.arena.size() + bytes;
  const std::size_t capacity = texts_.arena.capacity();
  if (needed > capacity) SetCapacity(texts_.arena, GrownCapacity(capacity, needed));
}

bool FlexGridStore::SetText(int row, int col, std::string_view text) {
  TextSlice& cell = texts_.cells[CellIndex(row, col)];
  if (texts_.Text(cell) == text) return false;
  if (IsOwnText(text)) {
    WriteCell(cell, std::string(text));
  } else {
    WriteCell(cell, text);
  }
  ReclaimText();
  return true;
}

void FlexGridStore::WriteCell(TextSlice& cell, std::string_view text) {
  std::string& arena = texts_.arena;
  const std::size_t before = LengthOf(cell);
  if (text.size() <= before) {
    if (!text.empty()) std::memcpy(arena.data() + cell.offset, text.data(), text.size());
    cell.length = static_cast<std::uint32_t>(text.size());
  } else {
    ReserveText(text.size());
    // The text written last grows where it is.
    if (before != 0 && cell.offset + before == arena.size()) arena.resize(cell.offset);
    cell = {static_cast<std::uint32_t>(arena.size()), static_cast<std::uint32_t>(text.size())};
    arena.append(text);
  }
  liveBytes_ = liveBytes_ - before + text.size();
}

void FlexGridStore::ReserveRows(std::size_t rows) {
  Reserve(order_, rows);
  const std::size_t ids = std::max(colours_.size(), rows);
  Reserve(colours_, ids);
  Reserve(texts_.cells, ids * static_cast<std::size_t>(cols_));
}

// An empty row without colour, in room that ReserveRows has made.
std::uint32_t FlexGridStore::TakeFreeId() {
  if (!freeIds_.empty()) {
    const std::uint32_t id = freeIds_.back();
    freeIds_.pop_back();
    return id;
  }
  const auto id = static_cast<std::uint32_t>(colours_.size());
  colours_.emplace_back();
  texts_.cells.resize(texts_.cells.size() + static_cast<std::size_t>(cols_));
  return id;
}

void FlexGridStore::FreeRow(std::uint32_t id) {
  TextSlice* cells = texts_.cells.data() + std::size_t{id} * static_cast<std::size_t>(cols_);
  for (int col = 0; col < cols_; ++col) {
    liveBytes_ -= LengthOf(cells[col]);
    cells[col] = {};
  }
  if (colours_[id].IsMixed()) mixed_.erase(id);
  colours_[id] = {};
  freeIds_.push_back(id);
}

void FlexGridStore::AddRow(std::string_view text) {
  if (IsOwnText(text)) return AddRow(std::string(text));
  CheckCellCount(Rows() + 1, cols_);
  ReserveText(text.size());
  ReserveRows(order_.size() + 1);
  order_.push_back(TakeFreeId());
  for (int col = 0; col < cols_ && !text.empty(); ++col) {
    const std::size_t tab = std::min(text.find('\t'), text.size());
    WriteCell(texts_.cells[CellIndex(Rows() - 1, col)], text.substr(0, tab));
    text.remove_prefix(std::min(tab + 1, text.size()));
  }
}

void FlexGridStore::RemoveRow(int row) {
  const auto place = order_.begin() + row;
  FreeRow(*place);
  order_.erase(place);
  if (order_.size() < colours_.size() / 2) LayOutAnew(cols_);
  ReclaimText();
}

void FlexGridStore::Reorder(int firstRow, const std::vector<std::uint32_t>& order) {
  const auto first = order_.begin() + firstRow;
  const std::vector<std::uint32_t> before(first, order_.end());
  std::transform(order.begin(), order.end(), first,
                 [&before](std::uint32_t i) { return before[i]; });
}

Colour FlexGridStore::MixedColourAt(int row, int col) const {
  return mixed_.at(order_[static_cast<std::size_t>(row)])[static_cast<std::size_t>(col)];
}

bool FlexGridStore::SetColour(int row, int firstCol, int lastCol, Colour colour) {
  const std::uint32_t id = order_[static_cast<std::size_t>(row)];
  RowColour& now = colours_[id];
  const RowColour wanted{colour, static_cast<std::uint16_t>(firstCol),
                         static_cast<std::uint16_t>(lastCol)};
  if (!now.IsMixed()) {
    const bool covers = now.colour == 0 || (firstCol <= now.first && now.last <= lastCol);
    if (covers) {
      const RowColour next = colour == 0 ? RowColour{} : wanted;
      const bool changed =
          next.colour != now.colour || next.first != now.first || next.last != now.last;
      now = next;
      return changed;
    }
    if (colour == now.colour && now.first <= firstCol && lastCol <= now.last) return false;
    if (colour == 0 && (lastCol < now.first || now.last < firstCol)) return false;
  }
  bool changed = false;
  for (int col = firstCol; col <= lastCol && !changed; ++col)
    changed = ColourAt(row, col) != colour;
  if (changed) SetMixedColour(id, now, firstCol, lastCol, colour);
  return changed;
}

void FlexGridStore::SetMixedColour(std::uint32_t id, RowColour before, int firstCol, int lastCol,
                                   Colour colour) {
  std::vector<Colour>& several = mixed_[id];
  several.resize(static_cast<std::size_t>(cols_));
  if (!before.IsMixed()) {
    std::fill(several.begin() + before.first, several.begin() + before.last + 1, before.colour);
  }
  std::fill(several.begin() + firstCol, several.begin() + lastCol + 1, colour);

  // One unbroken stretch of one colour needs no list.
  const auto isSet = [](Colour c) { return c != 0; };
  const auto first = std::find_if(several.begin(), several.end(), isSet);
  const auto last = std::find_if(several.rbegin(), several.rend(), isSet).base();
  if (first == several.end()) {
    colours_[id] = {};
  } else if (std::all_of(first, last, [first](Colour c) { return c == *first; })) {
    colours_[id] = {*first, static_cast<std::uint16_t>(first - several.begin()),
                    static_cast<std::uint16_t>(last - several.begin() - 1)};
  } else {
    colours_[id] = {0, 1, 0};
    return;
  }
  mixed_.erase(id);
}

void FlexGridStore::Take(platform::TextTable table, int dataCols, int fixedRows, int fixedCols) {
  const auto data = static_cast<std::size_t>(dataCols);
  const std::size_t rows = dataCols == 0 ? 0 : table.cells.size() / data;
  if (rows > kMaxCells) ThrowOutOfMemory();
  CheckCellCount(static_cast<int>(rows) + fixedRows, dataCols + fixedCols);

  const std::size_t width = data + static_cast<std::size_t>(fixedCols);
  const std::size_t all = rows + static_cast<std::size_t>(fixedRows);
  if (fixedCols == 0) {
    table.cells.resize(all * width);
  } else {
    std::vector<TextSlice> cells(all * width);
    for (std::size_t row = 0; row < rows; ++row) {
      std::copy_n(table.cells.begin() + static_cast<std::ptrdiff_t>(row * data), data,
                  cells.begin() + static_cast<std::ptrdiff_t>(row * width + width - data));
    }
    table.cells = std::move(cells);
  }
  // The headings come after the data in the table, before them in the order.
  std::vector<std::uint32_t> order(all);
  std::iota(order.begin(), order.begin() + fixedRows, static_cast<std::uint32_t>(rows));
  std::iota(order.begin() + fixedRows, order.end(), 0U);

  cols_ = dataCols + fixedCols;
  texts_ = std::move(table);
  // What the reader of the result has reserved too much; a little is left for the headings' texts.
  const std::size_t bytes = texts_.arena.size();
  if (IsSlack(bytes, texts_.arena.capacity())) SetCapacity(texts_.arena, bytes + bytes / 16);
  if (IsSlack(texts_.cells.size(), texts_.cells.capacity())) texts_.cells.shrink_to_fit();
  liveBytes_ = texts_.arena.size();
  colours_ = std::vector<RowColour>(all);
  mixed_ = {};
  order_ = std::move(order);
  freeIds_ = {};
}

std::size_t FlexGridStore::MemoryBytes() const {
  std::size_t bytes = texts_.arena.capacity() + texts_.cells.capacity() * sizeof(TextSlice) +
                      colours_.capacity() * sizeof(RowColour) +
                      (order_.capacity() + freeIds_.capacity()) * sizeof(std::uint32_t);
  // What a node of the table takes, its bucket and its link counted.
  constexpr std::size_t kNodeBytes = sizeof(decltype(mixed_)::value_type) + 2 * sizeof(void*);
  for (const auto& [id, several] : mixed_) {
    bytes += kNodeBytes + several.capacity() * sizeof(Colour);
  }
  return bytes;
}

}  // namespace controls
