#pragma once

#include <memory>

#include "adapters/windows/FieldFrame.h"
#include "adapters/windows/SelectorList.h"
#include "controls/Selector.h"

namespace adapters::windows {

/// The lookup selector: an edit whose typing narrows a list that drops down below it.
class SelectorWindow : public WindowOf<controls::Selector> {
 public:
  SelectorWindow(controls::Selector& model, const Surroundings& surroundings, HWND parent);
  void Detach() override;
  /// The drop-down list; null until it was first opened.
  SelectorList* Popup() const { return list_.get(); }
  const FieldFrame& Field() const { return frame_; }

 protected:
  void Refresh(const controls::Change& change) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnParentMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

 private:
  enum class Leaving { kSettle, kRestore };
  bool ListOpen() const { return list_ && list_->Visible(); }
  void Typed();
  void Toggle();
  void Open();
  void Close(Leaving leaving);
  void ShowRows(const std::wstring& typed);
  void ChooseCurrent();
  /// Ends an edit: an emptied box selects nothing, any other text gives way to the selected name.
  void Settle();
  void ShowSelected();
  bool OnKey(WPARAM key);
  bool OnListKey(WPARAM key);

  FieldFrame frame_;
  std::unique_ptr<SelectorList> list_;
  bool edited_ = false;
};

}  // namespace adapters::windows
