#pragma once

#include <unordered_map>

#include "adapters/qt/ControlView.h"
#include "controls/Controls.h"

namespace adapters::qt {

/// Makes the widget of each control, frames with what stands in them. Qt's parents own the widgets;
/// `views` tells which belongs to which control.
class WidgetFactory : public controls::ControlVisitor {
 public:
  using Views = std::unordered_map<const controls::Control*, ControlView*>;
  WidgetFactory(const Surroundings& surroundings, Views& views)
      : surroundings_(surroundings), views_(views) {}

  /// Makes the widgets of all controls of `container` as children of `parent`.
  void MakeAll(const controls::Container& container, QWidget& parent);

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
  template <typename View, typename Model>
  View& Make(Model& model);

  Surroundings surroundings_;
  Views& views_;
  QWidget* parent_ = nullptr;
};

}  // namespace adapters::qt
