#pragma once

#include "editor/FormMain.h"
#include "host/DistPromoterProg.h"
#include "host/modMain.h"

namespace module {

/// The whole module on one set of services: the shared state, the editor and the control. A
/// composition root makes one and keeps it as long as its control lives.
class Module {
 public:
  Module(const host::Services& services, platform::ControlSite& site)
      : main_(services), editor_(main_), control_(main_, editor_, site) {}

  /// Forms are unloaded while their controls still live.
  ~Module() { editor_.Unload(); }
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  host::DistPromoterProg& Control() { return control_; }
  editor::FormMain& Editor() { return editor_; }

 private:
  host::modMain main_;
  editor::FormMain editor_;
  host::DistPromoterProg control_;
};

}  // namespace module
