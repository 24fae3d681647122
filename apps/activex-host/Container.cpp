#include "Container.h"

#include "DistPromoterProg_h.h"
#include "Office.h"
#include "adapters/windows/Wide.h"
#include "platform/RuntimeError.h"

namespace activexhost {

namespace {

using adapters::windows::Check;
using adapters::windows::ComPtr;
using adapters::windows::Dispatch;
using adapters::windows::Utf8;
using adapters::windows::Variant;
using adapters::windows::Wide;

constexpr wchar_t kProgId[] = L"comDistPromoterProg.DistPromoterProg";
constexpr char kLibrary[] = "DistPromoterProg.ocx";
enum Command {
  kClearShowCommand = 100,
  kViewCommand,
  kBagCommand,
  kAnotherCommand,
  kAboutCommand,
  kExitCommand,
  kNumberField
};

/// The library beside the program, for a trial without registration.
HMODULE LoadBeside() {
  return LoadLibraryW(Wide(ProgramFolder() + kLibrary).c_str());
}

ComPtr<IOleObject> CreateFrom(HMODULE library) {
  using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
  const auto getClassObject = reinterpret_cast<GetClassObject>(
      reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
  ComPtr<IClassFactory> factory;
  if (getClassObject == nullptr) Check(REGDB_E_CLASSNOTREG);
  Check(getClassObject(CLSID_DistPromoterProg, IID_IClassFactory, factory.OutVoid()));
  ComPtr<IOleObject> object;
  Check(factory->CreateInstance(nullptr, IID_IOleObject, object.OutVoid()));
  return object;
}

HMENU MakeMenu() {
  const HMENU commands = CreatePopupMenu();
  AppendMenuW(commands, MF_STRING, kClearShowCommand, L"&ClearShow");
  AppendMenuW(commands, MF_STRING, kViewCommand, L"&View");
  AppendMenuW(commands, MF_STRING, kBagCommand, L"&Properties");
  AppendMenuW(commands, MF_SEPARATOR, 0, nullptr);
  AppendMenuW(commands, MF_STRING, kAnotherCommand, L"&Another window");
  AppendMenuW(commands, MF_STRING, kAboutCommand, L"A&bout");
  AppendMenuW(commands, MF_STRING, kExitCommand, L"E&xit");
  const HMENU menu = CreateMenu();
  AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(commands), L"&Control");
  return menu;
}

}  // namespace

Container::Container(const Login& login, MenuCalls calls) : calls_(std::move(calls)) {
  bag_.Set(L"UserID", login.user);
  bag_.Set(L"EmployeeID", login.employee);
  bag_.Set(L"OLEConnectionString", login.connectionString);
  MakeWindow();
  MakeControl();
}

Container::~Container() {
  control_ = Dispatch();
  if (changes_) changes_->Unadvise(changesCookie_);
  changes_.Reset();
  if (object_) {
    if (const auto persist = object_.As<IPersistPropertyBag>(IID_IPersistPropertyBag)) {
      persist->Save(&bag_, TRUE, TRUE);
    }
    object_->Close(OLECLOSE_NOSAVE);
    object_->SetClientSite(nullptr);
    object_.Reset();
  }
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
  if (library_ != nullptr) FreeLibrary(library_);
}

void Container::MakeWindow() {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = &Container::Procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hIcon = LoadIconW(windowClass.hInstance, MAKEINTRESOURCEW(1));
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
  windowClass.lpszClassName = L"PromoterContainer";
  RegisterClassW(&windowClass);
  window_ = CreateWindowExW(WS_EX_APPWINDOW, windowClass.lpszClassName, L"DistPromoterProg",
                            WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 20, 20, 420, 180, nullptr,
                            MakeMenu(), windowClass.hInstance, nullptr);
  if (window_ == nullptr) Check(HRESULT_FROM_WIN32(GetLastError()));
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  const auto child = [&](const wchar_t* kind, const wchar_t* text, DWORD style, int left, int width,
                         int id) {
    return CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, left, 16,
                           width, 26, window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                           windowClass.hInstance, nullptr);
  };
  child(L"BUTTON", L"ClearShow", 0, 16, 110, kClearShowCommand);
  number_ = child(L"EDIT", L"1", WS_BORDER | ES_NUMBER, 150, 70, kNumberField);
  child(L"BUTTON", L"View", BS_DEFPUSHBUTTON, 230, 110, kViewCommand);
}

