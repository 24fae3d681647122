#pragma once

#include <memory>
#include <optional>
#include <string>

#include "adapters/windows/EditField.h"
#include "adapters/windows/PaneAccessible.h"
#include "adapters/windows/PaneTip.h"
#include "adapters/windows/Surroundings.h"
#include "screens/Pane.h"

namespace adapters::windows {

/// A window that a pane fills. One that scrolls has scroll bars, the vertical one at the left, and
/// a thin frame around it all, which shows the focus; all else is the pane's.
class PaneView : public Window, private screens::PaneHost {
 public:
  /// Where the keyboard goes for this pane: its field, where it has one.
  HWND FocusTarget() const { return HasField() ? field_->Handle() : Handle(); }
  bool HasField() const { return field_ && field_->InUse(); }
  ~PaneView() override { pane_.reset(); }

  /// The pane in it.
  screens::Pane* Shown() const { return pane_.get(); }
  bool Enabled() const override { return true; }
  /// Keys, focus, wheel and moves of the mouse of its field; with an answer the field does nothing
  /// more.
  std::optional<LRESULT> OnFieldMessage(UINT message, WPARAM wParam, LPARAM lParam);

 protected:
  explicit PaneView(const Surroundings& surroundings)
      : Window(surroundings.guard), surroundings_(surroundings) {}
  screens::PaneHost& Host() { return *this; }
  /// Once its window is made.
  void Fill(std::unique_ptr<screens::Pane> pane);
  void AddFrame();
  /// The scale or the font is another one.
  void Remeasure();

  const Theme& Look() const { return surroundings_.theme; }
  /// Whether a press takes the keyboard, and keys are for it.
  virtual bool TakesKeys() const { return false; }
  virtual controls::Colour FrameColour(bool focused) const;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  friend class PopupWindow;  // a window for the same surroundings
  static constexpr UINT_PTR kTimer = 1;
  static int BarOf(screens::Axis axis);
  /// Where the thumb is. The bar across begins at the left, the pane at the right.
  static int ThumbOf(screens::Axis axis, const screens::ScrollRange& range);

  // PaneView.cpp: what the pane asks
  screens::Scale GetScale() const override { return Look().GetScale(); }
  int LineHeight() const override { return Look().LineHeight(); }
  int TextWidth(std::string_view text, screens::Weight weight) const override;
  void Repaint(const screens::Rect& area) override;
  void ScrollPart(const screens::Rect& area, int down) override;
  void SetScrollBar(screens::Axis axis, const screens::ScrollRange& range) override;
  void SetTimer(int milliseconds) override;
  void CopyToClipboard(const std::string& text) override;
  screens::TextField& Field() override;
  std::unique_ptr<screens::Popup> MakePopup(screens::PopupKind kind,
                                            const screens::PaneMaker& make) override;
  screens::Size PopupRoom(screens::PopupKind kind) const override;
  void TakeFocus() override { SetFocus(FocusTarget()); }
  std::chrono::sys_days Today() const override { return surroundings_.desktop.Today(); }
  void Announce(screens::Tidings what, int part) override { TellScreenReader(*this, what, part); }

  // PaneEvents.cpp: what the pane is told
  std::optional<LRESULT> OnMouse(UINT message, WPARAM wParam, LPARAM lParam);
  void Press(screens::MouseButton button, int clicks, WPARAM held, screens::Point place);
  void AwaitLeaving();
  void Move(WPARAM held, screens::Point place);
  void ShowTip(screens::Point place);
  void OnWheel(WPARAM wParam, bool across);
  void OnScrollBar(screens::Axis axis, int request);
  std::optional<LRESULT> OnKeyboard(UINT message, WPARAM wParam);
  bool OnKey(WPARAM key, bool alt);
  bool OnCharacter(WPARAM unit);
  void OnFocus(bool focused, HWND other);
  bool ShowPointer() const;
  void PassSize();
  /// For a program that asks the window for its text.
  std::wstring ShownText() const;
  void Paint() const;
  void PaintFrame() const;

  Surroundings surroundings_;
  std::unique_ptr<EditField> field_;  // outlives the pane
  std::unique_ptr<screens::Pane> pane_;
  screens::ScrollRange down_{.count = -1};  // not set yet
  screens::ScrollRange across_{.count = -1};
  screens::Rect tipPlace_;
  std::unique_ptr<PaneTip> tip_;
  ScreenReaderLink reader_;
  bool framed_ = false;
  bool focused_ = false;
  bool hovered_ = false;
  bool releasing_ = false;
};

}  // namespace adapters::windows
