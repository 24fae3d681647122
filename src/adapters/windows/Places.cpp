#include "adapters/windows/Places.h"

#include <array>

#include "adapters/windows/Rects.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

namespace {

constexpr const wchar_t* kKey = L"Software\\DistPromoterProg\\Windows";

BOOL CALLBACK AddWorkArea(HMONITOR monitor, HDC, RECT*, LPARAM areas) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (GetMonitorInfoW(monitor, &info)) {
    reinterpret_cast<std::vector<screens::Rect>*>(areas)->push_back(FromRECT(info.rcWork));
  }
  return TRUE;
}

bool CanBeSized(HWND window) {
  return (GetWindowLongPtrW(window, GWL_STYLE) & WS_THICKFRAME) != 0;
}

}  // namespace

std::string RegistryPlaces::Read(const std::string& form) const {
  std::array<wchar_t, 128> text{};
  auto bytes = static_cast<DWORD>(sizeof text);
  const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, kKey, Wide(form).c_str(), RRF_RT_REG_SZ,
                                      nullptr, text.data(), &bytes);
  return status == ERROR_SUCCESS ? Utf8(text.data()) : std::string();
}

void RegistryPlaces::Write(const std::string& form, const std::string& text) {
  const std::wstring value = Wide(text);
  RegSetKeyValueW(HKEY_CURRENT_USER, kKey, Wide(form).c_str(), REG_SZ, value.c_str(),
                  static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

void KeepPlace(HWND window, const std::string& form, screens::PlaceStore& store) {
  if (window == nullptr || !IsWindowVisible(window) || IsIconic(window) || !CanBeSized(window)) {
    return;
  }
  screens::Rect place = WindowArea(window);
  const bool maximised = IsZoomed(window) != FALSE;
  if (maximised) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    GetWindowPlacement(window, &placement);
    place = FromRECT(placement.rcNormalPosition);
  }
  store.Write(form, screens::PlaceText({place, maximised}));
}

std::optional<screens::WindowPlace> TakePlace(HWND window, const std::string& form,
                                              const screens::PlaceStore& store) {
  if (!CanBeSized(window)) return std::nullopt;
  std::vector<screens::Rect> areas;
  EnumDisplayMonitors(nullptr, nullptr, &AddWorkArea, reinterpret_cast<LPARAM>(&areas));
  const auto taken = screens::PlaceOnDesk(store.Read(form), areas);
  if (taken) {
    const screens::Rect& place = taken->place;
    SetWindowPos(window, nullptr, place.left, place.top, place.Width(), place.Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
  return taken;
}

}  // namespace adapters::windows
