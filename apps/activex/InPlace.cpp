// The part of Activation that is the control's window in its container.

#include "Activation.h"
#include "Guard.h"

namespace activex {

HRESULT Activation::ActivateInPlace() {
  const ComPtr<IOleClientSite> client = site_.Client();
  if (!client) return E_UNEXPECTED;
  if (window_) {
    window_->Show(true);
    return S_OK;
  }
  const auto place = client.As<IOleInPlaceSite>(IID_IOleInPlaceSite);
  if (!place) return OLEOBJ_S_CANNOT_DOVERB_NOW;
  if (place->CanInPlaceActivate() != S_OK) return E_FAIL;
  HWND parent = nullptr;
  HRESULT result = place->GetWindow(&parent);
  if (FAILED(result)) return result;
  result = place->OnInPlaceActivate();
  if (FAILED(result)) return result;
  RECT position{};
  RECT clip{};
  OLEINPLACEFRAMEINFO frameInfo{};
  frameInfo.cb = sizeof frameInfo;
  result = place->GetWindowContext(frame_.Out(), document_.Out(), &position, &clip, &frameInfo);
  if (FAILED(result)) {
    place->OnInPlaceDeactivate();
    return result;
  }
  placeSite_ = place;
  window_ = std::make_unique<PlaceWindow>(parent, position, actions_.paint);
  SetObjectRects(&position, &clip);
  window_->Show(true);
  client->ShowObject();
  return S_OK;
}

HRESULT Activation::ActivateUI() {
  const HRESULT result = ActivateInPlace();
  if (result != S_OK || uiActive_) return result;
  const HRESULT allowed = placeSite_->OnUIActivate();
  if (FAILED(allowed)) return allowed;
  uiActive_ = true;
  SetActiveObject(this);
  return S_OK;
}

void Activation::SetActiveObject(IOleInPlaceActiveObject* object) {
  const wchar_t* const name = object == nullptr ? nullptr : L"";
  if (frame_) {
    frame_->SetActiveObject(object, name);
    if (object != nullptr) frame_->SetBorderSpace(nullptr);
  }
  if (document_) {
    document_->SetActiveObject(object, name);
    if (object != nullptr) document_->SetBorderSpace(nullptr);
  }
}

HRESULT Activation::GetWindow(HWND* window) noexcept {
  if (window == nullptr) return E_POINTER;
  *window = window_ ? window_->Get() : nullptr;
  return window_ ? S_OK : E_FAIL;
}

HRESULT Activation::UIDeactivate() noexcept {
  if (!uiActive_) return S_OK;
  uiActive_ = false;
  SetActiveObject(nullptr);
  if (placeSite_) placeSite_->OnUIDeactivate(FALSE);
  return S_OK;
}

HRESULT Activation::InPlaceDeactivate() noexcept {
  if (!placeSite_) return S_OK;
  const auto keep = ComPtr<IUnknown>::Share(&Whole());
  UIDeactivate();
  window_.reset();
  frame_.Reset();
  document_.Reset();
  const ComPtr<IOleInPlaceSite> place = std::exchange(placeSite_, {});
  place->OnInPlaceDeactivate();
  return S_OK;
}

HRESULT Activation::SetObjectRects(const RECT* place, const RECT* clip) noexcept {
  if (place == nullptr || clip == nullptr) return E_INVALIDARG;
  if (window_) window_->Move(*place);
  return S_OK;
}

HRESULT Activation::EnableModeless(BOOL enable) noexcept {
  site_.SetModal(!enable);
  return S_OK;
}

}  // namespace activex
