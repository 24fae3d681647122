#pragma once

#include <string_view>

#include "DistPromoterProg_h.h"
#include "Library.h"
#include "host/DistPromoterProg.h"

namespace activex {

/// The control's public members: by their place in the interface, or by name through the type
/// library.
class Automation final : public Part<_DistPromoterProg, ISupportErrorInfo> {
 public:
  Automation(IUnknown& whole, host::DistPromoterProg& control)
      : Part(whole), control_(control), type_(TypeInfo(IID__DistPromoterProg)) {}

  /// DISPID_UNKNOWN when there is no such member.
  DISPID MemberOf(std::string_view name) const;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale,
                                        ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* members) noexcept override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD kind,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT* badArgument) noexcept override;

  HRESULT STDMETHODCALLTYPE ClearShow(VARIANT_BOOL* opened) noexcept override;
  HRESULT STDMETHODCALLTYPE View(LONG* inID, VARIANT_BOOL* opened) noexcept override;
  HRESULT STDMETHODCALLTYPE get_UserID(LONG* UserID) noexcept override;
  HRESULT STDMETHODCALLTYPE put_UserID(LONG New_UserID) noexcept override;
  HRESULT STDMETHODCALLTYPE get_EmployeeID(LONG* EmployeeID) noexcept override;
  HRESULT STDMETHODCALLTYPE put_EmployeeID(LONG New_EmployeeID) noexcept override;
  HRESULT STDMETHODCALLTYPE get_PositionID(LONG* PositionID) noexcept override;
  HRESULT STDMETHODCALLTYPE put_PositionID(LONG New_PositionID) noexcept override;
  HRESULT STDMETHODCALLTYPE get_OLEConnectionString(BSTR* OLEConnectionString) noexcept override;
  HRESULT STDMETHODCALLTYPE put_OLEConnectionString(BSTR New_OLEConnectionString) noexcept override;

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) noexcept override;

 private:
  HRESULT InvokeView(WORD kind, const DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* exception,
                     UINT* badArgument);

  host::DistPromoterProg& control_;
  ComPtr<ITypeInfo> type_;
};

}  // namespace activex
