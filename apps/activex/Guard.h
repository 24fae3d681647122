#pragma once

#include <windows.h>

#include <utility>

namespace activex {

/// What the exception in flight is to a caller over COM: the HRESULT, with the error info of the
/// thread telling description and source. Call inside a catch block only.
HRESULT ReportException() noexcept;

/// Takes back the error info of an earlier failure.
void ForgetError() noexcept;

/// The edge between COM and C++: every exported method that can throw runs its body in here.
template <typename Body>
HRESULT Guarded(Body&& body) noexcept {
  try {
    ForgetError();
    return std::forward<Body>(body)();
  } catch (...) {
    return ReportException();
  }
}

}  // namespace activex
