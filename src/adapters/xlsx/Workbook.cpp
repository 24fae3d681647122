#include "adapters/xlsx/Workbook.h"

#include <fcntl.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>

#include "platform/FileErrors.h"
#include "text/Text.h"
#include "text/Utf8.h"

namespace adapters::xlsx {

namespace {

using platform::RuntimeError;

constexpr std::int32_t kApplicationError = 1004;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr std::string_view kUnderscore = "_x005F_";
// A spreadsheet shows longer numbers rounded, with an exponent.
constexpr std::size_t kLongestPlainNumber = 11;
constexpr std::size_t kNarrowest = 8;
constexpr std::size_t kWidest = 60;
constexpr off_t kRoomBesideRows = 1 << 16;
constexpr std::size_t kLongestText = 32'767;

RuntimeError LibraryError(lxw_error code, const std::string& path) {
  return RuntimeError(kApplicationError,
                      "فايل اكسل ساخته نشد. " + path + " (" + lxw_strerror(code) + ")",
                      "libxlsxwriter");
}

/// The number that a spreadsheet shows just as the text has it: a code with leading zeros, a plus
/// sign or more than 15 digits would be lost, so it is none.
std::optional<double> PlainNumber(std::string_view cell) {
  if (cell.find_first_not_of("-.0123456789") != std::string_view::npos) return std::nullopt;
  double value = 0;
  const auto [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), value);
  if (error != std::errc() || end != cell.data() + cell.size()) return std::nullopt;
  if (text::DecimalText(value) != cell) return std::nullopt;
  return value;
}

/// Whether a spreadsheet would take what `s` begins with for one character: "_x0041_" for "A".
bool IsEscape(std::string_view s) {
  constexpr std::string_view kHexadecimal = "0123456789abcdefABCDEF";
  return s.starts_with("_x") && s.size() >= 7 && s[6] == '_' &&
         s.substr(2, 4).find_first_not_of(kHexadecimal) == std::string_view::npos;
}

/// Assigns `s` with a mark for each byte that XML cannot hold: one of them would make the whole
/// workbook unreadable. Gives the units of UTF-16, by which a spreadsheet counts.
std::size_t AssignReadable(std::string& target, std::string_view s) {
  target.clear();
  std::size_t units = 0;
  for (std::size_t at = 0; at < s.size();) {
    const std::size_t from = at;
    const char32_t character = text::TakeCharacter(s, at);
    const bool readable = character != 0 && character != text::kReplacement &&
                          character != 0xFFFE && character != 0xFFFF;
    const bool escape = IsEscape(s.substr(from));
    target += escape ? kUnderscore : readable ? s.substr(from, at - from) : kReplacement;
    units += character >= 0x10000 ? 2 : 1;
  }
  return units;
}

lxw_workbook* NewWorkbook(const std::string& path) {
  // Where the workbook has no room, its rows shall have none either: the error comes early.
  std::string folder = std::filesystem::path(path).parent_path().string();
  if (folder.empty()) folder = ".";
  lxw_workbook_options options{
      .constant_memory = LXW_TRUE, .tmpdir = folder.data(), .use_zip64 = LXW_FALSE};
  lxw_workbook* workbook = workbook_new_opt(path.c_str(), &options);
  if (!workbook) throw LibraryError(LXW_ERROR_MEMORY_MALLOC_FAILED, path);
  return workbook;
}

/// The library writes all rows once more into the sheet's part, with nobody looking whether that
/// succeeds, and frees the first copy before it packs the part. So a disk that is full meanwhile
/// would give half a workbook without an error; this finds out in time.
void EnsureRoom(const std::string& path, off_t bytes) {
  const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (file < 0) throw SystemError(errno, path);
  const int error = posix_fallocate(file, 0, bytes);
  const bool emptied = ftruncate(file, 0) == 0;
  const int truncateError = errno;
  close(file);
  if (error != 0) throw SystemError(error, path);
  if (!emptied) throw SystemError(truncateError, path);
}

}  // namespace

RuntimeError SystemError(int code, const std::string& path) {
  std::int32_t number = platform::kDeviceError;
  std::string_view sentence = "فايل اكسل نوشته نشد.";
  if (code == EACCES || code == EPERM || code == EROFS) {
    number = platform::kPermissionDenied;
    sentence = "اجازه نوشتن در اين پوشه را نداريد.";
  } else if (code == ENOENT || code == ENOTDIR) {
    number = platform::kPathNotFound;
    sentence = {};
  } else if (code == ENOSPC || code == EDQUOT || code == EFBIG) {
    number = platform::kDiskFull;
    sentence = "فايل اكسل نوشته نشد؛ جا روي ديسك كم است.";
  }
  return platform::FileError(number, path, std::strerror(code), "system", sentence);
}

