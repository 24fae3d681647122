#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <string>
#include <vector>

#include "adapters/windows/StandIn.h"
#include "adapters/windows/Wide.h"
#include "apps/activex-host/PropertyBag.h"
#include "apps/activex-host/Site.h"

namespace test {

/// COM objects of the container side live on the test's stack: what is left of their references at
/// the end is what the control leaked.
template <typename Object>
class Counted : public Object {
 public:
  using Object::Object;
  ULONG References() const { return references_; }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const HRESULT found = Object::QueryInterface(id, object);
    if (SUCCEEDED(found)) ++references_;
    return found;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }

 private:
  ULONG references_ = 0;
};

/// A container's site on a window of its own, which notes what it hears.
class Container final : public Counted<activexhost::Site> {
 public:
  Container()
      : Counted(CreateWindowExW(0, L"STATIC", L"container", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                300, 200, nullptr, nullptr, nullptr, nullptr)) {
    GetWindow(&window_);
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
  HRESULT STDMETHODCALLTYPE ShowObject() override { return Note("ShowObject"); }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return Note("OnInPlaceActivate"); }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return Note("OnUIActivate"); }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return Note("OnUIDeactivate"); }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return Note("OnInPlaceDeactivate"); }
  HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** control) override {
    if (!hasExtender) return E_NOTIMPL;
    return extender_->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(control));
  }
  HRESULT STDMETHODCALLTYPE OnChanged(DISPID member) override {
    changed.push_back(member);
    return S_OK;
  }

 private:
  HRESULT Note(const char* call) {
    calls.push_back(call);
    return S_OK;
  }

  adapters::windows::ComPtr<IDispatch> extender_ =
      adapters::windows::Recorder(extenderCalls).Object();
  HWND window_ = nullptr;
};

/// A property bag that notes the order of writing: "UserID=2;".
class Bag final : public Counted<activexhost::PropertyBag> {
 public:
  std::string written;
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR key, VARIANT* value) override {
    adapters::windows::Variant copy;
    VariantCopy(copy.Out(), value);
    written += adapters::windows::Utf8(key) + "=" + copy.Text() + ";";
    return PropertyBag::Write(key, value);
  }
};

}  // namespace test
