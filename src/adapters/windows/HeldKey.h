#pragma once

#include <windows.h>

namespace adapters::windows {

/// Whether a key (VK_...) was down when the message under way was sent.
inline bool Held(int key) {
  return GetKeyState(key) < 0;
}

}  // namespace adapters::windows
