#pragma once

#include <windows.h>

#include <unknwn.h>

namespace adapters::windows {

/// A COM object of one interface that counts its own references, from 1, on one thread; the last
/// one released deletes it.
template <typename Interface>
class ComObject : public Interface {
 public:
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    const bool known = id == IID_IUnknown || id == __uuidof(Interface);
    *object = known ? static_cast<Interface*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  ComObject() = default;
  virtual ~ComObject() = default;

 private:
  ULONG references_ = 1;
};

}  // namespace adapters::windows
