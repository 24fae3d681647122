#pragma once

#include <functional>

#include "Library.h"

namespace activex {

/// What the control looks like to a container that draws it itself: nothing. Being drawn is being
/// painted, as for the window in place.
class Picture final : public Part<IViewObject2> {
 public:
  Picture(IUnknown& whole, IOleObject& object, std::function<void()> paint)
      : Part(whole), object_(object), paint_(std::move(paint)) {}

  HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* target,
                                 HDC targetContext, HDC context, LPCRECTL bounds,
                                 LPCRECTL windowBounds, WINBOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR),
                                 ULONG_PTR goOnArgument) noexcept override;
  HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                        LOGPALETTE** colors) noexcept override;
  HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD*) noexcept override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) noexcept override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags,
                                      IAdviseSink* sink) noexcept override;
  HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags,
                                      IAdviseSink** sink) noexcept override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* target,
                                      SIZEL* size) noexcept override;

 private:
  IOleObject& object_;
  std::function<void()> paint_;
  ComPtr<IAdviseSink> sink_;
  DWORD aspects_ = 0;
  DWORD flags_ = 0;
};

}  // namespace activex
