// The Linux desktop host: puts the module on Qt screens and a database, embedded or on SQL Server,
// and stands in for the suite that would host its control.

#include <langinfo.h>
#include <QApplication>
#include <QDesktopServices>
#include <QIcon>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "About.h"
#include "EndSignals.h"
#include "ExportProgram.h"
#include "HiddenLine.h"
#include "Office.h"
#include "Options.h"
#include "Tour.h"
#include "Upkeep.h"
#include "adapters/qt/Desktop.h"
#include "adapters/qt/Files.h"
#include "adapters/qt/Places.h"
#include "adapters/qt/QtScreen.h"
#include "adapters/qt/Reports.h"
#include "adapters/qt/Theme.h"
#include "adapters/xlsx/XlsxExcel.h"
#include "apps/connection/ConnectionOption.h"
#include "apps/connection/EmployeeOfUser.h"
#include "apps/version/Version.h"
#include "module/Module.h"
#include "screens/Components.h"
#include "screens/ProgressForm.h"
#include "text/Secrets.h"

namespace {

constexpr char kApplication[] = "promoter-desktop";

/// The control stands on no document and has no surface here: there is nothing to mark as changed,
/// to size or to stand over.
class NoContainer : public platform::ControlSite {
 public:
  void PropertyChanged(std::string_view) override {}
  void SetExtenderHeight(double) override {}
  void SetExtenderWidth(double) override {}
  void SetExtenderVisible(bool) override {}
  void Entered() override {}
};

bool HasDisplay() {
  const auto set = [](const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
  };
  return set("DISPLAY") || set("WAYLAND_DISPLAY") || set("QT_QPA_PLATFORM");
}

QtMessageHandler previousHandler = nullptr;

/// Qt aborts when it cannot open its display. What a screen without one cannot do is not worth a
/// line for every window, nor is a folder that a session without a desktop lacks.
void HandleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (message.startsWith("This plugin does not support")) return;
  if (message.startsWith("QStandardPaths: XDG_RUNTIME_DIR not set")) return;
  if (type == QtFatalMsg && QGuiApplication::platformName().isEmpty()) {
    std::fputs("The display cannot be opened: set DISPLAY, or see all of it with --tour DIR.\n",
               stderr);
    std::_Exit(EXIT_FAILURE);
  }
  previousHandler(type, context, message);
}

/// Where copied lists go: a tour keeps them with its pictures.
adapters::xlsx::XlsxExcel::Place WorkbookPlace(const desktop::Options& options) {
  std::string folder = options.tourDirectory;
  if (folder.empty()) {
    folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
  }
  return {.folder = folder, .name = "promoter-list"};
}

/// With the desktop's program for it.
void OpenWorkbook(const std::string& path) {
  if (QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path)))) return;
  throw platform::RuntimeError(
      platform::kFileNotFound,
      "فايل اكسل ساخته شد، ولي برنامه اي كه آن را باز كند پيدا نشد. " + path, "desktop");
}

std::chrono::milliseconds Uptime() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now().time_since_epoch());
}

/// Everything that the module stands on, for as long as the program runs.
class Desktop {
 public:
  explicit Desktop(const desktop::Options& options)
      : connections_(options, &waiting_),
        excel_(WorkbookPlace(options), session_,
               options.tourDirectory.empty() ? OpenWorkbook : adapters::xlsx::XlsxExcel::Opener()) {
    // The pictures of a tour are always the same.
    if (options.tourDirectory.empty()) screen_.RememberPlaces(places_);
  }

  adapters::qt::ErrorGuard& Guard() { return guard_; }
  module::Module& Module() { return module_; }
  host::DistPromoterProg& Control() { return control_; }
  adapters::qt::QtScreen& Screen() { return screen_; }
  platform::ConnectionFactory& Connections() { return connections_; }

 private:
  adapters::qt::ErrorGuard guard_;
  adapters::qt::SettingsPlaces places_{kApplication};
  adapters::qt::QtDesktop session_;
  adapters::qt::QtScreen screen_{guard_, session_};
  screens::ProgressForm waiting_{screen_, Uptime};  // for statements, also those of an export
  desktop::Connections connections_;
  screens::Components components_{guard_, screen_, connections_};
  adapters::xlsx::XlsxExcel excel_;
  screens::ProgressForm progress_{screen_, Uptime};
  adapters::qt::QtFileSystem fileSystem_;
  adapters::qt::Reports reports_{connections_, fileSystem_, session_, guard_, screen_, progress_};
  NoContainer site_;
  host::Services services_{.screen = screen_,
                           .connections = connections_,
                           .components = components_,
                           .desktop = session_,
                           .excel = excel_,
                           .progress = progress_,
                           .fileSystem = fileSystem_,
                           .reports = reports_};
  module::Module module_{services_};
  host::DistPromoterProg control_{module_.Main(), module_.Editor(), site_};
};

/// Opens the editor as the suite would; true when it is open.
bool OpenEditor(Desktop& desktop, const desktop::Options& options,
                const std::string& connectionString) {
  host::DistPromoterProg& control = desktop.Control();
  desktop.Guard().Run([&] {
    control.SetUserID(options.user);
    control.SetEmployeeID(
        connection::EmployeeOfUser(desktop.Connections(), connectionString, options.user));
    control.SetOLEConnectionString(connectionString);
    if (options.program > 0) {
      control.View(options.program);
    } else {
      control.ClearShow();
    }
  });
  editor::FormMain& editor = desktop.Module().Editor();
  const bool open = editor.Visible();
  desktop.Guard().SetProgramGoesOn(open);
  if (open) {
    desktop::OfferAbout(*desktop.Screen().WindowOf(editor), desktop.Screen(), desktop.Guard(),
                        connectionString);
  }
  return open;
}

