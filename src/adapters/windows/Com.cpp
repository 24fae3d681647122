#include "adapters/windows/Com.h"

#include <algorithm>
#include <vector>

#include "adapters/windows/Wide.h"

namespace adapters::windows {

namespace {

// Conversions speak English, so that no comma stands in a number and no word for True is local.
constexpr LCID kEnglish = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

struct KnownResult {
  HRESULT result;
  std::int32_t number;
};
constexpr KnownResult kKnownResults[] = {
    {DISP_E_UNKNOWNNAME, 438},
    {DISP_E_MEMBERNOTFOUND, 438},
    {DISP_E_UNKNOWNINTERFACE, 438},
    {DISP_E_TYPEMISMATCH, 13},
    {DISP_E_OVERFLOW, 6},
    {DISP_E_BADINDEX, 9},
    {DISP_E_ARRAYISLOCKED, 10},
    {DISP_E_BADPARAMCOUNT, 450},
    {DISP_E_PARAMNOTOPTIONAL, 449},
    {DISP_E_PARAMNOTFOUND, 448},
    {DISP_E_NONAMEDARGS, 446},
    {DISP_E_DIVBYZERO, 11},
    {REGDB_E_CLASSNOTREG, 429},
    {CO_E_CLASSSTRING, 429},
    {CO_E_SERVER_EXEC_FAILURE, 429},
    {MK_E_UNAVAILABLE, 429},
    {E_OUTOFMEMORY, 7},
    {E_ACCESSDENIED, 70},
    {E_INVALIDARG, 5},
    {E_NOTIMPL, 445},
};

std::string Of(BSTR text) {
  return text == nullptr ? std::string() : Utf8({text, SysStringLen(text)});
}

std::string Described(std::string description, HRESULT result) {
  return description.empty() ? SystemText(result) : description;
}

[[noreturn]] void ThrowExcepInfo(EXCEPINFO& info) {
  if (info.pfnDeferredFillIn != nullptr) info.pfnDeferredFillIn(&info);
  const HRESULT result = info.wCode != 0 ? static_cast<HRESULT>(info.wCode) : info.scode;
  const platform::RuntimeError error(
      info.wCode != 0 ? static_cast<std::int32_t>(info.wCode) : ErrorNumberOf(info.scode),
      Described(Of(info.bstrDescription), result), Of(info.bstrSource));
  SysFreeString(info.bstrSource);
  SysFreeString(info.bstrDescription);
  SysFreeString(info.bstrHelpFile);
  throw error;
}

}  // namespace

Bstr::Bstr(std::string_view utf8) {
  const std::wstring wide = Wide(utf8);
  text_ = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (text_ == nullptr) throw platform::RuntimeError(7, "Out of memory");
}

Variant::Variant(bool value) {
  value_.vt = VT_BOOL;
  value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(std::int32_t value) {
  value_.vt = VT_I4;
  value_.lVal = value;
}

Variant::Variant(double value) {
  value_.vt = VT_R8;
  value_.dblVal = value;
}

Variant::Variant(std::string_view text) {
  value_.bstrVal = Bstr(text).Release();
  value_.vt = VT_BSTR;
}

Variant::Variant(IDispatch* object) {
  value_.vt = VT_DISPATCH;
  value_.pdispVal = object;
  if (object != nullptr) object->AddRef();
}

Variant Variant::Missing() {
  Variant missing;
  missing.value_.vt = VT_ERROR;
  missing.value_.scode = DISP_E_PARAMNOTFOUND;
  return missing;
}

Variant Variant::Null() {
  Variant null;
  null.value_.vt = VT_NULL;
  return null;
}

Variant::Variant(const Variant& other) {
  Check(VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)));
}

Variant Variant::As(VARTYPE type) const {
  Variant other;
  // The conversion only reads its source, though its signature says more.
  Check(VariantChangeTypeEx(&other.value_, const_cast<VARIANT*>(&value_), kEnglish,
                            VARIANT_NOUSEROVERRIDE, type));
  return other;
}

std::int32_t Variant::Number() const {
  return As(VT_I4).value_.lVal;
}

bool Variant::Flag() const {
  return As(VT_BOOL).value_.boolVal != VARIANT_FALSE;
}

std::string Variant::Text() const {
  if (value_.vt == VT_BSTR) return Of(value_.bstrVal);
  if (IsNull()) return {};
  return Of(As(VT_BSTR).value_.bstrVal);
}

