#include "Picture.h"

// GDI+ wants these two as macros, which the project leaves out.
#include <algorithm>
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <objidl.h>

#include <gdiplus.h>

#include "adapters/windows/Wide.h"
#include "platform/RuntimeError.h"

namespace activexhost {

namespace {

// The encoder for PNG that every system has.
constexpr CLSID kPng = {
    0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

}  // namespace

Camera::Camera() {
  const Gdiplus::GdiplusStartupInput input;
  Gdiplus::GdiplusStartup(&token_, &input, nullptr);
}

Camera::~Camera() {
  Gdiplus::GdiplusShutdown(token_);
}

void Camera::Save(const RECT& place, const std::string& path) const {
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP copy = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ before = SelectObject(memory, copy);
  BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  SelectObject(memory, before);
  const Gdiplus::Status status =
      Gdiplus::Bitmap(copy, nullptr).Save(adapters::windows::Wide(path).c_str(), &kPng, nullptr);
  DeleteObject(copy);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  if (status != Gdiplus::Ok)
    throw platform::RuntimeError(platform::kPathFileAccess, "Cannot write " + path);
}

}  // namespace activexhost
