#include "adapters/qt/WidgetFactory.h"

#include <utility>

#include "adapters/qt/BasicWidgets.h"
#include "adapters/qt/DateBoxWidget.h"
#include "adapters/qt/PaneWidget.h"
#include "adapters/qt/SelectorWidget.h"
#include "screens/GridPane.h"

namespace adapters::qt {

void WidgetFactory::MakeAll(const controls::Container& container, QWidget& parent) {
  QWidget* const outer = std::exchange(parent_, &parent);
  for (controls::Control* control : container.Controls()) control->Accept(*this);
  parent_ = outer;
}

template <typename View, typename Model>
View& WidgetFactory::Make(Model& model) {
  auto* view = new View(model, surroundings_, parent_);
  view->setObjectName(ToQString(model.Name()));
  views_[&model] = view;
  view->Follow(model);
  return *view;
}

void WidgetFactory::Visit(controls::Label& label) {
  Make<LabelWidget>(label);
}

void WidgetFactory::Visit(controls::TextBox& textBox) {
  if (textBox.LineMode() == controls::TextBox::Lines::kOne) {
    Make<LineWidget>(textBox);
  } else {
    Make<MemoWidget>(textBox);
  }
}

void WidgetFactory::Visit(controls::Button& button) {
  Make<ButtonWidget>(button);
}
void WidgetFactory::Visit(controls::CheckBox& checkBox) {
  Make<CheckWidget>(checkBox);
}
void WidgetFactory::Visit(controls::ComboBox& comboBox) {
  Make<ComboWidget>(comboBox);
}
void WidgetFactory::Visit(controls::ProgressBar& /*bar*/) {}
void WidgetFactory::Visit(controls::Frame& frame) {
  MakeAll(frame, Make<FrameWidget>(frame));
}
void WidgetFactory::Visit(controls::DateBox& dateBox) {
  Make<DateBoxWidget>(dateBox);
}
void WidgetFactory::Visit(controls::Selector& selector) {
  Make<SelectorWidget>(selector);
}
void WidgetFactory::Visit(controls::FlexGrid& grid) {
  Make<PaneOf<screens::GridPane>>(grid);
}

}  // namespace adapters::qt
