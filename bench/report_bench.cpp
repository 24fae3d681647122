// Reports of 500 and of 50,000 visits: the sample office's template that lists a program by days,
// on the embedded database. The last benchmark makes the same PDF from one document that is laid
// out whole, as a measure for pages that are made as they are wanted.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTextDocument>
#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>

#include "adapters/qt/Desktop.h"
#include "adapters/qt/PageOutlets.h"
#include "adapters/qt/QtScreen.h"
#include "adapters/qt/Theme.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "demo/SampleOffice.h"
#include "report/Fill.h"
#include "screens/PreviewForm.h"

namespace {

using adapters::sqlite::SqliteConnection;

constexpr int kVisitsOfDay = 200;
constexpr int kDaysOfMonth = 28;
constexpr std::chrono::sys_days kToday =
    std::chrono::sys_days(std::chrono::year(2025) / std::chrono::November / 22);

/// Nobody stops anything.
class NoProgress : public platform::Progress {
 public:
  void Begin(std::string_view, std::size_t) override {}
  bool Advance(std::size_t) override { return true; }
  void End() override {}
  bool UnderWay() const override { return false; }
};

std::string TwoDigits(int number) {
  return std::to_string(100 + number).substr(1);
}

/// The sample office with two more programs, of 500 and of 50,000 visits.
class Office {
 public:
  Office() {
    demo::SampleOptions options;
    options.today = kToday;
    demo::CreateSampleOffice(File(), options);
    std::ostringstream text;
    text << std::ifstream(PROJECT_FOLDER "/demo/templates/program-by-day.html").rdbuf();
    template_ = text.str();
    if (template_.empty()) throw std::runtime_error("no template");
    SqliteConnection connection(Source());
    for (const int visits : {500, 50'000}) AddProgram(connection, visits);
  }

  report::FilledReport Fill(int visits) const {
    return report::Fill(report::ReportTemplate::Load(template_, "t.html"),
                        std::make_unique<SqliteConnection>(Source()),
                        "fmlID = " + programs_.at(visits), kToday);
  }

 private:
  std::string File() const { return folder_.filePath("office.db").toStdString(); }
  std::string Source() const { return "sqlite:" + File(); }

  void AddProgram(SqliteConnection& connection, int visits) {
    connection.Execute("Insert Into tblDistributionPromoterProgram (CreatorID) Values (1)");
    const std::string program(connection.Execute("Select SCOPE_IDENTITY() as ID").Text(0, 0));
    programs_[visits] = program;
    for (int day = 0; day * kVisitsOfDay < visits; ++day) {
      const std::string date = "'1404/" + TwoDigits(day / kDaysOfMonth + 1) + "/" +
                               TwoDigits(day % kDaysOfMonth + 1) + "'";
      connection.Execute(
          "Insert Into tblDistributionPromoterProgramDetail (ProgramID, PromoterID, "
          "FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence) Select Top " +
          std::to_string(std::min(kVisitsOfDay, visits - day * kVisitsOfDay)) + " " + program +
          ", 10, " + date + ", dbo.getEnglishDate(" + date +
          "), o.ID, 'بررسي موجودي', o.ID From tblOrganization o Order By o.ID");
    }
  }

  QTemporaryDir folder_;
  std::string template_;
  std::map<int, std::string> programs_;  // by how many visits they have
};

const Office& TheOffice() {
  static const Office office;
  return office;
}

/// From the click to the first page on the screen.
void FirstPage(benchmark::State& state) {
  static adapters::qt::ErrorGuard guard;
  static const adapters::qt::QtDesktop desktop;
  static adapters::qt::QtScreen screen(guard, desktop);
  NoProgress progress;
  for (auto _ : state) {
    report::Pages pages(TheOffice().Fill(static_cast<int>(state.range(0))), screen.Letters());
    const screens::PageOutlets outlets;
    screens::PreviewForm form(screen, progress, pages, outlets);
    form.Show(controls::Modality::kModeless);
    benchmark::DoNotOptimize(screen.WindowOf(form)->grab());
    form.Hide();
    state.PauseTiming();
    screen.Unload(form);
    QApplication::processEvents();
    state.ResumeTiming();
  }
}

void LayOut(report::Pages& pages) {
  while (pages.LayOutMore()) {
  }
}

void CountPages(benchmark::State& state) {
  const adapters::qt::PageLetters letters;
  for (auto _ : state) {
    report::Pages pages(TheOffice().Fill(static_cast<int>(state.range(0))), letters);
    LayOut(pages);
    state.counters["pages"] = pages.Count();
  }
}

/// From the query to the last byte.
void Pdf(benchmark::State& state) {
  const adapters::qt::PageLetters letters;
  NoProgress progress;
  for (auto _ : state) {
    report::Pages pages(TheOffice().Fill(static_cast<int>(state.range(0))), letters);
    LayOut(pages);
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    adapters::qt::WritePdf(pages, progress, letters, pdf);
    state.counters["bytes"] = static_cast<double>(pdf.size());
  }
}

double MegabytesAtMost() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stod(line.substr(6)) / 1024;
  }
  throw std::runtime_error("no peak of memory");
}

/// Of the whole program, from the query to the PDF file, which lies on the disk.
void PeakMemory(benchmark::State& state) {
  const adapters::qt::PageLetters letters;
  NoProgress progress;
  TheOffice();
  for (auto _ : state) {
    std::ofstream("/proc/self/clear_refs") << "5";  // the peak begins anew
    report::Pages pages(TheOffice().Fill(static_cast<int>(state.range(0))), letters);
    LayOut(pages);
    QTemporaryDir folder;
    QFile pdf(folder.filePath("report.pdf"));
    if (!pdf.open(QIODevice::WriteOnly)) throw std::runtime_error("no file");
    adapters::qt::WritePdf(pages, progress, letters, pdf);
    state.counters["MB"] = MegabytesAtMost();
  }
}

void PdfOfOneDocument(benchmark::State& state) {
  constexpr double kUnitsOfPoint = 96 / 72.0;
  constexpr int kDpi = 1200;
  for (auto _ : state) {
    report::FilledReport report = TheOffice().Fill(static_cast<int>(state.range(0)));
    std::string html;
    int line = 0;
    while (report.body->Next(html, line)) {
    }
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    QFont font = QApplication::font();
    font.setPointSizeF(8.5);
    document.setDefaultFont(font);
    const QSizeF room(527, 680);  // of a page, in points
    document.setPageSize(room * kUnitsOfPoint);
    document.setHtml(QString::fromStdString(html));
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pdf);
    writer.setResolution(kDpi);
    QPainter painter(&writer);
    painter.scale(kDpi / 96.0, kDpi / 96.0);
    const double height = document.pageSize().height();
    for (int page = 0; page < document.pageCount(); ++page) {
      if (page > 0) writer.newPage();
      painter.save();
      painter.translate(0, -page * height);
      document.drawContents(&painter,
                            QRectF(0, page * height, document.pageSize().width(), height));
      painter.restore();
    }
    painter.end();
    state.counters["pages"] = document.pageCount();
    state.counters["bytes"] = static_cast<double>(pdf.size());
  }
}

BENCHMARK(FirstPage)->Arg(500)->Arg(50'000)->Unit(benchmark::kMillisecond);
BENCHMARK(CountPages)->Arg(50'000)->Unit(benchmark::kMillisecond);
BENCHMARK(PeakMemory)->Arg(50'000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Pdf)->Arg(50'000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(PdfOfOneDocument)->Arg(50'000)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  benchmark::Initialize(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  adapters::qt::ApplyTheme(application);
  benchmark::RunSpecifiedBenchmarks();
}
