#pragma once

#include <windows.h>

namespace activex {

// Registering the library, for people:
//   regsvr32 DistPromoterProg.ocx                 for the machine (as an administrator), else for
//                                                 the user alone
//   regsvr32 /n /i:user DistPromoterProg.ocx      for the user alone
//   regsvr32 /u DistPromoterProg.ocx              takes all of it back
// A 32-bit library is registered by %windir%\SysWOW64\regsvr32 on a 64-bit Windows. The file has to
// stay where it was registered.

enum class Scope { kMachine, kUser };

/// Writes the keys of the control and its type library. What stood there of an earlier place is
/// overwritten.
HRESULT Register(Scope scope);
/// Removes every key that Register writes; those that are not there are no failure. The keys that a
/// 32-bit and a 64-bit library share stay until the second is removed.
HRESULT Unregister(Scope scope);

}  // namespace activex
