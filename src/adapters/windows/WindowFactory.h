#pragma once

#include <memory>
#include <unordered_map>

#include "adapters/windows/ControlWindow.h"

namespace adapters::windows {

/// Makes the window of each control, frames with what stands in them.
class WindowFactory : public controls::ControlVisitor {
 public:
  using Windows = std::unordered_map<const controls::Control*, std::unique_ptr<ControlWindow>>;
  WindowFactory(const Surroundings& surroundings, Windows& windows)
      : surroundings_(surroundings), windows_(windows) {}

  /// Makes the windows of all controls of `container` as children of `parent`; those declared later
  /// lie above.
  void MakeAll(const controls::Container& container, HWND parent);

  void Visit(controls::Label& label) override;
  void Visit(controls::TextBox& textBox) override;
  void Visit(controls::Button& button) override;
  void Visit(controls::CheckBox& checkBox) override;
  void Visit(controls::ComboBox& comboBox) override;
  void Visit(controls::ProgressBar& bar) override;
  void Visit(controls::Frame& frame) override;
  void Visit(controls::DateBox& dateBox) override;
  void Visit(controls::Selector& selector) override;
  void Visit(controls::FlexGrid& grid) override;

 private:
  template <typename ViewType, typename Model>
  HWND Make(Model& model);

  Surroundings surroundings_;
  Windows& windows_;
  HWND parent_ = nullptr;
};

}  // namespace adapters::windows
