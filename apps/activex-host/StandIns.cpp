#include "StandIns.h"

#include <objbase.h>

#include "adapters/windows/AutomationDispatch.h"
#include "adapters/windows/Com.h"
#include "adapters/windows/ComObject.h"
#include "adapters/windows/Wide.h"
#include "screens/DocumentComponent.h"
#include "screens/MessageComponent.h"

namespace activexhost {

namespace {

using adapters::windows::Check;
using adapters::windows::ComPtr;
using adapters::windows::Wide;

constexpr CLSID kMessageClass = {
    0x5f0e3a5d, 0x66b4, 0x4f3a, {0x9e, 0x0d, 0x2c, 0x8b, 0x1c, 0x6d, 0x7a, 0x41}};
constexpr CLSID kDocumentClass = {
    0x5f0e3a5e, 0x66b4, 0x4f3a, {0x9e, 0x0d, 0x2c, 0x8b, 0x1c, 0x6d, 0x7a, 0x41}};

class Factory final : public adapters::windows::ComObject<IClassFactory> {
 public:
  Factory(screens::Components& components, std::string_view progId,
          std::span<const std::string_view> members)
      : components_(components), progId_(progId), members_(members) {}
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return adapters::windows::MakeDispatch(components_.Create(progId_), members_, progId_)
        ->QueryInterface(id, object);
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
  screens::Components& components_;
  std::string_view progId_;
  std::span<const std::string_view> members_;
};

/// The class of that name; a null one where there is none.
CLSID Installed(std::string_view progId) {
  CLSID found{};
  CLSIDFromProgID(Wide(progId).c_str(), &found);
  return found;
}

void Register(HKEY root, const std::wstring& name, const CLSID& id) {
  wchar_t text[39];
  StringFromGUID2(id, text, 39);
  HKEY key = nullptr;
  Check(HRESULT_FROM_WIN32(RegCreateKeyExW(root, (name + L"\\CLSID").c_str(), 0, nullptr,
                                           REG_OPTION_VOLATILE, KEY_SET_VALUE, nullptr, &key,
                                           nullptr)));
  const LONG set =
      RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text), sizeof text);
  RegCloseKey(key);
  Check(HRESULT_FROM_WIN32(set));
}

}  // namespace

StandIns::StandIns() {
  Add(screens::MessageComponent::kProgId, screens::MessageComponent::kMembers, kMessageClass);
  Add(screens::DocumentComponent::kProgId, screens::DocumentComponent::kMembers, kDocumentClass);
}

void StandIns::Add(std::string_view progId, std::span<const std::string_view> members,
                   const CLSID& id) {
  const CLSID installed = Installed(progId);
  // Our own was left by a run that came to a sudden end.
  if (installed != CLSID{} && installed != id) return;
  Registration& added = registrations_.emplace_back(
      Registration{HKEY_CURRENT_USER, L"Software\\Classes\\" + Wide(progId), 0});
  Register(added.root, added.key, id);
  if (Installed(progId) != id) {
    // Wine looks up classes in the machine's part of the registry only.
    RegDeleteTreeW(added.root, added.key.c_str());
    added.root = HKEY_LOCAL_MACHINE;
    Register(added.root, added.key, id);
  }
  const auto factory = ComPtr<IClassFactory>::Adopt(new Factory(components_, progId, members));
  Check(CoRegisterClassObject(id, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                              &added.cookie));
}

StandIns::~StandIns() {
  for (const Registration& each : registrations_) {
    CoRevokeClassObject(each.cookie);
    RegDeleteTreeW(each.root, each.key.c_str());
  }
}

}  // namespace activexhost
