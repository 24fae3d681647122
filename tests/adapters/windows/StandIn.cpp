#include "adapters/windows/StandIn.h"

#include <gtest/gtest.h>

#include "adapters/windows/Wide.h"

namespace adapters::windows {

namespace {

/// The program's thread, as a host has it.
class ComThread : public testing::Environment {
  void SetUp() override { ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr))); }
  void TearDown() override { OleUninitialize(); }
};
[[maybe_unused]] const auto* const kComThread = testing::AddGlobalTestEnvironment(new ComThread);

class Factory : public ComObject<IClassFactory> {
 public:
  explicit Factory(std::function<Variant()> create) : create_(std::move(create)) {}
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    return create_().Object()->QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  std::function<Variant()> create_;
};

}  // namespace

HRESULT StandIn::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
  const std::string name = Utf8(names[0]);
  const bool known = members_.contains(name) || members_.contains(name + "=");
  if (!known && !other_) return DISP_E_UNKNOWNNAME;
  names_.push_back(name);
  *ids = static_cast<DISPID>(names_.size() - 1);
  return S_OK;
}

HRESULT StandIn::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* answer,
                        EXCEPINFO* info, UINT*) {
  const bool puts = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  const std::string name = names_.at(static_cast<std::size_t>(id)) + (puts ? "=" : "");
  const auto member = members_.find(name);
  if (member == members_.end() && !other_) return DISP_E_MEMBERNOTFOUND;
  Arguments arguments(parameters->cArgs);
  for (UINT i = 0; i < parameters->cArgs; ++i) {
    VariantCopy(arguments[parameters->cArgs - 1 - i].Out(), &parameters->rgvarg[i]);
  }
  try {
    const Variant result = member != members_.end()
                               ? member->second(arguments)
                               : other_(name + (kind == DISPATCH_METHOD ? "()" : ""), arguments);
    if (answer != nullptr) VariantCopy(answer, const_cast<VARIANT*>(&result.Raw()));
    return S_OK;
  } catch (const platform::RuntimeError& error) {
    const bool small = error.Number() > 0 && error.Number() < 0x10000;
    info->scode =
        static_cast<SCODE>(static_cast<unsigned>(error.Number()) | (small ? 0x800A0000U : 0U));
    info->bstrDescription = Bstr(error.Description()).Release();
    info->bstrSource = Bstr(error.Source()).Release();
    return DISP_E_EXCEPTION;
  }
}

Variant Recorder(std::vector<std::string>& log, const std::string& way, int* busy) {
  const auto object = StandIn::Make();
  object->OnOther(
      [&log, way, busy](std::string name, const StandIn::Arguments& arguments) -> Variant {
        if (busy != nullptr && *busy > 0) {
          --*busy;
          throw platform::RuntimeError(static_cast<std::int32_t>(RPC_E_CALL_REJECTED), "Busy");
        }
        const bool reads = !name.ends_with("=") && !name.ends_with("()");
        std::string texts;
        for (const Variant& argument : arguments)
          texts += (texts.empty() ? "" : ",") + argument.Text();
        if (name.ends_with("()")) name.insert(name.size() - 1, texts);
        if (name.ends_with("=")) name += texts;
        if (reads)
          return Recorder(log, way + name + (texts.empty() ? "." : "(" + texts + ")."), busy);
        log.push_back(way + name);
        return {};
      });
  return object.Get();
}

Component::Component(const std::string& progId, std::function<Variant()> create) {
  CLSID id;
  // A component of the system keeps its entry: this program's own class object comes first.
  if (CLSIDFromProgID(Wide(progId).c_str(), &id) != S_OK) {
    key_ = Wide(progId);
    wchar_t text[40];
    EXPECT_EQ(CoCreateGuid(&id), S_OK);
    const auto units = static_cast<DWORD>(StringFromGUID2(id, text, 40));
    EXPECT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, (key_ + L"\\CLSID").c_str(), nullptr, REG_SZ, text,
                              units * 2),
              ERROR_SUCCESS);
  }
  const auto factory = ComPtr<IClassFactory>::Adopt(new Factory(std::move(create)));
  EXPECT_EQ(
      CoRegisterClassObject(id, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_),
      S_OK);
}

Component::~Component() {
  CoRevokeClassObject(cookie_);
  if (!key_.empty()) RegDeleteTreeW(HKEY_CLASSES_ROOT, key_.c_str());
}

}  // namespace adapters::windows
