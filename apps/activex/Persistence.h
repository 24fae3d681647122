#pragma once

#include "Library.h"
#include "PropertyBags.h"
#include "host/DistPromoterProg.h"

namespace activex {

/// How containers keep the control's four properties: in a property bag key by key, or as one
/// piece of bytes in a stream or in a storage's stream "Contents".
class Persistence final : public Part<IPersistPropertyBag, IPersistStreamInit, IPersistStorage> {
 public:
  Persistence(IUnknown& whole, host::DistPromoterProg& control) : Part(whole), control_(control) {}

  /// A property was changed since the last saving.
  void MarkDirty() { dirty_ = true; }
  bool Dirty() const { return dirty_; }

  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) noexcept override;
  HRESULT STDMETHODCALLTYPE IsDirty() noexcept override { return dirty_ ? S_OK : S_FALSE; }

  HRESULT STDMETHODCALLTYPE InitNew() noexcept override;
  HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) noexcept override;
  HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL clearDirty, BOOL all) noexcept override;

  /// A stream with nothing in it loads the defaults; damaged or foreign bytes are E_FAIL and leave
  /// the properties as they were.
  HRESULT STDMETHODCALLTYPE Load(IStream* stream) noexcept override;
  HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clearDirty) noexcept override;
  HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) noexcept override;

  HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) noexcept override;
  HRESULT STDMETHODCALLTYPE Load(IStorage* storage) noexcept override;
  HRESULT STDMETHODCALLTYPE Save(IStorage* storage, BOOL sameAsLoad) noexcept override;
  HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage* storage) noexcept override;
  HRESULT STDMETHODCALLTYPE HandsOffStorage() noexcept override { return S_OK; }

 private:
  void ReadFrom(platform::PropertyBag& bag);
  std::vector<std::byte> Bytes() const;

  host::DistPromoterProg& control_;
  bool dirty_ = false;
  bool savesLoaded_ = false;
};

}  // namespace activex
