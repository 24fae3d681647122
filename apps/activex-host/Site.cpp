#include "Site.h"

#include <algorithm>
#include <iterator>

namespace activexhost {

namespace {

constexpr const wchar_t* kMembers[] = {L"Height", L"Width", L"Visible"};

}  // namespace

STDMETHODIMP Extender::QueryInterface(REFIID id, void** object) {
  const bool known = id == IID_IUnknown || id == IID_IDispatch;
  *object = known ? static_cast<IDispatch*>(this) : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP Extender::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

STDMETHODIMP Extender::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  *info = nullptr;
  return DISP_E_BADINDEX;
}

STDMETHODIMP Extender::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* members) {
  const auto* const found = std::ranges::find_if(
      kMembers, [&](const wchar_t* name) { return lstrcmpiW(name, names[0]) == 0; });
  const bool known = count == 1 && found != std::end(kMembers);
  members[0] = known ? static_cast<DISPID>(found - kMembers) + 1 : DISPID_UNKNOWN;
  return known ? S_OK : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP Extender::Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                              VARIANT* result, EXCEPINFO*, UINT*) {
  if (member < 1 || member > static_cast<DISPID>(std::size(kMembers))) {
    return DISP_E_MEMBERNOTFOUND;
  }
  VARIANT value;
  VariantInit(&value);
  if ((kind & DISPATCH_PROPERTYPUT) != 0) {
    const HRESULT read =
        VariantChangeType(&value, &parameters->rgvarg[0], 0, member == 3 ? VT_BOOL : VT_R8);
    if (FAILED(read)) return read;
    if (member == 1) height_ = value.dblVal;
    if (member == 2) width_ = value.dblVal;
    if (member == 3) visible_ = value.boolVal != VARIANT_FALSE;
    return S_OK;
  }
  if (result == nullptr) return S_OK;
  adapters::windows::Variant answer =
      member == 3 ? adapters::windows::Variant(visible_)
                  : adapters::windows::Variant(member == 1 ? height_ : width_);
  return VariantCopy(result, const_cast<VARIANT*>(&answer.Raw()));
}

STDMETHODIMP Site::QueryInterface(REFIID id, void** object) {
  *object = nullptr;
  if (id == IID_IUnknown || id == IID_IOleClientSite) {
    *object = static_cast<IOleClientSite*>(this);
  } else if (id == IID_IOleInPlaceSite || id == IID_IOleWindow) {
    *object = static_cast<IOleInPlaceSite*>(this);
  } else if (id == IID_IOleControlSite) {
    *object = static_cast<IOleControlSite*>(this);
  } else if (id == IID_IPropertyNotifySink) {
    *object = static_cast<IPropertyNotifySink*>(this);
  }
  return *object != nullptr ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP Site::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  *moniker = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP Site::GetContainer(IOleContainer** container) {
  *container = nullptr;
  return E_NOINTERFACE;
}

STDMETHODIMP Site::GetWindow(HWND* window) {
  *window = window_;
  return S_OK;
}

STDMETHODIMP Site::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                    LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
  *frame = nullptr;
  *document = nullptr;
  GetClientRect(window_, clip);
  *place = *clip;
  info->fMDIApp = FALSE;
  info->hwndFrame = window_;
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

STDMETHODIMP Site::GetExtendedControl(IDispatch** extender) {
  *extender = &extender_;
  return S_OK;
}

STDMETHODIMP Site::OnChanged(DISPID) {
  dirty_ = true;
  return S_OK;
}

}  // namespace activexhost
