#include "Control.h"

#include <algorithm>

#include "DistPromoterProg_h.h"
#include "Guard.h"
#include "adapters/windows/Window.h"

namespace activex {

Control::~Control() {
  Leave();
}

Control::Control(IUnknown* outer)
    : whole_(outer == nullptr ? *this : *outer),
      site_(*assembly_, [this](std::string_view key) { OnPropertyChanged(key); }),
      control_(assembly_->Main(), assembly_->Editor(), site_),
      automation_(whole_, control_),
      persistence_(whole_, control_),
      connections_(whole_),
      activation_(whole_, site_, persistence_,
                  {.paint = [this] { Paint(); },
                   .mayClose = [this] { return MayClose(); },
                   .close = [this] { assembly_->Leave(site_); }}),
      picture_(whole_, activation_, [this] { Paint(); }),
      quick_(whole_, activation_, picture_, connections_) {
  assembly_->Join(site_);
}

void* Control::Find(REFIID id) {
  struct Face {
    const IID& id;
    void* object;
  };
  const Face faces[] = {
      {IID_IUnknown, static_cast<IUnknown*>(this)},
      {IID_IDispatch, static_cast<IDispatch*>(&automation_)},
      {IID__DistPromoterProg, static_cast<_DistPromoterProg*>(&automation_)},
      {IID_ISupportErrorInfo, static_cast<ISupportErrorInfo*>(&automation_)},
      {IID_IPersist, static_cast<IPersistStreamInit*>(&persistence_)},
      {IID_IPersistPropertyBag, static_cast<IPersistPropertyBag*>(&persistence_)},
      {IID_IPersistStreamInit, static_cast<IPersistStreamInit*>(&persistence_)},
      {IID_IPersistStorage, static_cast<IPersistStorage*>(&persistence_)},
      {IID_IOleObject, static_cast<IOleObject*>(&activation_)},
      {IID_IOleControl, static_cast<IOleControl*>(&activation_)},
      {IID_IOleWindow, static_cast<IOleInPlaceObject*>(&activation_)},
      {IID_IOleInPlaceObject, static_cast<IOleInPlaceObject*>(&activation_)},
      {IID_IOleInPlaceActiveObject, static_cast<IOleInPlaceActiveObject*>(&activation_)},
      {IID_IViewObject, static_cast<IViewObject2*>(&picture_)},
      {IID_IViewObject2, static_cast<IViewObject2*>(&picture_)},
      {IID_IConnectionPointContainer, static_cast<IConnectionPointContainer*>(&connections_)},
      {IID_IProvideClassInfo, static_cast<IProvideClassInfo2*>(&connections_)},
      {IID_IProvideClassInfo2, static_cast<IProvideClassInfo2*>(&connections_)},
      {IID_IQuickActivate, static_cast<IQuickActivate*>(&quick_)},
  };
  const auto* found = std::ranges::find_if(faces, [&](const Face& face) { return face.id == id; });
  return found == std::end(faces) ? nullptr : found->object;
}

HRESULT Control::QueryInterface(REFIID id, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = Find(id);
  if (*object == nullptr) return E_NOINTERFACE;
  // Every interface begins with IUnknown; that of a part counts at the outer object.
  static_cast<IUnknown*>(*object)->AddRef();
  return S_OK;
}

ULONG Control::Release() noexcept {
  const ULONG left = --references_;
  if (left == 0) End();
  return left;
}

void Control::End() noexcept {
  // What is called on the way out may take and release references once more.
  references_ = 1;
  const bool last = assembly_.use_count() == 1;
  if (!last || !assembly_->Busy()) {
    delete this;
    return;
  }
  // The container let go in the middle of a form's event, which has to return to the module: the
  // end waits for the message loop.
  Leave();
  const HWND waiting = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                       adapters::windows::Window::Instance(), nullptr);
  SetTimer(waiting, reinterpret_cast<UINT_PTR>(this), USER_TIMER_MINIMUM, EndWhenIdle);
}

void CALLBACK Control::EndWhenIdle(HWND waiting, UINT, UINT_PTR timer, DWORD) {
  auto* const control = reinterpret_cast<Control*>(timer);
  if (control->assembly_->Busy()) return;
  KillTimer(waiting, timer);
  DestroyWindow(waiting);
  delete control;
}

void Control::Leave() noexcept {
  // What unloading a form fails with has no one left to go to.
  Guarded([this] {
    assembly_->Leave(site_);
    return S_OK;
  });
  ForgetError();
}

bool Control::MayClose() {
  return assembly_->IsUsedBeside(site_) || assembly_->Editor().MayClose();
}

void Control::OnPropertyChanged(std::string_view key) {
  persistence_.MarkDirty();
  connections_.PropertyChanged(automation_.MemberOf(key));
}

void Control::Paint() {
  // A container that redraws while its extender is set would have this paint for ever.
  if (painting_) return;
  const auto keep = ComPtr<IUnknown>::Share(&whole_);
  painting_ = true;
  Guarded([this] {
    control_.Paint();
    if (!site_.HasExtender()) activation_.HideWindow();
    return S_OK;
  });
  painting_ = false;
}

}  // namespace activex
