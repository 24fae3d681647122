#pragma once

#include "controls/Screen.h"
#include "platform/ComponentFactory.h"
#include "platform/Connection.h"
#include "platform/Desktop.h"
#include "platform/Excel.h"
#include "platform/FileSystem.h"
#include "platform/Progress.h"
#include "platform/ReportEngine.h"

namespace host {

/// Everything outside that the module is given by its composition root. All of it outlives the
/// module.
struct Services {
  controls::Screen& screen;
  platform::ConnectionFactory& connections;
  platform::ComponentFactory& components;
  platform::Desktop& desktop;
  platform::Excel& excel;
  platform::Progress& progress;
  platform::FileSystem& fileSystem;
  platform::ReportEngineFactory& reports;
};

}  // namespace host
