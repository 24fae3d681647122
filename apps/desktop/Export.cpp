#include "Export.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <span>
#include <system_error>

#include "calendar/SolarHijriDate.h"
#include "host/HostContext.h"
#include "platform/RuntimeError.h"
#include "platform/ServerErrors.h"
#include "text/Fold.h"

namespace desktop {

namespace {

using platform::Described;
using platform::RuntimeError;

constexpr std::array<std::string_view, 9> kHeadings{
    "رديف", "تاريخ", "روز هفته", "بازارياب", "كد مشتري", "نام مشتري", "فعاليت", "تلفن", "شرح"};
using Line = std::span<const std::string_view>;

/// A visit whose promoter or customer is gone stands there all the same.
platform::RowSet ReadVisits(platform::Connection& connection, std::int32_t program) {
  return connection.Execute(
      "Select d.FarsiVisitDate, e.Name as PromoterName, o.Code as CustomerCode, "
      "ltrim(rtrim(isnull(o.FirstName,'')+' '+isnull(o.Name,''))) as CustomerName, "
      "w.Name as WorkName, o.Phone1, d.Notes "
      "From tblDistributionPromoterProgramDetail d "
      "Left Join vwEmployeeMajor e On e.ID = d.PromoterID "
      "Left Join tblOrganization o On o.ID = d.CustomerID "
      "Left Join tblZomirWorkActivity w On w.ID = o.WorkActivityID "
      "Where d.ProgramID = " +
      std::to_string(program) + " Order By d.VisitDate, e.Name, d.PromoterID, d.Sequence");
}

std::string_view WeekdayOf(std::string_view date) {
  const auto day = calendar::SolarHijriDate::FromText(date);
  return day ? day->WeekdayName() : std::string_view();
}

/// Hands the headings and then each visit to `put`.
void ForEachLine(const platform::RowSet& visits, const std::function<void(Line)>& put) {
  put(kHeadings);
  for (std::size_t row = 0; row < visits.RowCount(); ++row) {
    const std::string number = std::to_string(row + 1);
    std::array<std::string_view, kHeadings.size()> line{number, visits.Text(row, 0),
                                                        WeekdayOf(visits.Text(row, 0))};
    for (std::size_t column = 1; column < visits.ColumnCount(); ++column) {
      line[column + 2] = visits.Text(row, column);
    }
    put(line);
  }
}

std::string_view FileNameOf(std::string_view path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

bool IsWanted(std::string_view title, std::string_view path, std::string_view wanted) {
  const std::string_view name = FileNameOf(path);
  return name == wanted || name.substr(0, name.rfind('.')) == wanted ||
         text::FoldForLookup(title) == text::FoldForLookup(wanted);
}

/// The place of the chosen template as the office keeps it.
std::string ListedTemplate(platform::Connection& connection, const std::string& wanted) {
  const platform::RowSet listed =
      connection.Execute("Select Title, FilePath from tblZomirReportTemplate where FormTypeID = " +
                         std::to_string(host::kFormTypeId));
  std::string titles;
  for (std::size_t row = 0; row < listed.RowCount(); ++row) {
    const std::string_view title = listed.Text(row, 0);
    const std::string_view path = listed.Text(row, 1);
    if (wanted.empty() || IsWanted(title, path, wanted)) return std::string(path);
    titles.append(titles.empty() ? "" : "، ").append("«").append(title).append("»");
  }
  if (listed.RowCount() == 0) {
    throw RuntimeError(platform::kFileNotFound,
                       Described("در اين پايگاه داده قالب گزارشي براي برنامه بازارياب نيست.",
                                 "tblZomirReportTemplate lists none."));
  }
  throw RuntimeError(platform::kFileNotFound,
                     Described("قالب گزارش «" + wanted + "» نيست؛ آنچه هست: " + titles + ".",
                               "No such report template: " + wanted));
}

}  // namespace

std::optional<ExportKind> ExportKindOf(std::string_view file) {
  const std::string name = text::FoldForLookup(FileNameOf(file));
  if (name.ends_with(".pdf")) return ExportKind::kPdf;
  if (name.ends_with(".xlsx")) return ExportKind::kWorkbook;
  if (name.ends_with(".txt")) return ExportKind::kText;
  return std::nullopt;
}

void RequirePlace(const std::string& file) {
  namespace fs = std::filesystem;
  const fs::path folder = fs::path(file).parent_path();
  std::error_code none;
  if (!folder.empty() && !fs::is_directory(folder, none)) {
    throw RuntimeError(platform::kPathNotFound,
                       Described("پوشه اين فايل وجود ندارد.", "Path not found: " + file));
  }
  if (fs::is_directory(file, none)) {
    throw RuntimeError(platform::kPathFileAccess,
                       Described("اين نام يك فايل نيست.", "It is a folder: " + file));
  }
}

void RequireProgram(platform::Connection& connection, std::int32_t program) {
  const std::string id = std::to_string(program);
  const platform::RowSet found =
      connection.Execute("Select ID from tblDistributionPromoterProgram where ID = " + id);
  if (found.RowCount() > 0) return;
  throw RuntimeError(platform::kNoCurrentRecord,
                     Described("برنامه بازارياب " + id + " در اين پايگاه داده نيست.",
                               "There is no program " + id + "."));
}

void ExportWorkbook(platform::Connection& connection, std::int32_t program,
                    platform::Excel& excel) {
  const platform::RowSet visits = ReadVisits(connection, program);
  const std::unique_ptr<platform::ExcelApplication> application = excel.CreateApplication();
  application->AddWorkbook();
  application->SetVisible(true);
  int row = 0;
  ForEachLine(visits, [&](Line line) {
    ++row;
    int column = 0;
    for (const std::string_view cell : line) application->SetCell(row, ++column, cell);
  });
  application->Finish();
}

void ExportText(platform::Connection& connection, std::int32_t program, platform::FileSystem& files,
                const std::string& file) {
  const platform::RowSet visits = ReadVisits(connection, program);
  const std::unique_ptr<platform::TextFile> written = files.CreateTextFile(file);
  std::string text;
  ForEachLine(visits, [&](Line line) {
    text.clear();
    for (const std::string_view cell : line) {
      if (!text.empty()) text += '\t';
      const std::size_t begin = text.size();
      text += cell;
      std::replace_if(
          text.begin() + static_cast<std::ptrdiff_t>(begin), text.end(),
          [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    }
    written->Write(text);
    written->WriteLineBreak();
  });
  written->Close();
}

std::string TemplatePath(platform::Connection& connection, platform::FileSystem& files,
                         const std::string& wanted) {
  std::string listed = ListedTemplate(connection, wanted);
  if (files.FileExists(listed)) return listed;
  const platform::RowSet base = connection.Execute(
      "Select Isnull(BasePath,'') as InstallDirectory from vwZomirBasePath Where ID=1 ");
  std::string path = (base.RowCount() == 0 ? std::string() : std::string(base.Text(0, 0))) + listed;
  if (files.FileExists(path)) return path;
  throw RuntimeError(
      platform::kFileNotFound,
      Described("فايل چاپي در مسير مورد نظر «" + platform::LeftToRight(path) + "» وجود ندارد.",
                "File not found: " + path));
}

void ExportReport(platform::ReportEngineFactory& reports, const std::string& templatePath,
                  const std::string& connectionString, std::int32_t program) {
  const std::unique_ptr<platform::ReportEngine> report = reports.Create();
  report->LoadReportFile(templatePath);
  report->SetConnectionString(connectionString);
  report->SetSelectionFormula(1, "fmlID = " + std::to_string(program));
  report->Produce(platform::ReportOutput::kPrinter);
}

}  // namespace desktop
