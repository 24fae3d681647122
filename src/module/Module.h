#pragma once

#include "editor/FormMain.h"
#include "host/DistPromoterProg.h"
#include "host/modMain.h"

namespace module {

/// What all controls of a thread share: the host context, the data environment and the one editor.
/// A composition root makes one, keeps it as long as any of its controls lives, and makes the
/// controls (host::DistPromoterProg) on Main() and Editor().
class Module {
 public:
  explicit Module(const host::Services& services) : main_(services), editor_(main_) {}

  /// Forms are unloaded while their controls still live.
  ~Module() { editor_.Unload(); }
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  host::modMain& Main() { return main_; }
  editor::FormMain& Editor() { return editor_; }

 private:
  host::modMain main_;
  editor::FormMain editor_;
};

}  // namespace module
