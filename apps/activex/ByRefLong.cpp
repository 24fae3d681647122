#include "ByRefLong.h"

#include "adapters/windows/Com.h"

namespace activex {

using adapters::windows::Variant;

HRESULT ByRefLong::Read() {
  Variant value;
  HRESULT result = VariantCopyInd(value.Out(), &argument_);
  if (FAILED(result)) return result;
  VARIANT number;
  VariantInit(&number);
  result = VariantChangeType(&number, const_cast<VARIANT*>(&value.Raw()), 0, VT_I4);
  if (SUCCEEDED(result)) number_ = number.lVal;
  return result;
}

VARIANT ByRefLong::Reference() {
  VARIANT reference;
  VariantInit(&reference);
  reference.vt = VT_BYREF | VT_I4;
  reference.plVal = &number_;
  return reference;
}

}  // namespace activex
