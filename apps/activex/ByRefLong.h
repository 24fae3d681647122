#pragma once

#include <windows.h>

#include <oaidl.h>

namespace activex {

/// A Long that a caller passes by reference, in whatever variant it arrived: the number itself, a
/// reference to a number or text, or a reference to a variant of either kind. No member changes it,
/// so nothing is written back.
class ByRefLong {
 public:
  explicit ByRefLong(VARIANT& argument) : argument_(argument) {}
  /// DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW when the argument is no Long.
  HRESULT Read();
  /// A variant that refers to the number; lives as long as this.
  VARIANT Reference();

 private:
  VARIANT& argument_;
  LONG number_ = 0;
};

}  // namespace activex
