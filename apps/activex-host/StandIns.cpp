#include "StandIns.h"

#include <objbase.h>

#include <string>

#include "adapters/windows/Com.h"
#include "adapters/windows/ComObject.h"
#include "adapters/windows/MessageComponent.h"

namespace activexhost {

namespace {

using adapters::windows::Check;
using adapters::windows::ComPtr;
using adapters::windows::ErrorGuard;

constexpr wchar_t kNotice[] = L"comNotice.comNTC";
constexpr wchar_t kNoticeKey[] = L"Software\\Classes\\comNotice.comNTC";
constexpr wchar_t kNoticeClassText[] = L"{5F0E3A5D-66B4-4F3A-9E0D-2C8B1C6D7A41}";
constexpr CLSID kNoticeClass = {
    0x5f0e3a5d, 0x66b4, 0x4f3a, {0x9e, 0x0d, 0x2c, 0x8b, 0x1c, 0x6d, 0x7a, 0x41}};

class Factory final : public adapters::windows::ComObject<IClassFactory> {
 public:
  explicit Factory(ErrorGuard& guard) : guard_(guard) {}
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return adapters::windows::MakeMessageComponent(guard_)->QueryInterface(id, object);
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
  ErrorGuard& guard_;
};

bool Installed() {
  CLSID ignored;
  return SUCCEEDED(CLSIDFromProgID(kNotice, &ignored));
}

void Register(HKEY root) {
  HKEY key = nullptr;
  const std::wstring path = std::wstring(kNoticeKey) + L"\\CLSID";
  Check(HRESULT_FROM_WIN32(RegCreateKeyExW(root, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                                           KEY_SET_VALUE, nullptr, &key, nullptr)));
  const LONG set =
      RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(kNoticeClassText),
                     sizeof kNoticeClassText);
  RegCloseKey(key);
  Check(HRESULT_FROM_WIN32(set));
}

}  // namespace

StandIns::StandIns() {
  if (Installed()) return;
  root_ = HKEY_CURRENT_USER;
  Register(root_);
  if (!Installed()) {
    // Wine looks up classes in the machine's part of the registry only.
    RegDeleteTreeW(root_, kNoticeKey);
    root_ = HKEY_LOCAL_MACHINE;
    Register(root_);
  }
  const auto factory = ComPtr<IClassFactory>::Adopt(new Factory(guard_));
  Check(CoRegisterClassObject(kNoticeClass, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                              &cookie_));
}

StandIns::~StandIns() {
  if (root_ == nullptr) return;
  CoRevokeClassObject(cookie_);
  RegDeleteTreeW(root_, kNoticeKey);
}

}  // namespace activexhost
