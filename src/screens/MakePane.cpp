#include "screens/MakePane.h"

#include "screens/ButtonPanes.h"
#include "screens/ComboPane.h"
#include "screens/DatePane.h"
#include "screens/GridPane.h"
#include "screens/PagesPane.h"
#include "screens/PlainPanes.h"
#include "screens/SelectorPane.h"
#include "screens/TextPane.h"

namespace screens {

namespace {

class Maker : public controls::ControlVisitor {
 public:
  explicit Maker(PaneHost& host) : host_(host) {}
  std::unique_ptr<Pane> Take() { return std::move(pane_); }

  void Visit(controls::Label& label) override { Make<LabelPane>(label); }
  void Visit(controls::TextBox& box) override { Make<TextPane>(box); }
  void Visit(controls::Button& button) override { Make<ButtonPane>(button); }
  void Visit(controls::CheckBox& box) override { Make<CheckPane>(box); }
  void Visit(controls::ComboBox& box) override { Make<ComboPane>(box); }
  void Visit(controls::ProgressBar& bar) override { Make<ProgressPane>(bar); }
  void Visit(controls::Frame& frame) override { Make<FramePane>(frame); }
  void Visit(controls::DateBox& box) override { Make<DatePane>(box); }
  void Visit(controls::Selector& selector) override { Make<SelectorPane>(selector); }
  void Visit(controls::FlexGrid& grid) override { Make<GridPane>(grid); }
  void Visit(controls::PageView& pages) override { Make<PagesPane>(pages); }

 private:
  template <typename PaneType, typename Model>
  void Make(Model& model) {
    pane_ = std::make_unique<PaneType>(model, host_);
  }
  PaneHost& host_;
  std::unique_ptr<Pane> pane_;
};

}  // namespace

std::unique_ptr<Pane> MakePane(controls::Control& control, PaneHost& host) {
  Maker maker(host);
  control.Accept(maker);
  return maker.Take();
}

}  // namespace screens
