#pragma once

#include <optional>
#include <string>

#include "adapters/windows/Theme.h"
#include "adapters/windows/Window.h"
#include "screens/Pane.h"

namespace adapters::windows {

class PaneView;

/// Windows' EDIT as the field of a pane. It shows a text itself only while that is being edited.
class EditField : public Window, public screens::TextField {
 public:
  /// Hidden until it is moved.
  EditField(ErrorGuard& guard, const Theme& look, PaneView& view);
  void Move(const screens::Rect& place) override;
  void Hide() override;
  bool InUse() const { return !hidden_; }
  std::string Text() const override;
  void SetText(const std::string& text) override;
  void SelectAll() override { SendMessageW(Handle(), EM_SETSEL, 0, -1); }
  void SetLocked(bool locked) override { SendMessageW(Handle(), EM_SETREADONLY, locked, 0); }
  /// Takes the look's font anew.
  void TakeFont();
  /// Its text is another one.
  void Changed();
  /// WM_CTLCOLOREDIT and WM_CTLCOLORSTATIC.
  LRESULT Colours(HDC dc) const;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  bool Focused() const { return GetFocus() == Handle(); }
  bool Locked() const { return (GetWindowLongPtrW(Handle(), GWL_STYLE) & ES_READONLY) != 0; }
  /// What goes in instead of a typed text; none where it goes in as it is.
  std::optional<std::wstring> TakenInstead(const std::wstring& text) const;
  bool Paste();
  void Put(const std::wstring& text);
  controls::Colour Ground() const;
  void PaintText() const;

  const Theme& look_;
  PaneView& view_;
  bool hidden_ = false;
  bool showing_ = false;  // the text comes from the pane, not from the keys
};

}  // namespace adapters::windows
