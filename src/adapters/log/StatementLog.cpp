#include "adapters/log/StatementLog.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace adapters::log {

namespace {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& utf8) {
  return {std::u8string(utf8.begin(), utf8.end())};
}

}  // namespace

StatementLog::StatementLog(std::string file, std::function<Moment()> now, std::ostream& complaints,
                           std::uintmax_t most)
    : file_(std::move(file)), now_(std::move(now)), complaints_(complaints), most_(most) {}

void StatementLog::Write(std::string line) {
  std::ranges::replace_if(
      line, [](char c) { return c == '\n' || c == '\r'; }, ' ');
  line += '\n';
  if (Append(line) || complained_) return;
  complained_ = true;
  complaints_ << "The log cannot be written; the work goes on without it: " << file_ << std::endl;
}

bool StatementLog::Append(const std::string& line) const {
  const fs::path path = PathOf(file_);
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path, error);
  bool isNew = static_cast<bool>(error);
  if (!isNew && size > 0 && size + line.size() > most_) {
    fs::rename(path, PathOf(file_ + ".1"), error);
    if (error) return false;
    isNew = true;
  }
  std::ofstream file(path, std::ios::binary | std::ios::app);
  if (isNew && fs::is_regular_file(path, error)) {
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write, error);
  }
  file << line;
  file.close();
  return file.good();
}

}  // namespace adapters::log
