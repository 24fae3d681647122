#include "adapters/windows/ErrorGuard.h"

#include <windows.h>

#include "adapters/windows/Wide.h"

namespace adapters::windows {

ErrorGuard::ErrorGuard()
    : screens::ErrorGuard(
          {.note =
               [](const std::string& technical) {
                 OutputDebugStringW((Wide(technical) + L"\n").c_str());
               },
           .lastResort =
               [](const screens::ErrorTexts& texts) {
                 const std::wstring words = Wide(texts.sentence + "\n\n" + texts.technical);
                 MessageBoxW(nullptr, words.c_str(), Wide(texts.title).c_str(),
                             MB_OK | MB_ICONERROR | MB_TASKMODAL | MB_RTLREADING | MB_RIGHT);
               }}) {}

}  // namespace adapters::windows
