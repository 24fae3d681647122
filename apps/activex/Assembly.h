#pragma once

#include <memory>

#include "ContainerSite.h"
#include "module/Module.h"

namespace activex {

/// The module on everything that it stands on under Windows: one for all controls of a thread, made
/// by the first and ended with the last. The one place of the library that names adapters for
/// services.
///
/// It tells controls apart by their sites. Forms stand over the container of the control that
/// entered last, of those that have one.
class Assembly : public std::enable_shared_from_this<Assembly> {
 public:
  /// The calling thread's. Shows nothing and reaches nothing outside.
  static std::shared_ptr<Assembly> OfThread();
  ~Assembly();
  Assembly(const Assembly&) = delete;
  Assembly& operator=(const Assembly&) = delete;

  host::modMain& Main();
  editor::FormMain& Editor();
  /// A form's event is under way, which returns to what the module is made of.
  bool Busy() const;

  /// A control uses the module from here on; one that does already stays where it was.
  void Join(const ContainerSite& site);
  /// The module works for this control from here on.
  void Enter(const ContainerSite& site);
  /// A control's container has come, gone or changed.
  void FollowContainers();
  /// A control was closed or ends. Its container is not stood over any more; with the last that
  /// used the module the forms close, unless Busy. What unloading one of them fails with is thrown.
  void Leave(const ContainerSite& site);
  /// Another control than this one uses the module.
  bool IsUsedBeside(const ContainerSite& site) const;

 private:
  Assembly();

  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace activex
