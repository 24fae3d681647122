// The trial container: shows the control as a program of the suite would host it.

#include <windows.h>

#include <ole2.h>
#include <shellapi.h>

#include <cstdlib>
#include <functional>
#include <list>
#include <optional>
#include <string>
#include <vector>

#include "Container.h"
#include "Office.h"
#include "StandIns.h"
#include "Terminal.h"
#include "Tour.h"
#include "adapters/windows/Wide.h"
#include "apps/about/About.h"
#include "apps/activex/Databases.h"
#include "apps/connection/ConnectionOption.h"
#include "apps/connection/EmployeeOfUser.h"
#include "apps/options/Arguments.h"
#include "apps/version/Version.h"
#include "platform/RuntimeError.h"

namespace {

using adapters::windows::Utf8;
using adapters::windows::Wide;

constexpr char kHelp[] =
    R"(activex-host [options]   a window with the control on it

  --connect SOURCE   where to work, by an OLE DB connection string, or sqlite: and a file; the
                     sample office without. SOURCE is one of
                       env    what the environment variable DISTPROMOTER_CONNECTION holds; it also
                              counts without --connect, but for --tour
                       @FILE  what FILE holds
                     or the string itself
  --user N           the user who works: 1 has every right, 2 those to open and look (1)
  --program N        open program N at once; without it the editor opens empty
  --tour DIR         play a whole day by itself and save a picture of every screen in DIR
  --keys             with --tour: play it by keys alone, without the mouse
  --make-office FILE make a sample office in FILE and end
  --version          the version and the commit it was built from
  --help             this text
)";

struct Options {
  std::string connect;  // what --connect says
  std::int32_t user = 1;
  std::int32_t program = 0;
  std::string tourFolder;
  bool tourByKeys = false;
  std::string newOffice;
  bool help = false;
  bool version = false;
};

Options Parse(const std::vector<std::string>& arguments) {
  constexpr int kAnyId = 2'147'483'647;
  Options options;
  for (options::Arguments reading(arguments); reading.Next();) {
    const std::string& option = reading.Option();
    if (option == "--help") {
      options.help = true;
    } else if (option == "--version") {
      options.version = true;
    } else if (option == "--keys") {
      options.tourByKeys = true;
    } else if (option == "--connect") {
      options.connect = reading.Value();
    } else if (option == "--user") {
      options.user = reading.Number(1, kAnyId);
    } else if (option == "--program") {
      options.program = reading.Number(0, kAnyId);
    } else if (option == "--tour") {
      options.tourFolder = reading.Value();
    } else if (option == "--make-office") {
      options.newOffice = reading.Value();
    } else {
      throw options::UsageError(options::Quoted(option) + " is no option; see --help.");
    }
  }
  if (options.tourByKeys && options.tourFolder.empty()) {
    throw options::UsageError("--keys wants --tour.");
  }
  return options;
}

