#pragma once

#include <optional>
#include <string>

#include "adapters/windows/Theme.h"
#include "adapters/windows/Window.h"
#include "screens/Pane.h"

namespace adapters::windows {

/// What a field needs of the window of the pane that it stands in.
class FieldHost {
 public:
  virtual ~FieldHost() = default;
  /// Sees keys, focus, wheel and moves of the mouse; with an answer the field does nothing more.
  virtual std::optional<LRESULT> OnFieldMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  /// Null while it is not there yet.
  virtual screens::Pane* FieldPane() const = 0;
  virtual bool FieldEnabled() const = 0;
};

/// Windows' EDIT as the field of a pane. It shows a text itself only while that is being edited.
class EditField : public Window, public screens::TextField {
 public:
  /// Hidden until it is moved.
  EditField(ErrorGuard& guard, const Theme& look, FieldHost& host, HWND parent);
  void Move(const screens::Rect& place) override;
  std::string Text() const override;
  void SetText(const std::string& text) override;
  void SelectAll() override { SendMessageW(Handle(), EM_SETSEL, 0, -1); }
  void SetLocked(bool locked) override { SendMessageW(Handle(), EM_SETREADONLY, locked, 0); }
  /// Takes the look's font anew.
  void TakeFont();

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnParentMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

 private:
  bool Focused() const { return GetFocus() == Handle(); }
  bool Locked() const { return (GetWindowLongPtrW(Handle(), GWL_STYLE) & ES_READONLY) != 0; }
  /// What goes in instead of a typed text; none where it goes in as it is.
  std::optional<std::wstring> TakenInstead(const std::wstring& text) const;
  bool Paste();
  void Put(const std::wstring& text);
  void PaintText() const;

  const Theme& look_;
  FieldHost& host_;
  bool showing_ = false;  // the text comes from the pane, not from the keys
};

/// WM_CTLCOLOREDIT and WM_CTLCOLORSTATIC of an EDIT on a field.
LRESULT FieldColours(HDC dc, bool enabled);

}  // namespace adapters::windows
