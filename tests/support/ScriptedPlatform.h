#pragma once

#include "host/Services.h"
#include "support/Events.h"
#include "support/FakeComponents.h"
#include "support/FakeScreen.h"
#include "support/Fakes.h"
#include "support/ScriptedDatabase.h"

namespace support {

/// Everything outside the module, scripted:
///
///   support::ScriptedPlatform outside;
///   host::modMain module(outside.Services());
///   outside.database.When(Holding("getdate()")).Gives(RowSetOf({"today"}, {{"2025-03-21"}}));
///   outside.components.WillAnswer({Answer::kYes});
///   outside.screen.OnModalForm<batch::FormAddBatch>([](auto& form) { form.cmdCancel.Click(); });
///   ... act ...
///   EXPECT_THAT(outside.database.Log(), ElementsAre("Select ..."));
///   EXPECT_THAT(outside.components.messages, ElementsAre(Message{"title", "text"}));
struct ScriptedPlatform {
  Events events;
  ScriptedDatabase database{events};
  FakeScreen screen{events};
  FakeComponents components{events};
  FakeDesktop desktop;
  FakeExcel excel;
  FakeProgress progress;
  FakeFileSystem fileSystem;
  FakeReports reports;
  FakePropertyBag propertyBag;
  FakeControlSite controlSite;

  /// Empties what the fakes have noted; what they are told to do stays.
  void Forget() {
    events.clear();
    database.ForgetCalls();
    screen.log.clear();
    components.messages.clear();
    components.told.clear();
    components.created.clear();
    desktop.loaded.clear();
    desktop.shown.clear();
    desktop.started.clear();
    excel.written.clear();
    progress.begun.clear();
    progress.advanced.clear();
    reports.log.clear();
    controlSite.log.clear();
  }

  host::Services Services() { return All(database, excel, fileSystem); }
  /// The same with one that is not scripted.
  host::Services Services(platform::ConnectionFactory& real) {
    return All(real, excel, fileSystem);
  }
  host::Services Services(platform::Excel& real) { return All(database, real, fileSystem); }
  host::Services Services(platform::FileSystem& real) { return All(database, excel, real); }

 private:
  host::Services All(platform::ConnectionFactory& connecting, platform::Excel& copying,
                     platform::FileSystem& storing) {
    return {.screen = screen,
            .connections = connecting,
            .components = components,
            .desktop = desktop,
            .excel = copying,
            .progress = progress,
            .fileSystem = storing,
            .reports = reports};
  }
};

}  // namespace support
