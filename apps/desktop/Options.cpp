#include "Options.h"

#include <algorithm>

#include "Export.h"
#include "calendar/Gregorian.h"
#include "text/Text.h"

namespace desktop {

namespace {

using options::Quoted;
using options::UsageError;

constexpr int kAnyId = 2'147'483'647;

std::chrono::sys_days Date(const std::string& option, const std::string& value) {
  constexpr std::chrono::sys_days kFirst = std::chrono::year(1900) / 1 / 1;
  constexpr std::chrono::sys_days kLast = std::chrono::year(2100) / 12 / 31;
  const auto day = calendar::GregorianFromText(value);
  if (!day || calendar::GregorianText(*day) != value || *day < kFirst || *day > kLast) {
    throw UsageError(option + " wants a day as yyyy-mm-dd, 1900 to 2100, not " + Quoted(value) +
                     ".");
  }
  return *day;
}

/// It goes into the statements of the schema as it is.
std::string Collation(const std::string& value) {
  constexpr std::size_t kLongest = 128;
  const bool isName = std::ranges::all_of(
      value, [](char c) { return text::IsLatinLetter(c) || text::IsDigit(c) || c == '_'; });
  if (isName && value.size() <= kLongest) return value;
  throw UsageError("--collation wants a collation's name, letters, digits and _, not " +
                   Quoted(value) + ".");
}

void CheckExport(const Options& options) {
  const auto kind = ExportKindOf(options.exportFile);
  if (!options.exportFile.empty() && !kind) {
    throw UsageError("--export wants a file .pdf, .xlsx or .txt, not " +
                     Quoted(options.exportFile) + ".");
  }
  if (!options.exportTemplate.empty() && kind != ExportKind::kPdf) {
    throw UsageError("--template wants --export to a .pdf.");
  }
  if (!options.exportFile.empty() && options.program > 0) {
    throw UsageError("--export names its program itself; --program opens one in the editor.");
  }
}

void CheckTogether(const Options& options) {
  const bool tour = !options.tourDirectory.empty();
  const bool replay = !options.replayFile.empty();
  if (!options.connect.empty() && !options.database.empty()) {
    throw UsageError("--connect and --database exclude each other.");
  }
  if (options.loadSample && options.connect.empty()) {
    throw UsageError("--load-sample wants --connect, which says where to.");
  }
  if (!options.collation.empty() && !options.loadSample) {
    throw UsageError("--collation wants --load-sample.");
  }
  if (replay && options.connect.empty() && options.database.empty()) {
    throw UsageError("--replay wants --connect or --database, which say where to.");
  }
  if (options.tourByKeys && !tour) throw UsageError("--keys wants --tour.");
  if (options.loadSample + replay + tour + !options.exportFile.empty() +
          !options.backupFile.empty() + options.check >
      1) {
    throw UsageError(
        "--load-sample, --replay, --export, --backup, --check and --tour exclude each other.");
  }
  CheckExport(options);
}

}  // namespace

Options ParseOptions(const std::vector<std::string>& arguments, bool hasVariable) {
  Options options;
  for (options::Arguments reading(arguments); reading.Next();) {
    const std::string& option = reading.Option();
    if (option == "--help" || option == "-h") {
      options.help = true;
    } else if (option == "--version") {
      options.version = true;
    } else if (option == "--database") {
      options.database = reading.Value();
    } else if (option == "--connect") {
      options.connect = reading.Value();
    } else if (option == "--load-sample") {
      options.loadSample = true;
    } else if (option == "--collation") {
      options.collation = Collation(reading.Value());
    } else if (option == "--sample-date") {
      options.sampleDate = Date(option, reading.Value());
    } else if (option == "--replay") {
      options.replayFile = reading.Value();
    } else if (option == "--export") {
      options.exportProgram = reading.Number(1, kAnyId);
      options.exportFile = reading.Value();
    } else if (option == "--template") {
      options.exportTemplate = reading.Value();
    } else if (option == "--backup") {
      options.backupFile = reading.Value();
    } else if (option == "--check") {
      options.check = true;
    } else if (option == "--log") {
      options.logFile = reading.Value();
    } else if (option == "--customers") {
      options.customers = reading.Number(1, 1'000'000);
    } else if (option == "--user") {
      options.user = reading.Number(1, kAnyId);
    } else if (option == "--program") {
      options.program = reading.Number(0, kAnyId);
    } else if (option == "--tour") {
      options.tourDirectory = reading.Value();
    } else if (option == "--keys") {
      options.tourByKeys = true;
    } else {
      throw UsageError(Quoted(option) + " is no option; see --help.");
    }
  }
  // Not for a tour: it writes, and an office of its own is what it is expected to write in.
  if (hasVariable && options.connect.empty() && options.database.empty() &&
      options.tourDirectory.empty()) {
    options.connect = "env";
  }
  CheckTogether(options);
  return options;
}

void RequireEmbedded(const Options& options) {
  if (options.backupFile.empty() && !options.check) return;
  if (options.connect.empty() || options.connect.starts_with("sqlite:")) return;
  throw UsageError("--backup and --check are for a database file; a server has its own ways.");
}

const char* HelpText() {
  return R"(promoter-desktop [options]   opens the promoter program editor; in a checkout, ./run [options]

  --database FILE    a database file to work on, instead of the sample office
  --connect SOURCE   another database to work on, by a connection string, ODBC's or OLE DB's, for
                     SQL Server, or sqlite:FILE. SOURCE is one of
                       env    what the environment variable DISTPROMOTER_CONNECTION holds; it also
                              counts without --connect, but for --tour
                       @FILE  what FILE holds
                       -      a line of the standard input; on a terminal you are asked for it,
                              and what you type is not shown
                     or the string itself, which other users of the machine may see for a moment
  --customers N      make the sample office with N customers (5000)
  --sample-date DAY  make the sample office around the day yyyy-mm-dd instead of today
  --user N           the user who works: 1 has every right, 2 those to open and look (1)
  --program N        open program N; without it the editor opens empty
  --tour DIR         play a whole day by itself and save a picture of every screen in DIR
  --keys             with --tour: play it by keys alone, without the mouse
  --load-sample      with --connect: make the sample office there, in a database that has none of
                     its tables (or a new file), all or nothing
  --collation NAME   with --load-sample on a server: the collation of the columns that people read,
                     instead of Persian_100_CI_AS
  --replay FILE      with --connect or --database: send each statement of FILE (batches separated
                     by a line "go") there; print its number of rows and a digest of them, or its
                     error
  --export N FILE    write program N into FILE and end: a report (.pdf), or its visits as a workbook
                     (.xlsx) or as text for a table (.txt); a FILE that is there is replaced once
                     the new one is whole
  --template NAME    with --export to a .pdf: the report template, by its title or its file's name;
                     without it the first one of the office
  --backup FILE      copy the database file, while others work on it, to FILE and end; a FILE that
                     is there is replaced once the copy is whole and checked
  --check            tell what is wrong with the database file (damage, rows that refer to none,
                     tables other than this program's, visits that stand twice) and end
  --log FILE         write each statement, how long it took, how many rows it gave and what it failed
                     with to FILE, which becomes FILE.1 when it has 10 MB; without it, to the file
                     that the environment variable DISTPROMOTER_LOG names, if any
  --windows ...      of ./run alone, as the first option: the Windows control in its trial container,
                     under Wine; what follows goes to the container, --help too
  --version          the version and the commit that it was built from
  --help             this text

The sample office is made on the first run and kept in your data folder, one for each number of
customers and --sample-date. A tour without --database or --connect plays on an office of its own,
which is dropped afterwards. --tour, --load-sample, --replay, --export, --backup and --check need no
display. The exit status is 0, 1 when something failed, which the last lines on the standard error
tell, or --check found something, and 2 for a command line that cannot be understood.
)";
}

}  // namespace desktop