void Container::MakeControl() {
  site_ = std::make_unique<Site>(window_);
  CLSID registered;
  HRESULT made = CLSIDFromProgID(kProgId, &registered);
  if (SUCCEEDED(made)) {
    made = CoCreateInstance(registered, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject,
                            object_.OutVoid());
  }
  if (FAILED(made)) {
    library_ = LoadBeside();
    if (library_ == nullptr) Check(made, "DistPromoterProg");
    object_ = CreateFrom(library_);
  }
  Check(object_->SetClientSite(site_.get()));
  const auto persist = object_.As<IPersistPropertyBag>(IID_IPersistPropertyBag);
  if (!persist) Check(E_NOINTERFACE);
  Check(persist->Load(&bag_, nullptr));
  if (const auto points = object_.As<IConnectionPointContainer>(IID_IConnectionPointContainer)) {
    if (SUCCEEDED(points->FindConnectionPoint(IID_IPropertyNotifySink, changes_.Out()))) {
      Check(changes_->Advise(static_cast<IPropertyNotifySink*>(site_.get()), &changesCookie_));
    }
  }
  control_ = Dispatch(object_.As<IDispatch>(IID_IDispatch));
  RECT place{16, 60, 116, 160};
  Check(object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.get(), 0, window_, &place));
}

template <typename Action>
void Container::ShowingErrors(Action&& action) {
  failed_ = false;
  try {
    action();
  } catch (const platform::RuntimeError& error) {
    failed_ = true;
    const std::wstring text =
        Wide(error.Description() + "\n\n" + error.Source() + " " + std::to_string(error.Number()));
    MessageBoxW(window_, text.c_str(), L"DistPromoterProg",
                MB_ICONERROR | MB_RTLREADING | MB_RIGHT);
  }
}

void Container::ClearShow() {
  ShowingErrors([&] { control_.Call("ClearShow"); });
}

void Container::View(std::int32_t program) {
  ShowingErrors([&] { control_.Call("View", {Variant(program)}); });
}

void Container::OnCommand(int command) {
  switch (command) {
    case kClearShowCommand:
      ClearShow();
      break;
    case kViewCommand:
      View(static_cast<std::int32_t>(GetDlgItemInt(window_, kNumberField, nullptr, TRUE)));
      break;
    case kBagCommand:
      ShowingErrors([&] {
        if (const auto persist = object_.As<IPersistPropertyBag>(IID_IPersistPropertyBag)) {
          Check(persist->Save(&bag_, TRUE, TRUE));
        }
        const std::wstring text = Wide(bag_.Listing());
        MessageBoxW(window_, text.c_str(), L"DistPromoterProg", MB_ICONINFORMATION);
      });
      break;
    case kAnotherCommand:
      ShowingErrors(calls_.another);
      break;
    case kAboutCommand:
      calls_.about();
      break;
    case kExitCommand:
      PostMessageW(window_, WM_CLOSE, 0, 0);
      break;
    default:
      break;
  }
}

/// A windowless control is drawn by its container; this one then shrinks and hides itself.
void Container::OnPaint() const {
  PAINTSTRUCT paint;
  const HDC target = BeginPaint(window_, &paint);
  const auto view = object_.As<IViewObject>(IID_IViewObject);
  if (view && site_->ControlExtender().Visible()) {
    const RECTL place{16, 60, 116, 160};
    view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, target, &place, nullptr, nullptr,
               0);
  }
  EndPaint(window_, &paint);
}

void Container::OnClose() {
  if (object_->Close(OLECLOSE_PROMPTSAVE) == OLE_E_PROMPTSAVECANCELLED) return;
  closed_ = true;
  ShowWindow(window_, SW_HIDE);
}

LRESULT CALLBACK Container::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const self = reinterpret_cast<Container*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  switch (message) {
    case WM_COMMAND:
      self->OnCommand(LOWORD(wParam));
      return 0;
    case WM_PAINT:
      self->OnPaint();
      return 0;
    case WM_CLOSE:
      self->OnClose();
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

}  // namespace activexhost
