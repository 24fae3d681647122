#include "adapters/windows/ErrorGuard.h"

#include <windows.h>

#include <exception>
#include <utility>

#include "adapters/windows/MessageDialog.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

void ErrorGuard::Tell(const screens::ErrorTexts& texts) noexcept {
  try {
    MessageDialog::Content content;
    content.title = Wide(texts.title);
    content.message = Wide(texts.sentence);
    content.technical = Wide(texts.technical);
    content.kind = MessageDialog::Kind::kError;
    OutputDebugStringW((content.technical + L"\n").c_str());
    MessageDialog(*this, std::move(content)).Run();
  } catch (const std::exception&) {
    // Not even a window of our own can be made: Windows' own message is the last resort.
    MessageBoxA(nullptr, texts.technical.c_str(), nullptr, MB_OK | MB_ICONERROR | MB_TASKMODAL);
  }
}

}  // namespace adapters::windows
