#pragma once

#include <windows.h>

#include <oaidl.h>

namespace activex {

/// A Long that a caller passes by reference, in whatever variant it arrived: the number itself, a
/// reference to a number or text, or a reference to a variant of either kind.
class ByRefLong {
 public:
  explicit ByRefLong(VARIANT& argument) : argument_(argument) {}
  /// DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW when the argument is no Long.
  HRESULT Read();
  /// A variant that refers to the number; lives as long as this.
  VARIANT Reference();
  /// Puts a changed number back to where the argument refers to, in the type that stands there.
  HRESULT WriteBack();

 private:
  VARIANT& argument_;
  LONG before_ = 0;
  LONG number_ = 0;
};

}  // namespace activex
