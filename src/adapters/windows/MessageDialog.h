#pragma once

#include <memory>
#include <string>
#include <vector>

#include "adapters/windows/Paint.h"
#include "adapters/windows/PushButton.h"
#include "adapters/windows/Window.h"
#include "screens/Question.h"

namespace adapters::windows {

class ModalLoop;

/// The suite's message window: information with one button, a question with yes and no, or an
/// error. Modal to all windows of the thread, in the middle of the window that was active. Enter
/// and Esc, the arrow keys and, for a question, Y and N answer it; Ctrl+C copies its texts.
class MessageDialog : public Window {
 public:
  using Kind = screens::MessageKind;
  struct Content {
    std::wstring title;
    std::wstring message;
    /// Left-to-right text in a box of its own, which can be copied; empty for none.
    std::wstring technical;
    Kind kind = Kind::kInformation;
    controls::Colour formGround = controls::palette::kFormGround;
    controls::Colour buttonGround = controls::palette::kButton;
    controls::Colour frameGround = controls::palette::kFrame;
  };
  MessageDialog(ErrorGuard& guard, Content content);

  /// Shows it and waits. The single button of an information answers yes.
  screens::Answer Run();

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  /// Measures the texts and settles where everything stands.
  void LayOut();
  void AddTechnicalBox();
  void AddButtons();
  void Paint() const;
  bool OnKey(WPARAM key);
  void MoveFocus(int step);
  void Finish(screens::Answer answer);
  void CopyTexts() const;

  Content content_;
  std::wstring shown_;  // its message
  Theme theme_;
  RECT client_{};
  RECT frame_{};
  RECT badge_{};
  RECT message_{};
  RECT technical_{};
  HWND technicalBox_ = nullptr;
  std::vector<std::unique_ptr<PushButton>> buttons_;
  PushButton* default_ = nullptr;  // Enter's, and where the focus begins
  screens::Answer answer_ = screens::Answer::kNo;
  ModalLoop* loop_ = nullptr;
};

}  // namespace adapters::windows
