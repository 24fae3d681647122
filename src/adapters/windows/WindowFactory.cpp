#include "adapters/windows/WindowFactory.h"

#include <utility>

#include "adapters/windows/BasicWindows.h"
#include "adapters/windows/ComboWindow.h"
#include "adapters/windows/DateBoxWindow.h"
#include "adapters/windows/PaneWindow.h"
#include "adapters/windows/SelectorWindow.h"
#include "adapters/windows/TextWindow.h"
#include "screens/GridPane.h"

namespace adapters::windows {

void WindowFactory::MakeAll(const controls::Container& container, HWND parent) {
  const HWND outer = std::exchange(parent_, parent);
  for (controls::Control* control : container.Controls()) control->Accept(*this);
  parent_ = outer;
}

template <typename ViewType, typename Model>
HWND WindowFactory::Make(Model& model) {
  auto view = std::make_unique<ViewType>(model, surroundings_, parent_);
  const HWND window = view->Handle();
  SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  view->Follow(model);
  windows_[&model] = std::move(view);
  return window;
}

void WindowFactory::Visit(controls::Label& label) {
  Make<LabelWindow>(label);
}
void WindowFactory::Visit(controls::TextBox& textBox) {
  Make<TextWindow>(textBox);
}
void WindowFactory::Visit(controls::Button& button) {
  Make<ButtonWindow>(button);
}
void WindowFactory::Visit(controls::CheckBox& checkBox) {
  Make<CheckWindow>(checkBox);
}
void WindowFactory::Visit(controls::ComboBox& comboBox) {
  Make<ComboWindow>(comboBox);
}
void WindowFactory::Visit(controls::ProgressBar& /*bar*/) {}
void WindowFactory::Visit(controls::Frame& frame) {
  MakeAll(frame, Make<FrameWindow>(frame));
}
void WindowFactory::Visit(controls::DateBox& dateBox) {
  Make<DateBoxWindow>(dateBox);
}
void WindowFactory::Visit(controls::Selector& selector) {
  Make<SelectorWindow>(selector);
}
void WindowFactory::Visit(controls::FlexGrid& grid) {
  Make<PaneOf<screens::GridPane>>(grid);
}

}  // namespace adapters::windows
