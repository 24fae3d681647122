#pragma once

#include <windows.h>

#include <ocidl.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "adapters/windows/Com.h"

namespace activexhost {

/// The container's document: the properties of its control, by key. Lives as long as its owner,
/// whatever references are held.
class PropertyBag : public IPropertyBag {
 public:
  void Set(const std::wstring& key, adapters::windows::Variant value);
  /// What the control has stored, as lines "key=value".
  std::string Listing() const;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP Read(LPCOLESTR key, VARIANT* value, IErrorLog* log) override;
  STDMETHODIMP Write(LPCOLESTR key, VARIANT* value) override;

 private:
  std::map<std::wstring, adapters::windows::Variant> values_;
};

}  // namespace activexhost
