#include "Activation.h"

#include <cstring>

#include "DistPromoterProg_h.h"
#include "Guard.h"
#include "adapters/windows/Wide.h"

namespace activex {

Activation::Activation(IUnknown& whole, ContainerSite& site, const Persistence& persistence,
                       Actions actions)
    : Part(whole), site_(site), persistence_(persistence), actions_(std::move(actions)) {}

HRESULT Activation::SetClientSite(IOleClientSite* site) noexcept {
  InPlaceDeactivate();
  return Guarded([&] {
    site_.SetClient(site);
    return S_OK;
  });
}

HRESULT Activation::GetClientSite(IOleClientSite** site) noexcept {
  if (site == nullptr) return E_POINTER;
  *site = ComPtr(site_.Client()).Get();
  if (*site != nullptr) (*site)->AddRef();
  return S_OK;
}

HRESULT Activation::Close(DWORD saving) noexcept {
  return Guarded([&]() -> HRESULT {
    const auto keep = ComPtr<IUnknown>::Share(&Whole());
    const bool saves = saving != OLECLOSE_NOSAVE;
    if (saves && !actions_.mayClose()) return OLE_E_PROMPTSAVECANCELLED;
    if (saves && persistence_.Dirty() && site_.Client()) ComPtr(site_.Client())->SaveObject();
    InPlaceDeactivate();
    actions_.close();
    if (advises_) ComPtr(advises_)->SendOnClose();
    return S_OK;
  });
}

HRESULT Activation::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
  if (moniker != nullptr) *moniker = nullptr;
  return E_NOTIMPL;
}

HRESULT Activation::GetClipboardData(DWORD, IDataObject** data) noexcept {
  if (data != nullptr) *data = nullptr;
  return E_NOTIMPL;
}

HRESULT Activation::DoVerb(LONG verb, MSG*, IOleClientSite*, LONG, HWND, const RECT*) noexcept {
  return Guarded([&]() -> HRESULT {
    const auto keep = ComPtr<IUnknown>::Share(&Whole());
    switch (verb) {
      case OLEIVERB_PRIMARY:
      case OLEIVERB_SHOW:
      case OLEIVERB_INPLACEACTIVATE:
        return ActivateInPlace();
      case OLEIVERB_UIACTIVATE:
        return ActivateUI();
      case OLEIVERB_HIDE:
        UIDeactivate();
        if (window_) window_->Show(false);
        return S_OK;
      case OLEIVERB_DISCARDUNDOSTATE:
        return S_OK;
      default:
        return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
    }
  });
}

HRESULT Activation::EnumVerbs(IEnumOLEVERB** verbs) noexcept {
  if (verbs != nullptr) *verbs = nullptr;
  return OLEOBJ_E_NOVERBS;
}

HRESULT Activation::GetUserClassID(CLSID* id) noexcept {
  if (id == nullptr) return E_POINTER;
  *id = CLSID_DistPromoterProg;
  return S_OK;
}

HRESULT Activation::GetUserType(DWORD, LPOLESTR* name) noexcept {
  if (name == nullptr) return E_POINTER;
  *name = nullptr;
  return Guarded([&]() -> HRESULT {
    const std::wstring text = adapters::windows::Wide(kProgId);
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    *name = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
    if (*name == nullptr) return E_OUTOFMEMORY;
    std::memcpy(*name, text.c_str(), bytes);
    return S_OK;
  });
}

HRESULT Activation::SetExtent(DWORD aspect, SIZEL* size) noexcept {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  extent_ = *size;
  return S_OK;
}

HRESULT Activation::GetExtent(DWORD aspect, SIZEL* size) noexcept {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *size = extent_;
  return S_OK;
}

HRESULT Activation::Advise(IAdviseSink* sink, DWORD* connection) noexcept {
  if (connection == nullptr) return E_POINTER;
  if (!advises_) {
    const HRESULT made = CreateOleAdviseHolder(advises_.Out());
    if (FAILED(made)) return made;
  }
  return advises_->Advise(sink, connection);
}

HRESULT Activation::Unadvise(DWORD connection) noexcept {
  return advises_ ? advises_->Unadvise(connection) : OLE_E_NOCONNECTION;
}

HRESULT Activation::EnumAdvise(IEnumSTATDATA** advises) noexcept {
  if (advises == nullptr) return E_POINTER;
  *advises = nullptr;
  return advises_ ? advises_->EnumAdvise(advises) : S_OK;
}

HRESULT Activation::GetMiscStatus(DWORD aspect, DWORD* status) noexcept {
  if (status == nullptr) return E_POINTER;
  *status = aspect == DVASPECT_CONTENT ? kMiscStatus : 0;
  return S_OK;
}

HRESULT Activation::GetControlInfo(CONTROLINFO* info) noexcept {
  if (info == nullptr) return E_POINTER;
  *info = CONTROLINFO{sizeof(CONTROLINFO), nullptr, 0, 0};
  return S_OK;
}

}  // namespace activex
