#include "adapters/windows/AutomationDispatch.h"

#include <algorithm>
#include <exception>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "adapters/windows/ComObject.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

namespace {

using platform::AutomationValue;

/// Members are numbered from 1, in the order of their names.
class AutomationDispatch final : public ComObject<IDispatch> {
 public:
  AutomationDispatch(std::unique_ptr<platform::AutomationObject> object,
                     std::span<const std::string_view> members, std::string_view source)
      : object_(std::move(object)), members_(members), source_(source) {}

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/,
                                        ITypeInfo** /*info*/) noexcept override {
    return DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT count,
                                          LCID /*locale*/, DISPID* ids) noexcept override {
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const auto found = std::ranges::find_if(members_, [&](std::string_view member) {
      return CompareStringOrdinal(Wide(member).c_str(), -1, names[0], -1, TRUE) == CSTR_EQUAL;
    });
    if (found == members_.end()) return DISP_E_UNKNOWNNAME;
    ids[0] = static_cast<DISPID>(found - members_.begin()) + 1;
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID /*reserved*/, LCID /*locale*/, WORD kind,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                                   UINT* /*argument*/) noexcept override {
    if (member < 1 || member > static_cast<DISPID>(members_.size())) return DISP_E_MEMBERNOTFOUND;
    if (parameters == nullptr) return E_INVALIDARG;
    try {
      return Do(members_[static_cast<std::size_t>(member) - 1], kind, *parameters, result);
    } catch (const platform::RuntimeError& error) {
      if (error.Number() == platform::kNoSuchMember) return DISP_E_MEMBERNOTFOUND;
      return Raise(info, error.Number(), error.Description());
    } catch (const std::exception& error) {
      return Raise(info, platform::kInvalidProcedureCall, error.what());
    }
  }

 private:
  HRESULT Do(std::string_view member, WORD kind, const DISPPARAMS& parameters, VARIANT* result) {
    std::vector<AutomationValue> arguments;
    for (UINT at = parameters.cArgs; at > 0; --at) {  // the last one stands first
      Variant value;
      Check(VariantCopyInd(value.Out(), &parameters.rgvarg[at - 1]));
      arguments.push_back(FromVariant(value));
    }
    if ((kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
      if (arguments.size() != 1) return DISP_E_BADPARAMCOUNT;
      object_->Put(member, arguments.front());
      return S_OK;
    }
    if (parameters.cNamedArgs > 0) return DISP_E_NONAMEDARGS;
    return Give(ToVariant(Answer(member, kind, arguments)), result);
  }

  /// Callers that do not know which of the two a member is ask for both.
  AutomationValue Answer(std::string_view member, WORD kind,
                         std::span<const AutomationValue> arguments) {
    if ((kind & DISPATCH_METHOD) == 0) return object_->Get(member);
    try {
      return object_->Call(member, arguments);
    } catch (const platform::RuntimeError& error) {
      const bool other = error.Number() == platform::kNoSuchMember;
      if (!other || (kind & DISPATCH_PROPERTYGET) == 0) throw;
    }
    return object_->Get(member);
  }

  /// Copying only reads its source, though its signature says more.
  static HRESULT Give(const Variant& value, VARIANT* result) {
    if (result == nullptr) return S_OK;
    return VariantCopy(result, const_cast<VARIANT*>(&value.Raw()));
  }

  HRESULT Raise(EXCEPINFO* info, std::int32_t number, std::string_view description) const {
    if (info == nullptr) return E_FAIL;
    *info = {};
    info->scode = MAKE_SCODE(SEVERITY_ERROR, FACILITY_CONTROL, static_cast<WORD>(number));
    info->bstrSource = Bstr(source_).Release();
    info->bstrDescription = Bstr(description).Release();
    return DISP_E_EXCEPTION;
  }

  std::unique_ptr<platform::AutomationObject> object_;
  std::span<const std::string_view> members_;
  std::string_view source_;
};

}  // namespace

Variant ToVariant(const AutomationValue& value) {
  return std::visit(
      [](const auto& held) -> Variant {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::monostate>) {
          return {};
        } else {
          return held;
        }
      },
      value);
}

AutomationValue FromVariant(const Variant& value) {
  switch (value.Type()) {
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_BOOL:
      return value.Flag();
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_INT:
      return value.Number();
    case VT_BSTR:
      return value.Text();
    default: {
      Variant number;
      Check(VariantChangeType(number.Out(), const_cast<VARIANT*>(&value.Raw()), 0, VT_R8));
      return number.Raw().dblVal;
    }
  }
}

ComPtr<IDispatch> MakeDispatch(std::unique_ptr<platform::AutomationObject> object,
                               std::span<const std::string_view> members, std::string_view source) {
  return ComPtr<IDispatch>::Adopt(new AutomationDispatch(std::move(object), members, source));
}

}  // namespace adapters::windows
