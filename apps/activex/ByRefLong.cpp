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
  if (SUCCEEDED(result)) before_ = number_ = number.lVal;
  return result;
}

VARIANT ByRefLong::Reference() {
  VARIANT reference;
  VariantInit(&reference);
  reference.vt = VT_BYREF | VT_I4;
  reference.plVal = &number_;
  return reference;
}

HRESULT ByRefLong::WriteBack() {
  if (number_ == before_ || (argument_.vt & VT_BYREF) == 0) return S_OK;
  VARIANT& target = argument_.vt == (VT_BYREF | VT_VARIANT) ? *argument_.pvarVal : argument_;
  if (target.vt == (VT_BYREF | VT_I4)) {
    *target.plVal = number_;
    return S_OK;
  }
  Variant changed(std::int32_t{number_});
  VARIANT* const value = const_cast<VARIANT*>(&changed.Raw());
  if ((target.vt & VT_BYREF) == 0) {
    const HRESULT result = VariantChangeType(value, value, 0, target.vt);
    return FAILED(result) ? result : VariantCopy(&target, value);
  }
  const HRESULT result = VariantChangeType(value, value, 0, target.vt & ~VT_BYREF & VT_TYPEMASK);
  if (FAILED(result)) return result;
  switch (target.vt & ~VT_BYREF) {
    case VT_I2:
    case VT_UI2:
      *target.piVal = value->iVal;
      return S_OK;
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
      *target.plVal = value->lVal;
      return S_OK;
    case VT_R4:
      *target.pfltVal = value->fltVal;
      return S_OK;
    case VT_R8:
      *target.pdblVal = value->dblVal;
      return S_OK;
    case VT_BSTR:
      SysReAllocString(target.pbstrVal, value->bstrVal);
      return S_OK;
    default:
      return DISP_E_TYPEMISMATCH;
  }
}

}  // namespace activex
