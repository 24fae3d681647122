// Opens a program of a sample office in the module, without a screen, and prints its header and the
// number of its visits:
//
//   embed-cpp office.db 8

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>

#include "Console.h"
#include "demo/SampleOffice.h"
#include "module/Module.h"

namespace {

void PrintProgram(const std::string& file, int program) {
  console::Screen screen;
  console::Connections connections;
  console::Nothing nothing;
  console::Site site;
  module::Module module({.screen = screen,
                         .connections = connections,
                         .components = nothing,
                         .desktop = nothing,
                         .excel = nothing,
                         .progress = nothing,
                         .fileSystem = nothing,
                         .reports = nothing});
  host::DistPromoterProg control(module.Main(), module.Editor(), site);
  control.SetUserID(1);
  control.SetEmployeeID(1);
  control.SetPositionID(1);
  control.SetOLEConnectionString("sqlite:" + file);
  control.View(program);  // false in every case; what fails throws

  editor::FormMain& editor = module.Editor();
  std::printf("program:     %s\n", editor.txtID.Text().c_str());
  std::printf("branch:      %s\n", editor.sltBranch.DisplayText().c_str());
  std::printf("description: %s\n", editor.txtDescription.Text().c_str());
  const platform::RowSet visits =
      connections.Create("sqlite:" + file)
          ->Execute(
              "SELECT Count(*) FROM tblDistributionPromoterProgramDetail"
              " WHERE ProgramID = " +
              std::to_string(program));
  std::printf("visits:      %s\n", std::string(visits.Text(0, 0)).c_str());
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc != 3) {
    std::fputs("embed-cpp FILE PROGRAM\n", stderr);
    return 2;
  }
  try {
    if (!std::filesystem::exists(argv[1])) {
      demo::CreateSampleOffice(
          argv[1],
          {.customers = 200,
           .today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()),
           .basePath = {}});
    }
    PrintProgram(argv[1], std::atoi(argv[2]));
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return EXIT_FAILURE;
  }
}
