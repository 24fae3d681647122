#include "Guard.h"

#include <new>

#include "DistPromoterProg_h.h"
#include "Library.h"
#include "platform/RuntimeError.h"

namespace activex {

namespace {

constexpr std::int32_t kLastNumberOfControls = 0xFFFF;

/// A number of the module as hosts expect it: they show the low word of a control's error. What a
/// provider or component gave as a failed HRESULT stays one.
HRESULT ResultOf(std::int32_t number) {
  if (number < 0) return number;
  if (number == 0 || number > kLastNumberOfControls) return E_FAIL;
  return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

HRESULT Report(HRESULT result, const char* description) noexcept {
  try {
    ComPtr<ICreateErrorInfo> making;
    if (FAILED(CreateErrorInfo(making.Out()))) return result;
    adapters::windows::Bstr text(description);
    adapters::windows::Bstr source(kProgId);
    making->SetGUID(IID__DistPromoterProg);
    making->SetDescription(text.Get());
    making->SetSource(source.Get());
    SetErrorInfo(0, making.As<IErrorInfo>(IID_IErrorInfo).Get());
  } catch (...) {
    // No memory for the description: the number alone has to do.
  }
  return result;
}

}  // namespace

HRESULT ReportException() noexcept {
  try {
    throw;
  } catch (const platform::RuntimeError& error) {
    return Report(ResultOf(error.Number()), error.what());
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const std::exception& error) {
    return Report(E_UNEXPECTED, error.what());
  } catch (...) {
    return E_UNEXPECTED;
  }
}

void ForgetError() noexcept {
  SetErrorInfo(0, nullptr);
}

}  // namespace activex
