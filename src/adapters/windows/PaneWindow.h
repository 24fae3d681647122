#pragma once

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "adapters/windows/CellTip.h"
#include "adapters/windows/ControlWindow.h"
#include "adapters/windows/Paint.h"
#include "screens/Pane.h"

namespace adapters::windows {

/// A window for a pane: a thin frame, which shows the focus, scroll bars, the vertical one at the
/// left, and all else the pane's. Answers the messages of GridAutomation.h for a grid.
class PaneWindow : public ControlWindow, private screens::PaneHost {
 public:
  void Detach() override;

 protected:
  PaneWindow(const Surroundings& surroundings, HWND parent);
  screens::PaneHost& Host() { return *this; }
  void Show(std::unique_ptr<screens::Pane> pane) { pane_ = std::move(pane); }

  void Refresh(const controls::Change& change) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  screens::Scale GetScale() const override { return Look().GetScale(); }
  int LineHeight() const override { return Look().LineHeight(); }
  int TextWidth(std::string_view text, screens::Weight weight) const override;
  bool Enabled() const override { return ControlWindow::Enabled(); }
  void Repaint(const screens::Rect& area) override;
  void ScrollPart(const screens::Rect& area, int down) override;
  void SetScrollBar(screens::Axis axis, const screens::ScrollRange& range) override;
  void SetTimer(int milliseconds) override;
  void CopyToClipboard(const std::string& text) override;
  // The next six are not there yet.
  screens::TextField& Field() override { std::abort(); }
  std::unique_ptr<screens::Popup> MakePopup(screens::PopupKind,
                                            const screens::PaneMaker&) override {
    std::abort();
  }
  screens::Size PopupRoom(screens::PopupKind) const override { std::abort(); }
  void TakeFocus() override { std::abort(); }
  std::chrono::sys_days Today() const override { std::abort(); }
  void Announce(screens::Tidings, int) override {}

  std::optional<LRESULT> OnMouse(UINT message, WPARAM wParam, LPARAM lParam);
  void Press(screens::MouseButton button, int clicks, WPARAM held, screens::Point place);
  void Move(WPARAM held, screens::Point place);
  void OnWheel(WPARAM wParam, bool across);
  void OnScrollBar(screens::Axis axis, int request);
  bool OnKey(WPARAM key);
  bool OnCharacter(WPARAM unit);
  bool ShowPointer() const;
  void ShowFocus(bool focused);
  void PassSize();
  void Paint() const;
  void PaintFrame() const;
  std::optional<LRESULT> OnAutomation(UINT message, WPARAM wParam, LPARAM lParam) const;

  std::unique_ptr<screens::Pane> pane_;
  screens::ScrollRange down_{.count = -1};  // not set yet
  screens::ScrollRange across_{.count = -1};
  screens::Rect tipPlace_;
  std::unique_ptr<CellTip> tip_;
  bool focused_ = false;
  bool releasing_ = false;
};

/// The window of a kind of pane over its model.
template <typename PaneType>
class PaneOf : public PaneWindow {
 public:
  template <typename Model>
  PaneOf(Model& model, const Surroundings& surroundings, HWND parent)
      : PaneWindow(surroundings, parent) {
    Show(std::make_unique<PaneType>(model, Host()));
  }
};

}  // namespace adapters::windows
