#include "Automation.h"

#include <vector>

#include "ByRefLong.h"
#include "Guard.h"
#include "adapters/windows/Wide.h"

namespace activex {

namespace {

using adapters::windows::Variant;

constexpr DISPID kView = 2;

HRESULT Answer(LONG* answer, std::int32_t value) {
  if (answer == nullptr) return E_POINTER;
  *answer = value;
  return S_OK;
}

}  // namespace

DISPID Automation::MemberOf(std::string_view name) const {
  std::wstring wide = adapters::windows::Wide(name);
  wchar_t* names = wide.data();
  DISPID member = DISPID_UNKNOWN;
  return SUCCEEDED(type_->GetIDsOfNames(&names, 1, &member)) ? member : DISPID_UNKNOWN;
}

HRESULT Automation::GetTypeInfoCount(UINT* count) noexcept {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT Automation::GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  *info = type_.Get();
  type_->AddRef();
  return S_OK;
}

HRESULT Automation::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                  DISPID* members) noexcept {
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || members == nullptr) return E_POINTER;
  return type_->GetIDsOfNames(names, count, members);
}

HRESULT Automation::Invoke(DISPID member, REFIID reserved, LCID, WORD kind, DISPPARAMS* parameters,
                           VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept {
  return Guarded([&]() -> HRESULT {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (parameters == nullptr) return E_POINTER;
    if (member == kView && parameters->cArgs == 1) {
      return InvokeView(kind, *parameters, result, exception, badArgument);
    }
    // Every other argument is taken by value, whatever a caller refers to.
    std::vector<Variant> values(parameters->cArgs);
    std::vector<VARIANT> plain;
    for (UINT i = 0; i < parameters->cArgs; ++i) {
      const HRESULT copied = VariantCopyInd(values[i].Out(), &parameters->rgvarg[i]);
      if (FAILED(copied)) return copied;
      plain.push_back(values[i].Raw());
    }
    DISPPARAMS byValue = *parameters;
    byValue.rgvarg = plain.data();
    return type_->Invoke(static_cast<_DistPromoterProg*>(this), member, kind, &byValue, result,
                         exception, badArgument);
  });
}

HRESULT Automation::InvokeView(WORD kind, const DISPPARAMS& parameters, VARIANT* result,
                               EXCEPINFO* exception, UINT* badArgument) {
  ByRefLong id(parameters.rgvarg[0]);
  const HRESULT read = id.Read();
  if (FAILED(read)) {
    if (badArgument != nullptr) *badArgument = 0;
    return read;
  }
  VARIANT reference = id.Reference();
  DISPPARAMS byReference = parameters;
  byReference.rgvarg = &reference;
  return type_->Invoke(static_cast<_DistPromoterProg*>(this), kView, kind, &byReference, result,
                       exception, badArgument);
}

HRESULT Automation::ClearShow(VARIANT_BOOL* opened) noexcept {
  if (opened == nullptr) return E_POINTER;
  *opened = VARIANT_FALSE;
  // The call may run until a modal form is closed; the container may let go of the control earlier.
  const auto keep = ComPtr<IUnknown>::Share(&Whole());
  return Guarded([&] {
    *opened = control_.ClearShow() ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
  });
}

HRESULT Automation::View(LONG* inID, VARIANT_BOOL* opened) noexcept {
  if (inID == nullptr || opened == nullptr) return E_POINTER;
  *opened = VARIANT_FALSE;
  const auto keep = ComPtr<IUnknown>::Share(&Whole());
  return Guarded([&] {
    *opened = control_.View(*inID) ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
  });
}

HRESULT Automation::get_UserID(LONG* UserID) noexcept {
  return Answer(UserID, control_.UserID());
}

HRESULT Automation::put_UserID(LONG New_UserID) noexcept {
  return Guarded([&] {
    control_.SetUserID(New_UserID);
    return S_OK;
  });
}

HRESULT Automation::get_EmployeeID(LONG* EmployeeID) noexcept {
  return Answer(EmployeeID, control_.EmployeeID());
}

HRESULT Automation::put_EmployeeID(LONG New_EmployeeID) noexcept {
  return Guarded([&] {
    control_.SetEmployeeID(New_EmployeeID);
    return S_OK;
  });
}

HRESULT Automation::get_PositionID(LONG* PositionID) noexcept {
  return Answer(PositionID, control_.PositionID());
}

HRESULT Automation::put_PositionID(LONG New_PositionID) noexcept {
  return Guarded([&] {
    control_.SetPositionID(New_PositionID);
    return S_OK;
  });
}

HRESULT Automation::get_OLEConnectionString(BSTR* OLEConnectionString) noexcept {
  if (OLEConnectionString == nullptr) return E_POINTER;
  *OLEConnectionString = nullptr;
  return Guarded([&] {
    *OLEConnectionString = adapters::windows::Bstr(control_.OLEConnectionString()).Release();
    return S_OK;
  });
}

HRESULT Automation::put_OLEConnectionString(BSTR New_OLEConnectionString) noexcept {
  return Guarded([&] {
    const std::wstring_view text(New_OLEConnectionString == nullptr ? L"" : New_OLEConnectionString,
                                 SysStringLen(New_OLEConnectionString));
    control_.SetOLEConnectionString(adapters::windows::Utf8(text));
    return S_OK;
  });
}

HRESULT Automation::InterfaceSupportsErrorInfo(REFIID id) noexcept {
  return id == IID__DistPromoterProg || id == IID_IDispatch || id == IID_IPersistPropertyBag ||
                 id == IID_IPersistStreamInit || id == IID_IPersistStorage
             ? S_OK
             : S_FALSE;
}

}  // namespace activex
