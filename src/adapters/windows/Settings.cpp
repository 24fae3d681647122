#include "adapters/windows/Settings.h"

#include <windows.h>

#include <array>

#include "adapters/windows/Wide.h"

namespace adapters::windows {

std::string Setting(const wchar_t* name) {
  std::array<wchar_t, 1024> text{};
  for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
    auto bytes = static_cast<DWORD>(sizeof text);
    if (RegGetValueW(root, L"Software\\DistPromoterProg", name, RRF_RT_REG_SZ, nullptr, text.data(),
                     &bytes) == ERROR_SUCCESS &&
        text[0] != L'\0') {
      return Utf8(text.data());
    }
  }
  return {};
}

}  // namespace adapters::windows
