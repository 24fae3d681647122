#include "Assembly.h"

#include <algorithm>
#include <chrono>
#include <deque>

#include "Databases.h"
#include "adapters/windows/ComComponents.h"
#include "adapters/windows/ComExcel.h"
#include "adapters/windows/Desktop.h"
#include "adapters/windows/ErrorGuard.h"
#include "adapters/windows/Places.h"
#include "adapters/windows/ScriptingFileSystem.h"
#include "adapters/windows/WinReports.h"
#include "adapters/windows/WinScreen.h"
#include "screens/ProgressForm.h"

namespace activex {

namespace {

/// From the control that entered longest ago to the one that entered last.
using Users = std::deque<const ContainerSite*>;

std::chrono::milliseconds Uptime() {
  return std::chrono::milliseconds(GetTickCount64());
}

/// The screen within the containers of the thread's controls.
class HostedScreen : public adapters::windows::WinScreen {
 public:
  HostedScreen(adapters::windows::ErrorGuard& guard, const platform::Desktop& desktop,
               const adapters::windows::Theme& theme, const Users& users)
      : WinScreen(guard, desktop, theme), users_(users) {}

  /// Containers move and turn modal at any time: they are looked at anew for every form.
  void Show(controls::Form& form, controls::Modality modality) override {
    if (!users_.empty()) FollowContainers();
    WinScreen::Show(form, modality);
  }
  /// There is a user.
  void FollowContainers() {
    const auto hasFrame = [](const ContainerSite* site) { return site->Frame() != nullptr; };
    const auto found = std::find_if(users_.rbegin(), users_.rend(), hasFrame);
    const ContainerSite& last = found == users_.rend() ? *users_.back() : **found;
    SetHostWindow(last.Frame());
    SetHostModal(last.Modal());
  }

 private:
  const Users& users_;
};

// What the controls of a thread share, and no other thread's. It has no destructor to run when a
// thread or the library goes: the last control is what ends it.
thread_local Assembly* ofThread = nullptr;

}  // namespace

struct Assembly::Parts {
  Users users;
  adapters::windows::ErrorGuard guard;
  adapters::windows::WinDesktop desktop;
  adapters::windows::Theme theme;
  adapters::windows::RegistryPlaces places;
  HostedScreen screen{guard, desktop, theme, users};
  screens::ProgressForm waiting{screen, Uptime};  // for statements, also those of an export
  Databases connections{&waiting};
  adapters::windows::ComComponents components;
  adapters::windows::ComExcel excel;
  screens::ProgressForm progress{screen, Uptime};
  adapters::windows::ScriptingFileSystem fileSystem;
  adapters::windows::WinReports reports{connections, fileSystem, desktop, guard,
                                        theme,       screen,     progress};
  host::Services services{.screen = screen,
                          .connections = connections,
                          .components = components,
                          .desktop = desktop,
                          .excel = excel,
                          .progress = progress,
                          .fileSystem = fileSystem,
                          .reports = reports};
  module::Module module{services};
};

Assembly::Assembly() : parts_(std::make_unique<Parts>()) {
  // A host that plays by itself wants the same windows each time.
  if (GetEnvironmentVariableW(L"DISTPROMOTER_FORGET_PLACES", nullptr, 0) == 0) {
    parts_->screen.RememberPlaces(parts_->places);
  }
  ofThread = this;
}

Assembly::~Assembly() {
  // A host that is called while the forms go may make the next control.
  ofThread = nullptr;
}

std::shared_ptr<Assembly> Assembly::OfThread() {
  return ofThread ? ofThread->shared_from_this() : std::shared_ptr<Assembly>(new Assembly);
}

host::modMain& Assembly::Main() {
  return parts_->module.Main();
}

editor::FormMain& Assembly::Editor() {
  return parts_->module.Editor();
}

bool Assembly::Busy() const {
  return parts_->guard.Depth() > 0;
}

void Assembly::Join(const ContainerSite& site) {
  Users& users = parts_->users;
  if (std::ranges::find(users, &site) == users.end()) users.push_front(&site);
}

void Assembly::Enter(const ContainerSite& site) {
  std::erase(parts_->users, &site);
  parts_->users.push_back(&site);
}

void Assembly::FollowContainers() {
  if (!parts_->users.empty()) parts_->screen.FollowContainers();
}

void Assembly::Leave(const ContainerSite& site) {
  std::erase(parts_->users, &site);
  FollowContainers();
  if (parts_->users.empty() && !Busy()) Editor().Unload();
}

bool Assembly::IsUsedBeside(const ContainerSite& site) const {
  return std::ranges::any_of(parts_->users, [&](const auto* user) { return user != &site; });
}

}  // namespace activex
