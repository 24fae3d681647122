#include "QuickActivation.h"

namespace activex {

HRESULT QuickActivation::QuickActivate(QACONTAINER* container, QACONTROL* control) noexcept {
  if (container == nullptr || control == nullptr) return E_POINTER;
  const ULONG size = control->cbSize;
  *control = QACONTROL{};
  control->cbSize = size;
  HRESULT result = object_.SetClientSite(container->pClientSite);
  if (FAILED(result)) return result;
  if (container->pAdviseSink != nullptr) {
    picture_.SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
  }
  if (container->pPropertyNotifySink != nullptr) {
    result = connections_.Properties().Advise(container->pPropertyNotifySink,
                                              &control->dwPropNotifyCookie);
    if (FAILED(result)) return result;
  }
  if (container->pUnkEventSink != nullptr) {
    // Sinks of events come as plain objects; one of another library's events is not taken.
    connections_.Events().Advise(container->pUnkEventSink, &control->dwEventCookie);
  }
  control->dwMiscStatus = kMiscStatus;
  return S_OK;
}

}  // namespace activex
