#pragma once

#include "Activation.h"
#include "Assembly.h"
#include "Automation.h"
#include "Connections.h"
#include "ContainerSite.h"
#include "Persistence.h"
#include "Picture.h"
#include "QuickActivation.h"
#include "host/DistPromoterProg.h"

namespace activex {

/// One control in a container, with the thread's module behind it. This is its identity; the
/// interfaces are in its parts. Made with one reference; the last one released ends it.
class Control final : public IUnknown {
 public:
  /// `outer` is the object that aggregates the control, or null. Throws RuntimeError.
  explicit Control(IUnknown* outer);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  /// These count for the control itself; its parts ask and count at the outer object.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() noexcept override;

 private:
  ~Control();
  void End() noexcept;
  void Leave() noexcept;
  bool MayClose();
  static void CALLBACK EndWhenIdle(HWND waiting, UINT message, UINT_PTR timer, DWORD time);
  void OnPropertyChanged(std::string_view key);
  void Paint();
  void* Find(REFIID id);

  Lock lock_;
  ULONG references_ = 1;
  bool painting_ = false;
  IUnknown& whole_;
  std::shared_ptr<Assembly> assembly_ = Assembly::OfThread();
  ContainerSite site_;
  host::DistPromoterProg control_;
  Automation automation_;
  Persistence persistence_;
  Connections connections_;
  Activation activation_;
  Picture picture_;
  QuickActivation quick_;
};

}  // namespace activex
