#pragma once

#include <string_view>

namespace platform {

/// What the container gives to the control that it hosts: the place where property changes are
/// announced, the extender, through which the container sees the control, and a window that the
/// module's forms stand over.
class ControlSite {
 public:
  virtual ~ControlSite() = default;
  /// Marks the container's document as changed under a property key.
  virtual void PropertyChanged(std::string_view key) = 0;
  /// Extender size, in the container's units.
  virtual void SetExtenderHeight(double height) = 0;
  virtual void SetExtenderWidth(double width) = 0;
  virtual void SetExtenderVisible(bool visible) = 0;
  /// The module works for this control from here on, whichever it worked for before: what it shows
  /// stands over this container.
  virtual void Entered() = 0;
};

}  // namespace platform
