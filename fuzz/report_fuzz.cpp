// Report templates: whatever the file says, it is refused with words or filled, and the database
// is only read.

#include <algorithm>

#include "Fuzz.h"
#include "Office.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "report/Fill.h"
#include "report/ReportError.h"
#include "text/Text.h"

namespace {

/// Lets queries through, none of so many tables that it would take long.
class ReadOnly : public platform::Connection {
 public:
  platform::RowSet Execute(std::string_view statement) override {
    const std::size_t tables = text::Replace(statement, "tbl", "tbl+").size() - statement.size() +
                               text::Replace(statement, "vw", "vw+").size() - statement.size();
    if (tables > 4) throw platform::RuntimeError(8, "too long for a test");
    platform::RowSet rows = embedded_.Execute(statement);
    fuzz::Require(rows.ReturnsRows(), "a report wrote", statement);
    return rows;
  }
  std::int32_t CallProcedure(std::string_view, std::span<const platform::Parameter>) override {
    fuzz::Require(false, "a report called a procedure");
    return 0;
  }

 private:
  fuzz::Office office_;
  adapters::sqlite::SqliteConnection embedded_{"sqlite:" + office_.file};
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace report;
  static ReadOnly connection;
  try {
    const ReportTemplate report = ReportTemplate::Load(fuzz::Text(data, size), "t.html");
    const FilledReport filled =
        Fill(report, connection, "fmlID = 1", std::chrono::year(2025) / std::chrono::November / 22);
    const std::string& body = report.Body().text;
    fuzz::Require(body.find("{{") != std::string::npos || filled.html == body,
                  "a text without tags stands as it is", filled.html);
  } catch (const ReportError& error) {
    fuzz::Require(!error.Words().empty() && !error.Technical().empty(), "a refusal says why");
  }
  return 0;
}
