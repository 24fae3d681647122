#include "adapters/windows/ErrorGuard.h"

#include <windows.h>

#include <utility>

#include "adapters/windows/MessageDialog.h"
#include "adapters/windows/Wide.h"
#include "controls/ErrorTexts.h"

namespace adapters::windows {

void ErrorGuard::Show(const platform::RuntimeError& error) noexcept {
  ShowDialog(controls::TextsOf(error));
}

void ErrorGuard::Show(const std::exception& error) noexcept {
  ShowDialog(controls::TextsOf(error));
}

void ErrorGuard::ShowDialog(const controls::ErrorTexts& texts) noexcept {
  try {
    MessageDialog::Content content;
    content.title = Wide(texts.title);
    content.message = Wide(texts.sentence);
    content.technical = Wide(texts.technical);
    content.kind = MessageDialog::Kind::kError;
    OutputDebugStringW((content.technical + L"\n").c_str());
    if (beforeShow_) beforeShow_();
    MessageDialog(*this, std::move(content)).Run();
  } catch (const std::exception&) {
    // Not even a window of our own can be made: Windows' own message is the last resort.
    MessageBoxA(nullptr, texts.technical.c_str(), nullptr, MB_OK | MB_ICONERROR | MB_TASKMODAL);
  }
}

}  // namespace adapters::windows
