#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/options/Arguments.h"

namespace desktop {

/// What the command line asks for.
struct Options {
  std::string database;  // file to open; empty: the sample office, unless there is a connection
  std::string connect;   // what --connect says; the connection string once it has been read
                         // (ReadConnection); empty: the database
  int customers = 5000;  // of a sample office that has to be made
  std::optional<std::chrono::sys_days> sampleDate;  // the day it lies around; nothing: today
  std::int32_t user = 1;                            // who works with the module
  std::int32_t program = 0;                         // program to open; 0: the editor opens empty
  std::string tourDirectory;                        // empty: no tour
  bool tourByKeys = false;                          // without the mouse
  bool loadSample = false;                          // make the sample office where `connect` says
  std::string collation;   // of its text columns on a server; empty: as usual
  std::string replayFile;  // statements to send; empty: none
  std::int32_t exportProgram = 0;
  std::string exportFile;      // where it goes; empty: nothing is exported
  std::string exportTemplate;  // of a PDF, by title or file name; empty: the first one
  std::string backupFile;      // where the backup goes; empty: none
  bool check = false;          // tell what is wrong with the database
  std::string logFile;         // where statements are logged; empty: nowhere
  bool help = false;
  bool version = false;
};

/// `arguments` without the program's name; `hasVariable`: the environment has a connection string,
/// which counts where neither an option nor a tour names a database. Throws options::UsageError.
Options ParseOptions(const std::vector<std::string>& arguments, bool hasVariable);

/// Throws options::UsageError when the options want an embedded database and `connect`, as it has
/// been read, is a server.
void RequireEmbedded(const Options& options);

/// What --help prints.
const char* HelpText();

}  // namespace desktop
