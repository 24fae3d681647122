// Report templates: whatever the file says, it is refused with words or filled, and the database
// is only read.

#include <algorithm>
#include <optional>

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
  explicit ReadOnly(adapters::sqlite::SqliteConnection& embedded) : embedded_(embedded) {}
  platform::RowSet Execute(std::string_view statement) override {
    fuzz::Require(false, "a report read a query whole", statement);
    return {};
  }
  std::unique_ptr<platform::RowReader> Open(std::string_view statement) override {
    const std::size_t tables = text::Replace(statement, "tbl", "tbl+").size() - statement.size() +
                               text::Replace(statement, "vw", "vw+").size() - statement.size();
    if (tables > 4) throw platform::RuntimeError(8, "too long for a test");
    auto reader = embedded_.Open(statement);
    fuzz::Require(!reader->Columns().empty(), "a report wrote", statement);
    return reader;
  }
  std::int32_t CallProcedure(std::string_view, std::span<const platform::Parameter>) override {
    fuzz::Require(false, "a report called a procedure");
    return 0;
  }

 private:
  adapters::sqlite::SqliteConnection& embedded_;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace report;
  static fuzz::Office office;
  static adapters::sqlite::SqliteConnection embedded("sqlite:" + office.file);
  try {
    const ReportTemplate report = ReportTemplate::Load(fuzz::Text(data, size), "t.html");
    const FilledReport filled = Fill(report, std::make_unique<ReadOnly>(embedded), "fmlID = 1",
                                     std::chrono::year(2025) / std::chrono::November / 22);
    // A section may stand in itself: its text grows as its rows to the power of that.
    constexpr std::size_t kEnough = 1 << 20;
    std::string html;
    int line = 0;
    std::size_t pieces = 0;
    std::optional<MarkupPlace> middle;
    std::size_t length = 0;
    while (html.size() < kEnough && ++pieces < kEnough && filled.body->Next(html, line)) {
      if (pieces != 10) continue;
      middle = filled.body->Where();
      length = html.size();
    }
    if (middle && html.size() < kEnough && pieces < kEnough) {
      filled.body->GoTo(*middle);
      std::string rest;
      while (filled.body->Next(rest, line)) {
      }
      fuzz::Require(rest == html.substr(length), "a place gives the same rest", rest);
    }
    const std::string& body = report.Body().text;
    fuzz::Require(body.find("{{") != std::string::npos || html == body,
                  "a text without tags stands as it is", html);
  } catch (const ReportError& error) {
    fuzz::Require(!error.Words().empty() && !error.Technical().empty(), "a refusal says why");
  }
  return 0;
}