int Run(QApplication& application, const desktop::Options& options) {
  Desktop desktop(options);
  const desktop::EndSignals endSignals;
  // Until a form is up, an error ends the program.
  desktop.Guard().SetProgramGoesOn(false);
  const bool tour = !options.tourDirectory.empty();
  std::optional<QTemporaryDir> dropped;
  std::string connectionString;
  const auto prepare = [&] {
    if (tour) dropped.emplace();
    connectionString =
        desktop::OfficeToOpen(options, tour ? dropped->filePath("office.db").toStdString()
                                            : desktop::SampleOfficePath(options));
  };
  if (tour) {
    prepare();  // nobody is there to close a message
  } else {
    desktop.Guard().Run(prepare);
  }
  if (connectionString.empty()) return EXIT_FAILURE;
  if (!tour) {
    return OpenEditor(desktop, options, connectionString) ? application.exec() : EXIT_FAILURE;
  }

  application.setQuitOnLastWindowClosed(false);
  desktop::Tour play(
      options.tourByKeys ? tour::Play::kKeys : tour::Play::kMouse,
      [&desktop](std::int32_t program) { desktop.Control().View(program); },
      QString::fromStdString(options.tourDirectory));
  play.Start();
  if (!OpenEditor(desktop, options, connectionString)) return EXIT_FAILURE;
  application.exec();
  return play.Ended() ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// What is done on the terminal, without screens.
int RunOnTerminal(int argc, char* argv[], const desktop::Options& options) {
  const QCoreApplication application(argc, argv);
  if (options.check) return desktop::CheckOffice(options) ? EXIT_SUCCESS : EXIT_FAILURE;
  if (!options.replayFile.empty()) {
    return desktop::ReplayStatements(options) ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  if (options.loadSample) {
    desktop::LoadSample(options);
  } else {
    desktop::BackUpOffice(options);
  }
  return EXIT_SUCCESS;
}

int RunOnScreen(int argc, char* argv[], const desktop::Options& options) {
  if (!HasDisplay()) {
    if (options.tourDirectory.empty()) {
      std::fputs("There is no display: set DISPLAY, or see all of it with --tour DIR.\n", stderr);
      return EXIT_FAILURE;
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
  }
  previousHandler = qInstallMessageHandler(HandleMessage);
  QApplication application(argc, argv);
  QApplication::setApplicationName(kApplication);
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/promoter.png")));
  adapters::qt::ApplyTheme(application);
  return Run(application, options);
}

/// For a job that nobody looks at: without any window, without a display, and with what such jobs
/// have for a locale.
int RunExport(int argc, char* argv[], const desktop::Options& options) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  std::setlocale(LC_CTYPE, "");
  if (std::string_view(nl_langinfo(CODESET)) != "UTF-8") setenv("LC_ALL", "C.UTF-8", 1);
  previousHandler = qInstallMessageHandler(HandleMessage);
  const QApplication application(argc, argv);
  desktop::ExportProgram(options);
  return EXIT_SUCCESS;
}

bool IsUpkeep(const desktop::Options& options) {
  return options.check || !options.backupFile.empty();
}

/// For the sample office and for copied lists.
bool NeedsHome(const desktop::Options& options) {
  if (!options.replayFile.empty() || !options.tourDirectory.empty()) return false;
  const bool named = !options.database.empty() || !options.connect.empty();
  return !named || (options.exportFile.empty() && !IsUpkeep(options));
}

/// Every user of the machine can list the arguments of a running program.
void HidePasswords(int argc, char* argv[]) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (text::ShownConnection(argument) != argument) std::fill_n(argv[i], argument.size(), '*');
  }
}

/// The connection string of the environment, which no program that this one starts gets to see.
std::string TakeVariable() {
  const char* const value = std::getenv(connection::kVariable);
  std::string taken = value == nullptr ? "" : value;
  unsetenv(connection::kVariable);
  return taken;
}

void ReadConnection(desktop::Options& options, const std::string& variable) {
  if (options.connect.empty() || options.help || options.version) return;
  if (options.connect == "-") options.connect = desktop::ReadHiddenLine("Connection string: ");
  options.connect = connection::ConnectionOf(options.connect, variable);
}

}  // namespace

int main(int argc, char* argv[]) {
  desktop::Options options;
  try {
    const std::string variable = TakeVariable();
    options = desktop::ParseOptions({argv + 1, argv + argc}, !variable.empty());
    HidePasswords(argc, argv);
    ReadConnection(options, variable);
    const char* const log = std::getenv("DISTPROMOTER_LOG");
    if (options.logFile.empty() && log != nullptr) options.logFile = log;
    if (!options.help && !options.version) desktop::RequireEmbedded(options);
  } catch (const options::UsageError& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
  } catch (const connection::ConnectionMissing& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
  }
  if (options.help) {
    std::fputs(desktop::HelpText(), stdout);
    return EXIT_SUCCESS;
  }
  if (options.version) {
    std::fputs(version::Line(kApplication).c_str(), stdout);
    return EXIT_SUCCESS;
  }
  if (NeedsHome(options) && qEnvironmentVariableIsEmpty("HOME")) {
    // Qt would take the root folder for it.
    std::fputs("HOME is not set: the sample office and copied lists have no place.\n", stderr);
    return EXIT_FAILURE;
  }
  try {
    if (!options.exportFile.empty()) return RunExport(argc, argv, options);
    const bool terminal = options.loadSample || !options.replayFile.empty() || IsUpkeep(options);
    return terminal ? RunOnTerminal(argc, argv, options) : RunOnScreen(argc, argv, options);
  } catch (const platform::RuntimeError& error) {
    std::fprintf(stderr, "Error %d: %s\n", error.Number(), error.what());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
  return EXIT_FAILURE;
}