/// As Windows writes it.
std::wstring FullPath(const std::string& path) {
  const std::wstring given = Wide(path);
  std::wstring full(GetFullPathNameW(given.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(
      GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full;
}

/// Made when it is not there.
std::string FullFolder(const std::string& folder) {
  const std::wstring full = FullPath(folder);
  CreateDirectoryW(full.c_str(), nullptr);
  return Utf8(full);
}

std::string Variable() {
  const wchar_t* const value = _wgetenv(Wide(connection::kVariable).c_str());
  return value == nullptr ? "" : Utf8(value);
}

/// The office that a tour plays on is its own and new.
std::string OfficeFor(const Options& options, const std::string& tourFolder) {
  const std::string variable = Variable();
  if (!options.connect.empty()) return connection::ConnectionOf(options.connect, variable);
  if (!variable.empty() && tourFolder.empty()) return connection::ConnectionOf("env", variable);
  const std::string path =
      tourFolder.empty() ? activexhost::SampleOfficePath() : tourFolder + "\\office.db";
  if (!tourFolder.empty()) {
    // A tour that was stopped left its log: read with another office it would damage that.
    for (const char* part : {"", "-wal", "-shm"}) DeleteFileW(Wide(path + part).c_str());
  }
  activexhost::EnsureSampleOffice(path);
  return "sqlite:" + path;
}

about::Facts FactsOf(const std::string& office) {
  constexpr std::string_view kEmbedded = "sqlite:";
  about::Facts facts{.program = "activex-host", .toolkit = {}, .office = office, .notices = {}};
  if (office.starts_with(kEmbedded)) facts.office = Utf8(FullPath(office.substr(kEmbedded.size())));
  const std::wstring notices =
      FullPath(activexhost::ProgramFolder() + "..\\THIRD-PARTY-NOTICES.txt");
  if (GetFileAttributesW(notices.c_str()) != INVALID_FILE_ATTRIBUTES) facts.notices = Utf8(notices);
  return facts;
}

using Containers = std::list<activexhost::Container>;

void PumpMessages(Containers& containers) {
  MSG message;
  while (!containers.empty() && GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
    std::erase_if(containers, [](const auto& container) { return container.Closed(); });
  }
}

int Run(const Options& options) {
  if (!options.newOffice.empty()) {
    activexhost::EnsureSampleOffice(options.newOffice);
    return EXIT_SUCCESS;
  }
  const bool touring = !options.tourFolder.empty();
  const std::string tourFolder = touring ? FullFolder(options.tourFolder) : std::string();
  activexhost::Login login;
  login.connectionString = OfficeFor(options, tourFolder);
  activexhost::BringUpToDate(login.connectionString);
  login.user = options.user;
  activex::Databases databases;
  login.employee = connection::EmployeeOfUser(databases, login.connectionString, options.user);
  // For the control: the pictures of a tour are always the same.
  if (touring) SetEnvironmentVariableW(L"DISTPROMOTER_FORGET_PLACES", L"1");
  activexhost::StandIns standIns;
  const auto tellAbout = [&] {
    standIns.Guard().Run([&] { about::Show(standIns.Screen(), FactsOf(login.connectionString)); });
  };
  Containers containers;
  const std::function<void()> open = [&] {
    const HWND window =
        containers.emplace_back(login, activexhost::MenuCalls{open, tellAbout}).Window();
    const int place = 20 + 200 * static_cast<int>(containers.size() - 1);
    SetWindowPos(window, nullptr, place, place, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    ShowWindow(window, SW_SHOWNORMAL);
    UpdateWindow(window);
  };
  open();
  activexhost::Container& container = containers.front();
  std::optional<activexhost::Tour> tour;
  if (touring) {
    tour.emplace(
        options.tourByKeys ? tour::Play::kKeys : tour::Play::kMouse,
        [&](std::int32_t program) { container.View(program); }, tourFolder);
    tour->Start();
  }
  if (options.program > 0) {
    container.View(options.program);
  } else {
    container.ClearShow();
  }
  if (touring && container.Failed()) return EXIT_FAILURE;
  PumpMessages(containers);
  return !touring || tour->Ended() ? EXIT_SUCCESS : EXIT_FAILURE;
}

std::vector<std::string> Arguments() {
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8(words[i]));
  LocalFree(words);
  return arguments;
}

}  // namespace

int main() {
  const activexhost::Terminal terminal;
  Options options;
  try {
    options = Parse(Arguments());
  } catch (const options::UsageError& error) {
    terminal.Complain(std::string(error.what()) + "\n");
    return 2;
  }
  if (options.help) {
    terminal.Say(kHelp);
    return EXIT_SUCCESS;
  }
  if (options.version) {
    terminal.Say(version::Line("activex-host"));
    return EXIT_SUCCESS;
  }
  OleInitialize(nullptr);
  int result = EXIT_FAILURE;
  try {
    result = Run(options);
  } catch (const platform::RuntimeError& error) {
    terminal.Complain(std::string(error.what()) + " (" + std::to_string(error.Number()) + ")\n");
  } catch (const connection::ConnectionMissing& error) {
    terminal.Complain(std::string(error.what()) + "\n");
  }
  OleUninitialize();
  return result;
}
