#pragma once

#include "controls/Screen.h"
#include "platform/Clock.h"
#include "platform/ComponentFactory.h"
#include "platform/Connection.h"
#include "platform/Excel.h"
#include "platform/FileDialog.h"
#include "platform/FileSystem.h"
#include "platform/Keyboard.h"
#include "platform/ProcessLauncher.h"
#include "platform/Progress.h"
#include "platform/ReportEngine.h"

namespace host {

/// Everything outside that the module is given by its composition root. All of it outlives the
/// module.
struct Services {
  controls::Screen& screen;
  platform::ConnectionFactory& connections;
  platform::ComponentFactory& components;
  platform::Clock& clock;
  platform::Keyboard& keyboard;
  platform::FileDialog& fileDialog;
  platform::Excel& excel;
  platform::Progress& progress;
  platform::FileSystem& fileSystem;
  platform::ProcessLauncher& launcher;
  platform::ReportEngineFactory& reports;
};

}  // namespace host
