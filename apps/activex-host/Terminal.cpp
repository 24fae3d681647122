#include "Terminal.h"

#include <windows.h>

#include <io.h>

#include <cstdio>

#include "adapters/windows/Wide.h"

namespace activexhost {

namespace {

bool IsOpen(FILE* stream) {
  const int number = _fileno(stream);
  if (number < 0) return false;
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(number));
  return handle != INVALID_HANDLE_VALUE && GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

void Write(FILE* stream, const std::string& text, UINT icon) {
  if (IsOpen(stream)) {
    std::fputs(text.c_str(), stream);
    std::fflush(stream);
  } else {
    MessageBoxW(nullptr, adapters::windows::Wide(text).c_str(), L"DistPromoterProg", icon);
  }
}

}  // namespace

Terminal::Terminal() {
  const bool out = IsOpen(stdout);
  const bool errors = IsOpen(stderr);
  if (out && errors) return;
  if (AttachConsole(ATTACH_PARENT_PROCESS) == FALSE) return;
  codePage_ = GetConsoleOutputCP();
  SetConsoleOutputCP(CP_UTF8);
  // Where these fail, there is nobody to be told.
  if (!out) static_cast<void>(std::freopen("CONOUT$", "w", stdout));
  if (!errors) static_cast<void>(std::freopen("CONOUT$", "w", stderr));
}

Terminal::~Terminal() {
  if (codePage_ != 0) SetConsoleOutputCP(codePage_);
}

void Terminal::Say(const std::string& text) const {
  Write(stdout, text, MB_ICONINFORMATION);
}

void Terminal::Complain(const std::string& text) const {
  Write(stderr, text, MB_ICONERROR);
}

}  // namespace activexhost
