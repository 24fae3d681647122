#include "Picture.h"

#include "Guard.h"

namespace activex {

HRESULT Picture::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC, LPCRECTL, LPCRECTL,
                      WINBOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) noexcept {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  return Guarded([&] {
    paint_();
    return S_OK;
  });
}

HRESULT Picture::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                             LOGPALETTE** colors) noexcept {
  if (colors == nullptr) return E_POINTER;
  *colors = nullptr;
  return S_FALSE;
}

HRESULT Picture::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept {
  sink_ = ComPtr<IAdviseSink>::Share(sink);
  aspects_ = aspects;
  flags_ = flags;
  if (sink != nullptr && (flags & ADVF_PRIMEFIRST) != 0) {
    if ((flags & ADVF_ONLYONCE) != 0) sink_.Reset();
    sink->OnViewChange(DVASPECT_CONTENT, -1);
  }
  return S_OK;
}

HRESULT Picture::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept {
  if (aspects != nullptr) *aspects = aspects_;
  if (flags != nullptr) *flags = flags_;
  if (sink != nullptr) {
    *sink = sink_.Get();
    if (*sink != nullptr) (*sink)->AddRef();
  }
  return S_OK;
}

HRESULT Picture::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, SIZEL* size) noexcept {
  return object_.GetExtent(aspect, size);
}

}  // namespace activex
