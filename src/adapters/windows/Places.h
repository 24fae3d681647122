#pragma once

#include <windows.h>

#include "screens/WindowPlace.h"

namespace adapters::windows {

/// In the user's registry, under Software\DistPromoterProg\Windows.
class RegistryPlaces : public screens::PlaceStore {
 public:
  std::string Read(const std::string& form) const override;
  void Write(const std::string& form, const std::string& text) override;
};

/// Keeps the place of a form's window that is up and can be sized, by the form's name.
void KeepPlace(HWND window, const std::string& form, screens::PlaceStore& store);
/// Puts a hidden form's window that can be sized where it stood; none where there is no such place.
/// It is for the caller to show it maximised.
std::optional<screens::WindowPlace> TakePlace(HWND window, const std::string& form,
                                              const screens::PlaceStore& store);

}  // namespace adapters::windows
