#include "adapters/windows/ErrorGuard.h"

#include <windows.h>

#include <string>
#include <utility>

#include "adapters/windows/MessageDialog.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

namespace {

bool IsArabicScript(wchar_t unit) {
  return (unit >= 0x0600 && unit <= 0x077F) || (unit >= 0xFB50 && unit <= 0xFDFF) ||
         (unit >= 0xFE70 && unit <= 0xFEFC);
}

/// Where the Persian sentences at the beginning of a description end: behind the last letter of an
/// Arabic script and its full stop. 0 when there is none.
std::size_t PersianEnd(const std::wstring& description) {
  std::size_t end = description.size();
  while (end > 0 && !IsArabicScript(description[end - 1])) --end;
  if (end > 0 && end < description.size() && description[end] == L'.') ++end;
  return end;
}

}  // namespace

void ErrorGuard::Show(const platform::RuntimeError& error) noexcept {
  const std::wstring number = std::to_wstring(error.Number());
  const std::wstring description = Wide(error.Description());
  const std::size_t persian = PersianEnd(description);
  std::wstring technical = L"Run-time error '" + number + L"'";
  const std::size_t rest = description.find_first_not_of(L" \r\n", persian);
  if (rest != std::wstring::npos) technical += L": " + description.substr(rest);
  if (!error.Source().empty()) technical += L" (" + Wide(error.Source()) + L")";
  std::wstring sentence = L"خطای شماره \u200E" + number + L" هنگام اجرا رخ داد.";
  if (persian > 0) sentence += L"\n" + description.substr(0, persian);
  ShowDialog(sentence, technical);
}

void ErrorGuard::Show(const std::exception& error) noexcept {
  ShowDialog(L"خطایی پیش‌بینی‌نشده هنگام اجرا رخ داد.",
             L"Unexpected error: " + Wide(error.what()));
}

void ErrorGuard::ShowDialog(const std::wstring& sentence, const std::wstring& technical) noexcept {
  OutputDebugStringW((technical + L"\n").c_str());
  try {
    if (beforeShow_) beforeShow_();
    MessageDialog::Content content;
    content.title = L"خطا";
    content.message = sentence + L"\nبرنامه ادامه می‌یابد.";
    content.technical = technical;
    content.kind = MessageDialog::Kind::kError;
    MessageDialog(*this, std::move(content)).Run();
  } catch (const std::exception&) {
    // Not even a window of our own can be made: Windows' own message is the last resort.
    MessageBoxW(nullptr, technical.c_str(), L"خطا", MB_OK | MB_ICONERROR | MB_TASKMODAL);
  }
}

}  // namespace adapters::windows
