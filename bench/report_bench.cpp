// The preview of a program of 2,000 visits, step by step: the template of the sample office that
// lists a program by days, on the sample office's database.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>
#include <memory>
#include <stdexcept>

#include "adapters/qt/PageOutlets.h"
#include "adapters/qt/Theme.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"
#include "report/Fill.h"

namespace {

using report::FilledReport;

constexpr int kProgram = 14;  // which the sample office leaves without visits
constexpr int kDays = 10;
constexpr int kVisitsOfDay = 200;
constexpr std::chrono::sys_days kToday =
    std::chrono::sys_days(std::chrono::year(2025) / std::chrono::November / 22);

class Office {
 public:
  Office() {
    demo::SampleOptions options;
    options.today = kToday;
    demo::CreateSampleOffice(File(), options);
    for (int day = 1; day <= kDays; ++day) {
      const std::string number = std::to_string(100 + day).substr(1);
      connection_.Execute(
          "Insert Into tblDistributionPromoterProgramDetail (ProgramID, PromoterID, "
          "FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence) Select Top " +
          std::to_string(kVisitsOfDay) + " " + std::to_string(kProgram) + ", 10, '1404/10/" +
          number + "', dbo.getEnglishDate('1404/10/" + number +
          "'), ID, 'بررسي موجودي', ID From tblOrganization Order By tblOrganization.ID");
    }
    QFile file(QStringLiteral(PROJECT_FOLDER "/demo/templates/program-by-day.html"));
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("no template");
    template_ = file.readAll().toStdString();
  }

  FilledReport Fill() {
    return report::Fill(report::ReportTemplate::Load(template_, "t.html"),
                        std::make_unique<adapters::sqlite::SqliteConnection>("sqlite:" + File()),
                        "fmlID = " + std::to_string(kProgram), kToday);
  }

 private:
  std::string File() const { return folder_.filePath("office.db").toStdString(); }

  QTemporaryDir folder_;
  adapters::sqlite::SqliteConnection connection_{"sqlite:" + File()};
  std::string template_;
};

Office& TheOffice() {
  static Office office;
  return office;
}

report::Pages Pages() {
  static const adapters::qt::PageLetters letters;
  return report::Pages(TheOffice().Fill(), letters);
}

/// What nobody stops.
class NoProgress : public platform::Progress {
 public:
  void Begin(std::string_view, std::size_t) override {}
  bool Advance(std::size_t) override { return true; }
  void End() override {}
  bool UnderWay() const override { return false; }
};

/// From the click to the first page.
void BM_FirstPage(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(Pages().At(0).texts.size());
}

void BM_Layout(benchmark::State& state) {
  int pages = 0;
  for (auto _ : state) {
    report::Pages all = Pages();
    while (all.LayOutMore()) continue;
    pages = all.Count();
  }
  state.counters["pages"] = pages;
}

void BM_Pdf(benchmark::State& state) {
  const adapters::qt::PageLetters letters;
  report::Pages pages = Pages();
  while (pages.LayOutMore()) continue;
  NoProgress progress;
  for (auto _ : state) {
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    adapters::qt::WritePdf(pages, progress, letters, pdf);
    state.counters["bytes"] = static_cast<double>(pdf.size());
  }
}

BENCHMARK(BM_FirstPage)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Layout)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Pdf)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  benchmark::Initialize(&argc, argv);
  QApplication application(argc, argv);
  adapters::qt::ApplyTheme(application);
  benchmark::RunSpecifiedBenchmarks();
}
