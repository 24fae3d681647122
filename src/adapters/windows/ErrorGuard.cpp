#include "adapters/windows/ErrorGuard.h"

#include <windows.h>

#include <string>

#include "adapters/windows/Wide.h"

namespace adapters::windows {

namespace {

void ShowDialog(const std::wstring& sentence, const std::wstring& technical) {
  OutputDebugStringW((technical + L"\n").c_str());
  MessageBoxW(GetActiveWindow(),
              (sentence + L"\nبرنامه ادامه می‌یابد.\n\n" + technical).c_str(),
              L"خطا", MB_OK | MB_ICONERROR | MB_RTLREADING | MB_RIGHT);
}

}  // namespace

void ErrorGuard::Show(const platform::RuntimeError& error) noexcept {
  if (beforeShow_) beforeShow_();
  const std::wstring number = std::to_wstring(error.Number());
  ShowDialog(L"خطای شماره \u200E" + number + L" هنگام اجرا رخ داد.",
             L"Run-time error '" + number + L"': " + Wide(error.Description()));
}

void ErrorGuard::Show(const std::exception& error) noexcept {
  if (beforeShow_) beforeShow_();
  ShowDialog(L"خطایی پیش‌بینی‌نشده هنگام اجرا رخ داد.",
             L"Unexpected error: " + Wide(error.what()));
}

}  // namespace adapters::windows
