#pragma once

#include <memory>

#include "ContainerSite.h"
#include "host/DistPromoterProg.h"

namespace activex {

/// The module of one control on everything that it stands on under Windows. The one place of the
/// library that names adapters for services.
class Assembly {
 public:
  /// Shows nothing and reaches nothing outside.
  explicit Assembly(ContainerSite& site);
  ~Assembly();
  Assembly(const Assembly&) = delete;
  Assembly& operator=(const Assembly&) = delete;

  host::DistPromoterProg& Control();
  /// A form's event is under way, which returns to what the module is made of.
  bool Busy() const;
  /// Closes whatever forms are open, unless Busy. What unloading one of them fails with is thrown.
  void UnloadForms();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace activex
