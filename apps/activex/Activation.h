#pragma once

#include <functional>
#include <memory>

#include "ContainerSite.h"
#include "Persistence.h"
#include "PlaceWindow.h"

namespace activex {

/// The control as an object embedded in a container: its client site, verbs, extent, and its window
/// in place.
class Activation final
    : public Part<IOleObject, IOleControl, IOleInPlaceObject, IOleInPlaceActiveObject> {
 public:
  struct Actions {
    std::function<void()> paint;
    /// Asks the user where closing would drop what was not saved; false keeps the control open.
    std::function<bool()> mayClose;
    /// The container closes the control: what it alone has open goes.
    std::function<void()> close;
  };
  Activation(IUnknown& whole, ContainerSite& site, const Persistence& persistence, Actions actions);

  HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) noexcept override;
  HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) noexcept override;
  HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) noexcept override { return S_OK; }
  /// With a saving option OLE_E_PROMPTSAVECANCELLED, and nothing closed, where the user says no.
  HRESULT STDMETHODCALLTYPE Close(DWORD saving) noexcept override;
  HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) noexcept override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
  HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) noexcept override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject** data) noexcept override;
  /// Every verb that shows the control activates it in place; there is no window of its own and no
  /// property page.
  HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG index,
                                   HWND parent, const RECT* place) noexcept override;
  HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) noexcept override;
  HRESULT STDMETHODCALLTYPE Update() noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE IsUpToDate() noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* id) noexcept override;
  HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* name) noexcept override;
  HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* size) noexcept override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* size) noexcept override;
  HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* connection) noexcept override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD connection) noexcept override;
  HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** advises) noexcept override;
  HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
  HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) noexcept override { return E_NOTIMPL; }

  HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) noexcept override;
  HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL) noexcept override { return S_OK; }

  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE InPlaceDeactivate() noexcept override;
  HRESULT STDMETHODCALLTYPE UIDeactivate() noexcept override;
  HRESULT STDMETHODCALLTYPE SetObjectRects(const RECT* place, const RECT* clip) noexcept override;
  HRESULT STDMETHODCALLTYPE ReactivateAndUndo() noexcept override { return INPLACE_E_NOTUNDOABLE; }

  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*) noexcept override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE ResizeBorder(const RECT*, IOleInPlaceUIWindow*,
                                         BOOL) noexcept override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) noexcept override;

  /// Takes the window in place, if there is one, out of sight.
  void HideWindow() {
    if (window_) window_->Show(false);
  }

 private:
  HRESULT ActivateInPlace();
  HRESULT ActivateUI();
  /// Makes the control the active object of the container's windows; null takes it back.
  void SetActiveObject(IOleInPlaceActiveObject* object);

  ContainerSite& site_;
  const Persistence& persistence_;
  Actions actions_;
  ComPtr<IOleInPlaceSite> placeSite_;
  ComPtr<IOleInPlaceFrame> frame_;
  ComPtr<IOleInPlaceUIWindow> document_;
  ComPtr<IOleAdviseHolder> advises_;
  std::unique_ptr<PlaceWindow> window_;
  SIZEL extent_{847, 847};  // 32 pixels, in hundredths of a millimetre
  bool uiActive_ = false;
};

}  // namespace activex
