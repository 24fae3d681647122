#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "adapters/windows/ControlWindow.h"
#include "adapters/windows/Paint.h"

namespace adapters::windows {

class FieldNote;

/// What the two composite fields of the suite share: around an EDIT of Windows a rounded border and
/// at its left end a small button that opens something below it. F4 and Alt+Down open it too. All
/// of it lies outside of the client area, so that the field is one window.
class FieldFrame {
 public:
  enum class Sign { kArrow, kCalendar };
  FieldFrame(const Surroundings& surroundings, Sign sign, std::function<void()> toggle);
  ~FieldFrame();

  /// The EDIT to make.
  static WindowPlan Plan(HWND parent);
  /// The EDIT that was made.
  void Attach(HWND field);
  /// The field's messages come here first. `ground` is the colour around the field.
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam,
                                   controls::Colour ground);
  /// Answers what colours the EDIT asks for; true when `message` was such a question.
  bool OnColours(UINT message, WPARAM wParam, LRESULT& result) const;

  std::wstring Text() const;
  /// Shows a text without it counting as typed: see Showing().
  void SetText(const std::wstring& text);
  /// SetText is under way: what the EDIT tells of a change now is none of the user's.
  bool Showing() const { return showing_; }
  void SelectAll() const { SendMessageW(field_, EM_SETSEL, 0, -1); }

  /// A short note below the field, which goes by itself; an empty text takes it away.
  void ShowNote(const std::wstring& text);
  /// The red border of a text that was not understood.
  void SetRefused(bool refused);
  bool Refused() const { return refused_; }

 private:
  RECT ButtonPlace() const;
  void LayOut(RECT& area) const;
  void Redraw() const;
  void PaintFrame(controls::Colour ground) const;
  void PaintSign(const Canvas& canvas, const RECT& button) const;
  void PaintText() const;
  void Hover(bool hovered);

  const Surroundings surroundings_;
  Sign sign_;
  std::function<void()> toggle_;
  HWND field_ = nullptr;
  std::unique_ptr<FieldNote> note_;
  bool showing_ = false;
  bool refused_ = false;
  bool hovered_ = false;
};

}  // namespace adapters::windows
