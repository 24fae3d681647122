#pragma once

#include "Activation.h"
#include "Connections.h"
#include "Picture.h"

namespace activex {

/// Ties the control to its container in one call.
class QuickActivation final : public Part<IQuickActivate> {
 public:
  QuickActivation(IUnknown& whole, Activation& object, Picture& picture, Connections& connections)
      : Part(whole), object_(object), picture_(picture), connections_(connections) {}

  HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container,
                                          QACONTROL* control) noexcept override;
  HRESULT STDMETHODCALLTYPE SetContentExtent(LPSIZEL size) noexcept override {
    return object_.SetExtent(DVASPECT_CONTENT, size);
  }
  HRESULT STDMETHODCALLTYPE GetContentExtent(LPSIZEL size) noexcept override {
    return object_.GetExtent(DVASPECT_CONTENT, size);
  }

 private:
  Activation& object_;
  Picture& picture_;
  Connections& connections_;
};

}  // namespace activex
