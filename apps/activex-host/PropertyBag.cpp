#include "PropertyBag.h"

#include "adapters/windows/Wide.h"

namespace activexhost {

using adapters::windows::Variant;

void PropertyBag::Set(const std::wstring& key, Variant value) {
  values_[key] = std::move(value);
}

std::string PropertyBag::Listing() const {
  std::string lines;
  for (const auto& [key, value] : values_) {
    lines += adapters::windows::Utf8(key) + "=" + value.Text() + "\n";
  }
  return lines;
}

STDMETHODIMP PropertyBag::QueryInterface(REFIID id, void** object) {
  const bool known = id == IID_IUnknown || id == IID_IPropertyBag;
  *object = known ? static_cast<IPropertyBag*>(this) : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP PropertyBag::Read(LPCOLESTR key, VARIANT* value, IErrorLog* /*log*/) {
  const auto found = values_.find(key);
  if (found == values_.end()) return E_INVALIDARG;
  const VARTYPE wanted = value->vt;
  VARIANT stored = found->second.Raw();
  if (wanted == VT_EMPTY) return VariantCopy(value, &stored);
  return VariantChangeType(value, &stored, 0, wanted);
}

STDMETHODIMP PropertyBag::Write(LPCOLESTR key, VARIANT* value) {
  Variant copy;
  const HRESULT copied = VariantCopy(copy.Out(), value);
  if (SUCCEEDED(copied)) values_[key] = std::move(copy);
  return copied;
}

}  // namespace activexhost
