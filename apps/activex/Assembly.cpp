#include "Assembly.h"

#include "Databases.h"
#include "adapters/windows/ComComponents.h"
#include "adapters/windows/ComExcel.h"
#include "adapters/windows/ErrorGuard.h"
#include "adapters/windows/ProgressWindow.h"
#include "adapters/windows/ScriptingFileSystem.h"
#include "adapters/windows/Services.h"
#include "adapters/windows/WinReports.h"
#include "adapters/windows/WinScreen.h"
#include "module/Module.h"

namespace activex {

namespace {

/// The screen within the control's container, which may be given, moved and taken at any time: so
/// it is looked at anew for every form.
class HostedScreen : public adapters::windows::WinScreen {
 public:
  HostedScreen(adapters::windows::ErrorGuard& guard, const platform::Clock& clock,
               const adapters::windows::Theme& theme, const ContainerSite& site)
      : WinScreen(guard, clock, theme), site_(site) {}

  void Show(controls::Form& form, controls::Modality modality) override {
    SetHostWindow(site_.Frame());
    SetHostModal(site_.Modal());
    WinScreen::Show(form, modality);
  }

 private:
  const ContainerSite& site_;
};

}  // namespace

struct Assembly::Parts {
  explicit Parts(ContainerSite& site) : screen{guard, clock, theme, site}, module{services, site} {}

  adapters::windows::ErrorGuard guard;
  adapters::windows::WinClock clock;
  adapters::windows::Theme theme;
  HostedScreen screen;
  Databases connections;
  adapters::windows::ComComponents components;
  adapters::windows::WinKeyboard keyboard;
  adapters::windows::SaveDialog fileDialog;
  adapters::windows::ComExcel excel;
  adapters::windows::ProgressWindow progress{guard, theme};
  adapters::windows::ScriptingFileSystem fileSystem;
  adapters::windows::ShellLauncher launcher;
  adapters::windows::WinReports reports{
      connections, clock,
      [this](const platform::RuntimeError& failure) { guard.Run([&failure] { throw failure; }); }};
  host::Services services{.screen = screen,
                          .connections = connections,
                          .components = components,
                          .clock = clock,
                          .keyboard = keyboard,
                          .fileDialog = fileDialog,
                          .excel = excel,
                          .progress = progress,
                          .fileSystem = fileSystem,
                          .launcher = launcher,
                          .reports = reports};
  module::Module module;
};

Assembly::Assembly(ContainerSite& site) : parts_(std::make_unique<Parts>(site)) {}

Assembly::~Assembly() = default;

host::DistPromoterProg& Assembly::Control() {
  return parts_->module.Control();
}

bool Assembly::Busy() const {
  return parts_->guard.Depth() > 0;
}

void Assembly::UnloadForms() {
  if (!Busy()) parts_->module.Editor().Unload();
}

}  // namespace activex