Workbook::Workbook(const std::string& path)
    : path_(path),
      workbook_(NewWorkbook(path)),
      sheet_(workbook_add_worksheet(workbook_, nullptr)),
      heading_(workbook_add_format(workbook_)),
      text_(workbook_add_format(workbook_)),
      longNumber_(workbook_add_format(workbook_)) {
  if (!sheet_ || !heading_ || !text_ || !longNumber_) {
    const int code = errno;
    lxw_workbook_free(workbook_);
    throw SystemError(code, path);
  }
  worksheet_right_to_left(sheet_);
  worksheet_freeze_panes(sheet_, 1, 0);
  format_set_bold(heading_);
  format_set_bg_color(heading_, 0xF3E3D2);
  format_set_bottom(heading_, LXW_BORDER_THIN);
  // As text also when somebody edits the cell.
  format_set_num_format(heading_, "@");
  format_set_num_format(text_, "@");
  format_set_num_format(longNumber_, "0");
}

Workbook::~Workbook() {
  if (!workbook_) return;
  // The library forgets it when the workbook is dropped.
  if (sheet_->optimize_tmpfile) std::fclose(sheet_->optimize_tmpfile);
  sheet_->optimize_tmpfile = nullptr;
  lxw_workbook_free(workbook_);
}

void Workbook::SetCell(int row, int column, std::string_view text) {
  if (row < 1 || row > LXW_ROW_MAX || column < 1 || column > LXW_COL_MAX) {
    throw RuntimeError(kApplicationError, "برگه اكسل بيش از " + std::to_string(LXW_ROW_MAX) +
                                              " سطر و " + std::to_string(LXW_COL_MAX) +
                                              " ستون جا ندارد.");
  }
  if (row > lastRow_ && std::ferror(sheet_->optimize_tmpfile)) FlushRows();
  lastRow_ = row;
  WriteCell(static_cast<std::uint32_t>(row - 1), static_cast<std::uint16_t>(column - 1), text);
}

void Workbook::WriteCell(std::uint32_t row, std::uint16_t column, std::string_view text) {
  if (longest_.size() <= column) longest_.resize(std::size_t{column} + 1, 0);
  longest_[column] = std::max(longest_[column], text::Length(text));
  const std::optional<double> number = row == 0 ? std::nullopt : PlainNumber(text);
  lxw_error error = LXW_NO_ERROR;
  if (number) {
    const bool isLong =
        text.size() > kLongestPlainNumber && text.find('.') == std::string_view::npos;
    error = worksheet_write_number(sheet_, row, column, *number, isLong ? longNumber_ : nullptr);
  } else {
    // The library counts characters.
    if (AssignReadable(buffer_, text) > kLongestText) {
      throw LibraryError(LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED, path_);
    }
    error =
        worksheet_write_string(sheet_, row, column, buffer_.c_str(), row == 0 ? heading_ : text_);
  }
  if (error != LXW_NO_ERROR) throw LibraryError(error, path_);
}

void Workbook::FlushRows() {
  std::FILE* rows = sheet_->optimize_tmpfile;
  errno = 0;
  if (std::fflush(rows) != 0 || std::ferror(rows)) {
    throw SystemError(errno != 0 ? errno : EIO, path_);
  }
}

void Workbook::SetColumnWidths() {
  for (std::size_t at = 0; at < longest_.size(); ++at) {
    const auto column = static_cast<lxw_col_t>(at);
    const std::size_t width = std::clamp(longest_[at] + 2, kNarrowest, kWidest);
    worksheet_set_column(sheet_, column, column, static_cast<double>(width), nullptr);
  }
}

void Workbook::Close() {
  SetColumnWidths();
  lxw_worksheet_write_single_row(sheet_);  // the last row, which no other has pushed out yet
  FlushRows();
  EnsureRoom(path_, static_cast<off_t>(std::ftell(sheet_->optimize_tmpfile)) + kRoomBesideRows);
  errno = 0;
  const lxw_error error = workbook_close(std::exchange(workbook_, nullptr));
  if (error == LXW_NO_ERROR) return;
  const bool system = error == LXW_ERROR_CREATING_XLSX_FILE ||
                      error == LXW_ERROR_CREATING_TMPFILE || error == LXW_ERROR_ZIP_FILE_OPERATION;
  if (system && errno != 0) throw SystemError(errno, path_);
  throw LibraryError(error, path_);
}

}  // namespace adapters::xlsx
