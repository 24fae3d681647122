#include "ContainerSite.h"

#include <ocidl.h>

#include "Assembly.h"
#include "platform/ResumeNext.h"

namespace activex {

void ContainerSite::SetClient(IOleClientSite* client) {
  client_ = ComPtr<IOleClientSite>::Share(client);
  modal_ = false;
  if (client != nullptr) assembly_.Join(*this);
  assembly_.FollowContainers();
}

void ContainerSite::Entered() {
  assembly_.Enter(*this);
}

HWND ContainerSite::Frame() const {
  const auto place = client_.As<IOleInPlaceSite>(IID_IOleInPlaceSite);
  HWND window = nullptr;
  if (!place || FAILED(place->GetWindow(&window)) || window == nullptr) return nullptr;
  return GetAncestor(window, GA_ROOT);
}

bool ContainerSite::Modal() const {
  if (modal_) return true;
  // Containers without an active object to tell disable their windows all the same: the one that
  // the control is in, or the one that its modal form stands over.
  for (HWND window = Frame(); window != nullptr; window = GetWindow(window, GW_OWNER)) {
    if (IsWindowVisible(window) && !IsWindowEnabled(window)) return true;
  }
  return false;
}

ComPtr<IDispatch> ContainerSite::Extender() const {
  const auto site = client_.As<IOleControlSite>(IID_IOleControlSite);
  ComPtr<IDispatch> extender;
  if (!site || FAILED(site->GetExtendedControl(extender.Out()))) return {};
  return extender;
}

void ContainerSite::PutToExtender(std::string_view name,
                                  const adapters::windows::Variant& value) const {
  ComPtr<IDispatch> extender = Extender();
  if (!extender) return;
  adapters::windows::Dispatch properties(std::move(extender));
  // Extenders need not have every property, and a paint has nobody to fail to.
  platform::ResumeNext([&] { properties.Put(name, value); });
}

void ContainerSite::SetExtenderHeight(double height) {
  PutToExtender("Height", height);
}
void ContainerSite::SetExtenderWidth(double width) {
  PutToExtender("Width", width);
}
void ContainerSite::SetExtenderVisible(bool visible) {
  PutToExtender("Visible", visible);
}

}  // namespace activex
