#include "Library.h"

#include <atomic>

#include "adapters/windows/Window.h"

namespace activex {

std::wstring LibraryPath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(adapters::windows::Window::Instance(), path.data(),
                                            static_cast<DWORD>(path.size()));
    if (length == 0) adapters::windows::Check(HRESULT_FROM_WIN32(GetLastError()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

ComPtr<ITypeInfo> TypeInfo(REFGUID id) {
  ComPtr<ITypeLib> library;
  adapters::windows::Check(LoadTypeLibEx(LibraryPath().c_str(), REGKIND_NONE, library.Out()));
  ComPtr<ITypeInfo> info;
  adapters::windows::Check(library->GetTypeInfoOfGuid(id, info.Out()));
  return info;
}

long Lock::Count(long change) {
  static std::atomic<long> locks = 0;
  return locks += change;
}

}  // namespace activex