ComPtr<IDispatch> Variant::Object() const {
  if (value_.vt == VT_DISPATCH) return ComPtr<IDispatch>::Share(value_.pdispVal);
  if (value_.vt == VT_UNKNOWN) {
    return ComPtr<IUnknown>::Share(value_.punkVal).As<IDispatch>(IID_IDispatch);
  }
  return {};
}

std::string SystemText(HRESULT result) {
  wchar_t* text = nullptr;
  const DWORD units = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::string description = Utf8({text, units});
  LocalFree(text);
  while (!description.empty() && description.back() <= ' ') description.pop_back();
  if (!description.empty()) return description;
  char number[24];
  wsprintfA(number, "Error 0x%08lX", static_cast<DWORD>(result));
  return number;
}

std::int32_t ErrorNumberOf(HRESULT result) {
  const auto* known = std::ranges::find(kKnownResults, result, &KnownResult::result);
  if (known != std::end(kKnownResults)) return known->number;
  if (HRESULT_FACILITY(result) == FACILITY_CONTROL) return HRESULT_CODE(result);
  return static_cast<std::int32_t>(result);
}

void Check(HRESULT result, std::string_view source) {
  if (SUCCEEDED(result)) return;
  ComPtr<IErrorInfo> info;
  std::string description;
  std::string from(source);
  if (GetErrorInfo(0, info.Out()) == S_OK) {
    BSTR text = nullptr;
    if (SUCCEEDED(info->GetDescription(&text))) description = Of(text);
    SysFreeString(std::exchange(text, nullptr));
    if (from.empty() && SUCCEEDED(info->GetSource(&text))) from = Of(text);
    SysFreeString(text);
  }
  throw platform::RuntimeError(ErrorNumberOf(result), Described(description, result), from);
}

Dispatch Dispatch::Create(std::string_view progId) {
  CLSID id;
  HRESULT result = CLSIDFromProgID(Wide(progId).c_str(), &id);
  ComPtr<IDispatch> object;
  if (SUCCEEDED(result)) {
    result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                              IID_IDispatch, object.OutVoid());
  }
  if (FAILED(result)) {
    std::string description = "ActiveX component can't create object: " + std::string(progId);
    // Of a component that is not there, which has many results, there is no more to say.
    if (ErrorNumberOf(result) != platform::kCannotCreateComponent) {
      description += " (" + SystemText(result) + ")";
    }
    throw platform::RuntimeError(platform::kCannotCreateComponent, description);
  }
  return Dispatch(std::move(object));
}

Variant Dispatch::Property(std::string_view name, std::span<const Variant> arguments) const {
  return Invoke(name, DISPATCH_PROPERTYGET | (arguments.empty() ? 0 : DISPATCH_METHOD), arguments);
}

Dispatch Dispatch::Child(std::string_view name, std::span<const Variant> arguments) const {
  Dispatch child(Property(name, arguments).Object());
  if (!child) throw platform::RuntimeError(91, "Object variable not set: " + std::string(name));
  return child;
}

void Dispatch::Put(std::string_view name, const Variant& value) const {
  Invoke(name, DISPATCH_PROPERTYPUT, {&value, 1});
}

void Dispatch::PutReference(std::string_view name, const Variant& value) const {
  Invoke(name, DISPATCH_PROPERTYPUTREF, {&value, 1});
}

Variant Dispatch::Call(std::string_view name, std::span<const Variant> arguments) const {
  return Invoke(name, DISPATCH_METHOD, arguments);
}

Variant Dispatch::Invoke(std::string_view name, WORD kind,
                         std::span<const Variant> arguments) const {
  if (!object_) throw platform::RuntimeError(91, "Object variable not set");
  std::wstring wide = Wide(name);
  wchar_t* names = wide.data();
  DISPID member = DISPID_UNKNOWN;
  const HRESULT found = object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
  if (FAILED(found)) {
    throw platform::RuntimeError(
        ErrorNumberOf(found),
        "Object doesn't support this property or method: " + std::string(name));
  }
  // Automation takes arguments from the last to the first; they stay the caller's.
  std::vector<VARIANT> reversed;
  for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
    reversed.push_back(argument->Raw());
  }
  DISPID put = DISPID_PROPERTYPUT;
  const bool puts = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{reversed.data(), puts ? &put : nullptr, static_cast<UINT>(reversed.size()),
                        puts ? 1U : 0U};
  Variant answer;
  EXCEPINFO info{};
  const HRESULT result = object_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                         answer.Out(), &info, nullptr);
  if (result == DISP_E_EXCEPTION) ThrowExcepInfo(info);
  Check(result, name);
  return answer;
}

}  // namespace adapters::windows
