#include "adapters/xlsx/XlsxExcel.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "adapters/xlsx/Workbook.h"
#include "calendar/SolarHijriDate.h"
#include "platform/RuntimeError.h"
#include "text/Text.h"

namespace adapters::xlsx {

namespace {

constexpr std::int32_t kNoWorkbook = 9;

/// Makes the first file of `beginning` + n + `ending` that is not there yet, empty, and returns its
/// path. Two programs never get the same one.
std::string MakeFreeFile(const std::string& beginning, const std::string& ending) {
  for (int n = 1;; ++n) {
    std::string path = beginning;
    path.append(std::to_string(n)).append(ending);
    if (std::FILE* file = std::fopen(path.c_str(), "wbx")) {
      std::fclose(file);
      return path;
    }
    if (errno != EEXIST) throw SystemError(errno, path);
  }
}

/// A file that is removed again unless it was kept.
class PartFile {
 public:
  explicit PartFile(std::string beginning)
      : beginning_(std::move(beginning)), path_(MakeFreeFile(beginning_, ".xlsx.part")) {}
  ~PartFile() {
    if (!path_.empty()) std::remove(path_.c_str());
  }
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;

  const std::string& Path() const { return path_; }

  /// Gives it the first free name and returns that.
  std::string Keep() {
    // The name is taken first: renaming alone would replace a file that has it.
    std::string kept = MakeFreeFile(beginning_, ".xlsx");
    if (std::rename(path_.c_str(), kept.c_str()) != 0) {
      const int code = errno;
      std::remove(kept.c_str());
      throw SystemError(code, kept);
    }
    path_.clear();
    return kept;
  }

 private:
  std::string beginning_;
  std::string path_;
};

class Application : public platform::ExcelApplication {
 public:
  Application(std::string folder, std::string name, XlsxExcel::Opener open)
      : folder_(std::move(folder)), name_(std::move(name)), open_(std::move(open)) {}

  void AddWorkbook() override {
    if (workbook_) return;  // only the first one can be written to
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (error) throw SystemError(error.value(), folder_);
    part_.emplace((std::filesystem::path(folder_) / name_).string());
    workbook_.emplace(part_->Path());
  }

  void SetVisible(bool visible) override { visible_ = visible; }

  void SetCell(int row, int column, std::string_view text) override {
    if (!workbook_) {
      throw platform::RuntimeError(kNoWorkbook, "Subscript out of range");
    }
    workbook_->SetCell(row, column, text);
  }

  void Finish() override {
    if (!workbook_) return;
    workbook_->Close();
    workbook_.reset();
    const std::string path = part_->Keep();
    if (visible_ && open_) open_(path);
  }

 private:
  std::string folder_;
  std::string name_;
  XlsxExcel::Opener open_;
  bool visible_ = false;
  std::optional<PartFile> part_;
  std::optional<Workbook> workbook_;
};

}  // namespace

XlsxExcel::XlsxExcel(Place place, const platform::Desktop& desktop, Opener open)
    : place_(std::move(place)), desktop_(desktop), open_(std::move(open)) {}

std::unique_ptr<platform::ExcelApplication> XlsxExcel::CreateApplication() {
  const std::string date = calendar::SolarHijriDate::FromDays(desktop_.Today()).Text();
  return std::make_unique<Application>(
      place_.folder, place_.name + " " + text::Replace(date, "/", "-") + " ", open_);
}

}  // namespace adapters::xlsx
