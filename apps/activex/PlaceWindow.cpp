#include "PlaceWindow.h"

#include "adapters/windows/Com.h"
#include "adapters/windows/Window.h"

namespace activex {

namespace {

using adapters::windows::Window;

constexpr wchar_t kClass[] = L"comDistPromoterProg.Place";

/// Goes with the library, not with the last window: another thread may be making one just then.
class PlaceClass {
 public:
  explicit PlaceClass(WNDPROC procedure) {
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = Window::Instance();
    description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
    description.lpszClassName = kClass;
    RegisterClassW(&description);
  }
  ~PlaceClass() { UnregisterClassW(kClass, Window::Instance()); }
  PlaceClass(const PlaceClass&) = delete;
  PlaceClass& operator=(const PlaceClass&) = delete;
};

}  // namespace

PlaceWindow::PlaceWindow(HWND parent, const RECT& place, std::function<void()> paint)
    : paint_(std::move(paint)) {
  static const PlaceClass registered(Handle);
  window_ = CreateWindowExW(WS_EX_NOPARENTNOTIFY, kClass, L"", WS_CHILD | WS_CLIPSIBLINGS,
                            place.left, place.top, place.right - place.left,
                            place.bottom - place.top, parent, nullptr, Window::Instance(), nullptr);
  if (window_ == nullptr) adapters::windows::Check(HRESULT_FROM_WIN32(GetLastError()));
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

PlaceWindow::~PlaceWindow() {
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

void PlaceWindow::Move(const RECT& place) {
  SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT CALLBACK PlaceWindow::Handle(HWND window, UINT message, WPARAM first, LPARAM second) {
  const auto* self = reinterpret_cast<PlaceWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_PAINT && self != nullptr) {
    ValidateRect(window, nullptr);
    const auto paint = self->paint_;
    paint();
    return 0;
  }
  if (message == WM_ERASEBKGND) return 1;
  return DefWindowProcW(window, message, first, second);
}

}  // namespace activex
