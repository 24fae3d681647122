#include "platform/Connection.h"

namespace platform {

namespace {

class WholeReader : public RowReader {
 public:
  explicit WholeReader(RowSet rows) : columns_(rows.Columns()), rows_(std::move(rows)) {}
  const std::vector<std::string>& Columns() const override { return columns_; }
  bool Read(RowSet& rows, std::size_t) override {
    if (!given_) rows = std::move(rows_);
    given_ = true;
    return false;
  }

 private:
  std::vector<std::string> columns_;
  RowSet rows_;
  bool given_ = false;
};

}  // namespace

std::unique_ptr<RowReader> Connection::Open(std::string_view statement) {
  return std::make_unique<WholeReader>(Execute(statement));
}

}  // namespace platform
