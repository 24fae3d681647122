#pragma once

#include <functional>
#include <string_view>

#include "Library.h"
#include "platform/ControlSite.h"

namespace activex {

class Assembly;

/// The container, as the control and the module see it; without one, nothing happens and nothing
/// fails.
class ContainerSite : public platform::ControlSite {
 public:
  /// `changed` hears the key of every property that is set.
  ContainerSite(Assembly& assembly, std::function<void(std::string_view key)> changed)
      : assembly_(assembly), changed_(std::move(changed)) {}

  /// A control that was closed takes up its use of the module again with a client.
  void SetClient(IOleClientSite* client);
  const ComPtr<IOleClientSite>& Client() const { return client_; }
  /// The top window that the container stands in; null when there is none.
  HWND Frame() const;
  /// The container said that it shows a modal form, or that it has none any more.
  void SetModal(bool modal) { modal_ = modal; }
  /// While it is so, a modeless form of the module may not be shown.
  bool Modal() const;
  /// Without one the control has to hide by itself.
  bool HasExtender() const { return static_cast<bool>(Extender()); }

  void PropertyChanged(std::string_view key) override { changed_(key); }
  void SetExtenderHeight(double height) override;
  void SetExtenderWidth(double width) override;
  void SetExtenderVisible(bool visible) override;
  void Entered() override;

 private:
  ComPtr<IDispatch> Extender() const;
  void PutToExtender(std::string_view name, const adapters::windows::Variant& value) const;

  Assembly& assembly_;
  std::function<void(std::string_view)> changed_;
  ComPtr<IOleClientSite> client_;
  bool modal_ = false;
};

}  // namespace activex
