#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <string>
#include <utility>
#include <vector>

#include "adapters/windows/StandIn.h"
#include "adapters/windows/Wide.h"

namespace test {

/// COM objects of the container side live on the test's stack: what is left of their references at
/// the end is what the control leaked.
template <typename... Interfaces>
class Stacked : public Interfaces... {
 public:
  ULONG References() const { return references_; }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    ((*object == nullptr && (id == __uuidof(Interfaces) || id == alsoKnownAs_)
          ? void(*object = static_cast<Interfaces*>(this))
          : void()),
     ...);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }

 protected:
  explicit Stacked(const IID& alsoKnownAs = IID_IUnknown) : alsoKnownAs_(alsoKnownAs) {}
  virtual ~Stacked() = default;

 private:
  IID alsoKnownAs_;
  ULONG references_ = 0;
};

/// A container's site on a window of its own; also hears of changed properties.
class Container final
    : public Stacked<IOleClientSite, IOleControlSite, IOleInPlaceSite, IPropertyNotifySink> {
 public:
  Container() {
    window_ = CreateWindowExW(0, L"STATIC", L"container", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                              300, 200, nullptr, nullptr, nullptr, nullptr);
  }
  ~Container() { DestroyWindow(window_); }
  bool hasExtender = true;
  std::vector<std::string> extenderCalls;  // "Height=100"
  std::vector<DISPID> changed;
  std::vector<std::string> calls;
  HWND Window() const { return window_; }
  /// References to this and to the extender that are still held.
  ULONG Held() const {
    extender_->AddRef();
    return References() + extender_->Release() - 1;
  }

  HRESULT STDMETHODCALLTYPE SaveObject() override { return Note("SaveObject"); }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
  HRESULT STDMETHODCALLTYPE ShowObject() override { return Note("ShowObject"); }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

  HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** control) override {
    if (!hasExtender) return E_NOTIMPL;
    return extender_->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(control));
  }
  HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE OnFocus(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return E_NOTIMPL; }

  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override {
    *window = window_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return Note("OnInPlaceActivate"); }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return Note("OnUIActivate"); }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                             IOleInPlaceUIWindow** document, RECT* place,
                                             RECT* clip, OLEINPLACEFRAMEINFO*) override {
    *frame = nullptr;
    *document = nullptr;
    *place = *clip = RECT{10, 10, 42, 42};
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return Note("OnUIDeactivate"); }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return Note("OnInPlaceDeactivate"); }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(const RECT*) override { return S_OK; }

  HRESULT STDMETHODCALLTYPE OnChanged(DISPID member) override {
    changed.push_back(member);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }

 private:
  HRESULT Note(const char* call) {
    calls.push_back(call);
    return S_OK;
  }

  adapters::windows::ComPtr<IDispatch> extender_ =
      adapters::windows::Recorder(extenderCalls).Object();
  HWND window_ = nullptr;
};

/// A property bag in the order of writing.
class Bag final : public Stacked<IPropertyBag> {
 public:
  std::vector<std::pair<std::string, adapters::windows::Variant>> values;

  HRESULT STDMETHODCALLTYPE Read(LPCOLESTR key, VARIANT* value, IErrorLog*) override {
    for (const auto& [stored, held] : values) {
      if (stored == adapters::windows::Utf8(key)) return VariantCopy(value, Raw(held));
    }
    return E_INVALIDARG;
  }
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR key, VARIANT* value) override {
    adapters::windows::Variant copy;
    VariantCopy(copy.Out(), value);
    values.emplace_back(adapters::windows::Utf8(key), std::move(copy));
    return S_OK;
  }
  std::string Text() const {
    std::string text;
    for (const auto& [key, value] : values) text += key + "=" + value.Text() + ";";
    return text;
  }

 private:
  static VARIANT* Raw(const adapters::windows::Variant& value) {
    return const_cast<VARIANT*>(&value.Raw());
  }
};

}  // namespace test
