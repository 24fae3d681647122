#pragma once

#include <string>

#include "controls/Control.h"
#include "controls/Screen.h"

namespace controls {

class Button;

/// A form: a container with a caption, a size and a life. It is loaded once, on first use, then
/// shown and hidden as often as needed; hiding keeps its contents, unloading ends them, and the
/// next use loads it anew.
class Form : public Container {
 public:
  enum class Border { kFixed, kSizable };
  /// `screen` must outlive the form.
  Form(Screen& screen, std::string name, Border border);
  /// Drops the window of a form that is still loaded; its controls are gone by then.
  ~Form() override;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  Form& OwnForm() override { return *this; }
  Screen& GetScreen() const { return screen_; }
  const std::string& Name() const { return name_; }
  Border BorderStyle() const { return border_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);

  /// Size of the area that holds the controls, without the window's frame.
  Twips Width() const { return width_; }
  Twips Height() const { return height_; }
  /// Called by the form for its designed size and by the screen when the user resized the window;
  /// lets the form lay out its controls when the size is another one. Negative sizes throw
  /// RuntimeError 380.
  void Resize(Twips width, Twips height);
  /// Smallest size that the screen lets a user drag the window to; 0 is no limit.
  Twips MinWidth() const { return minWidth_; }
  Twips MinHeight() const { return minHeight_; }

  bool Loaded() const { return loaded_; }
  bool Visible() const { return visible_; }

  /// Runs FormLoad unless the form is loaded already. When FormLoad throws, the form stays
  /// unloaded.
  void Load();
  /// Loads and shows. Showing modeless throws what Screen::Show throws, the form then stays hidden;
  /// showing a visible form modally throws RuntimeError 400, showing it modeless brings it to the
  /// front. kModal returns when it is hidden.
  void Show(Modality modality);
  /// Ends a modal or waiting Show.
  void Hide();
  /// Hides and forgets that it was loaded. A form that is not loaded stays as it is.
  void Unload();
  /// The user pressed the window's close box.
  void CloseBox() { FormClose(); }

  /// Where the keyboard is each time the form comes up; null leaves it where it was, at first on
  /// the first control of the tab order.
  Control* FirstFocus() const { return firstFocus_; }
  /// Enter that the control with the focus (null: none has it) had no use for: clicks the default
  /// button of the nearest frame around it that has one, else the form's. False when there is none.
  bool PressEnter(const Control* focused);
  /// Esc that no control had a use for: clicks the cancel button, or is the close box where the
  /// form says so. False when it is neither.
  bool PressEscape();

  /// The caption changed (kText) or the size (kBounds).
  Subscription Subscribe(Observers::Listener listener) {
    return observers_.Subscribe(std::move(listener));
  }

 protected:
  virtual void FormLoad() {}
  virtual void FormResize() {}
  /// What the close box does; hides unless a form says otherwise.
  virtual void FormClose() { Hide(); }
  void SetMinimumSize(Twips width, Twips height);
  void SetDefaultButton(Button* button) { defaultButton_ = button; }
  void SetCancelButton(Button* button) { cancelButton_ = button; }
  /// For a form without a cancel button.
  void SetEscapeCloses() { escapeCloses_ = true; }
  void SetFirstFocus(Control* control) { firstFocus_ = control; }

 private:
  Screen& screen_;
  std::string name_;
  std::string caption_;
  Border border_;
  Observers observers_;
  Twips width_ = 0;
  Twips height_ = 0;
  Twips minWidth_ = 0;
  Twips minHeight_ = 0;
  Button* defaultButton_ = nullptr;
  Button* cancelButton_ = nullptr;
  Control* firstFocus_ = nullptr;
  bool escapeCloses_ = false;
  bool loaded_ = false;
  bool visible_ = false;
};

}  // namespace controls
