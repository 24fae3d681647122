#include "adapters/windows/Window.h"

#include <utility>

#include "adapters/windows/Com.h"
#include "adapters/windows/Wide.h"
#include "platform/RuntimeError.h"

// Set by the linker: where the module of this code begins, which is its HINSTANCE.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace adapters::windows {

namespace {

constexpr int kIcon = 1;
constexpr wchar_t kClassName[] = L"PromoterWindow";
constexpr wchar_t kObjectProperty[] = L"PromoterObject";

/// Windows keeps classes by module. A library has to take its class back before it is unloaded,
/// which is when the statics of a module are destroyed: hence this one object for the module.
class WindowClass {
 public:
  explicit WindowClass(WNDPROC procedure) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = procedure;
    description.hInstance = Window::Instance();
    description.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    // Of the library or program that this is linked into; the system's where it has none.
    description.hIcon = LoadIconW(Window::Instance(), MAKEINTRESOURCEW(kIcon));
    description.lpszClassName = kClassName;
    RegisterClassExW(&description);
  }
  ~WindowClass() { UnregisterClassW(kClassName, Window::Instance()); }
  WindowClass(const WindowClass&) = delete;
  WindowClass& operator=(const WindowClass&) = delete;
};

}  // namespace

Window::~Window() {
  if (handle_ == nullptr) return;
  const HWND handle = handle_;
  // What is derived from this is gone already: Windows' own procedure sees the window off.
  Forget();
  DestroyWindow(handle);
}

HINSTANCE Window::Instance() {
  return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

const wchar_t* Window::ClassName() {
  static const WindowClass registered(&Window::Procedure);
  return kClassName;
}

Window* Window::Of(HWND handle) {
  return handle == nullptr ? nullptr : static_cast<Window*>(GetPropW(handle, kObjectProperty));
}

void Window::Create(const WindowPlan& plan) {
  const bool standard = plan.standardClass != nullptr;
  const HWND handle = CreateWindowExW(
      plan.extendedStyle, standard ? plan.standardClass : ClassName(), L"", plan.style, 0, 0, 0, 0,
      plan.parent, nullptr, Instance(), standard ? nullptr : this);
  if (handle == nullptr) {
    throw platform::RuntimeError(7, SystemText(HRESULT_FROM_WIN32(GetLastError())));
  }
  if (!standard) return;
  Adopt(handle);
  standard_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Window::Procedure)));
}

void Window::Adopt(HWND handle) {
  handle_ = handle;
  SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  SetPropW(handle, kObjectProperty, this);
}

void Window::Forget() {
  const HWND handle = std::exchange(handle_, nullptr);
  RemovePropW(handle, kObjectProperty);
  SetWindowLongPtrW(handle, GWLP_USERDATA, 0);
  if (standard_ != nullptr) {
    SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(standard_));
  }
}

LRESULT CALLBACK Window::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    if (creation->lpCreateParams != nullptr) {
      static_cast<Window*>(creation->lpCreateParams)->Adopt(handle);
    }
  }
  auto* const window = reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
  if (window == nullptr) return DefWindowProcW(handle, message, wParam, lParam);
  LRESULT result = 0;
  window->guard_.Run([&] { result = window->OnMessage(message, wParam, lParam); });
  if (message == WM_NCDESTROY && window->handle_ == handle) window->Forget();
  return result;
}

LRESULT Window::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return Default(message, wParam, lParam);
}

LRESULT Window::Default(UINT message, WPARAM wParam, LPARAM lParam) {
  if (handle_ == nullptr) return 0;
  if (standard_ != nullptr) return CallWindowProcW(standard_, handle_, message, wParam, lParam);
  return DefWindowProcW(handle_, message, wParam, lParam);
}

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

}  // namespace adapters::windows
