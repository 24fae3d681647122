// What COM and regsvr32 call in the library.

#include <olectl.h>

#include "Control.h"
#include "DistPromoterProg_h.h"
#include "Guard.h"
#include "Registration.h"

namespace activex {

namespace {

class ControlFactory final : public Counted<IClassFactory> {
 public:
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id,
                                           void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    // Who aggregates must take the control's own IUnknown.
    if (outer != nullptr && id != IID_IUnknown) return CLASS_E_NOAGGREGATION;
    return Guarded([&] {
      const auto control = ComPtr<Control>::Adopt(new Control(outer));
      return control->QueryInterface(id, object);
    });
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override {
    Lock::Count(lock ? 1 : -1);
    return S_OK;
  }
};

bool MeansTheUser(LPCWSTR commandLine) {
  return commandLine != nullptr && lstrcmpiW(commandLine, L"user") == 0;
}

}  // namespace

}  // namespace activex

STDAPI DllGetClassObject(REFCLSID id, REFIID interfaceId, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (id != CLSID_DistPromoterProg) return CLASS_E_CLASSNOTAVAILABLE;
  return activex::Guarded([&] {
    const auto factory =
        activex::ComPtr<activex::ControlFactory>::Adopt(new activex::ControlFactory);
    return factory->QueryInterface(interfaceId, object);
  });
}

STDAPI DllCanUnloadNow() {
  return activex::Lock::Count(0) == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return activex::Guarded([] {
    const HRESULT result = activex::Register(activex::Scope::kMachine);
    return result == E_ACCESSDENIED ? activex::Register(activex::Scope::kUser) : result;
  });
}

STDAPI DllUnregisterServer() {
  return activex::Guarded([] {
    const HRESULT user = activex::Unregister(activex::Scope::kUser);
    const HRESULT machine = activex::Unregister(activex::Scope::kMachine);
    return FAILED(machine) ? machine : user;
  });
}

/// regsvr32's /i:user; any other word is not ours.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  if (!activex::MeansTheUser(commandLine)) return E_INVALIDARG;
  return activex::Guarded([&] {
    return install ? activex::Register(activex::Scope::kUser)
                   : activex::Unregister(activex::Scope::kUser);
  });
}
