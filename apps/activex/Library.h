#pragma once

#include <windows.h>

#include <oaidl.h>
#include <olectl.h>

#include <string>

#include "adapters/windows/Com.h"
#include "adapters/windows/ComObject.h"

namespace activex {

using adapters::windows::ComPtr;

/// The one name that the suite creates the control by; also the source of its errors.
inline constexpr char kProgId[] = "comDistPromoterProg.DistPromoterProg";

/// How containers are to treat the control. It is activated wherever it is visible, inside out, and
/// takes its client site before its properties; it cannot be linked to. Not invisible at run time:
/// containers neither paint nor activate such a control, but this one hides itself by painting.
inline constexpr DWORD kMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                     OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                     OLEMISC_SETCLIENTSITEFIRST;

/// The toolbox picture's number among the library's resources.
inline constexpr int kToolboxBitmap = 101;

/// Path of the library's file.
std::wstring LibraryPath();
/// What the type library inside the library's file says of an interface or class. Throws
/// RuntimeError.
ComPtr<ITypeInfo> TypeInfo(REFGUID id);

/// Keeps the library loaded while it lives. COM asks a library as a whole whether it may go, so
/// their number is one for the process.
class Lock {
 public:
  Lock() { Count(1); }
  ~Lock() { Count(-1); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;
  /// Adds to the number of locks and returns it.
  static long Count(long change);
};

/// An object that the library hands out.
template <typename Interface>
class Counted : public adapters::windows::ComObject<Interface> {
  Lock lock_;
};

/// A part of the control: some of its interfaces, whose references and whose other interfaces are
/// the whole control's.
template <typename... Interfaces>
class Part : public Interfaces... {
 public:
  Part(const Part&) = delete;
  Part& operator=(const Part&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
    return whole_.QueryInterface(id, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return whole_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override { return whole_.Release(); }

 protected:
  explicit Part(IUnknown& whole) : whole_(whole) {}
  virtual ~Part() = default;
  IUnknown& Whole() const { return whole_; }

 private:
  IUnknown& whole_;
};

}  // namespace activex
