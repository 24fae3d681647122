#pragma once

#include <string>
#include <string_view>

namespace controls {

class Control;
class Form;
/// See controls/Control.h.
using Twips = double;

enum class MousePointer { kDefault = 0, kHourglass = 11 };
enum class Modality { kModeless, kModal, kWaiting };

/// What forms ask of the screen that shows them.
class Screen {
 public:
  virtual ~Screen() = default;
  /// Shows the form's window, in front. kModal returns only when the form has been hidden, and the
  /// other windows take no input until then. kModeless throws RuntimeError 401 while a modal form
  /// (of the module or of its host) is up. kWaiting returns at once, and the other windows take no
  /// input until the form has been hidden: for work that goes on meanwhile and calls Breathe.
  virtual void Show(Form& form, Modality modality) = 0;
  virtual void Hide(Form& form) = 0;
  /// Drops the form's window, without a look at its controls; the form may be shown again later.
  /// Throws nothing.
  virtual void Unload(Form& form) = 0;
  /// While a form waits: windows are painted, and what the user does to that form is carried out;
  /// what else was typed or clicked meanwhile is dropped.
  virtual void Breathe() = 0;
  virtual void SetFocus(Control& control) = 0;
  virtual MousePointer GetMousePointer() const = 0;
  virtual void SetMousePointer(MousePointer pointer) = 0;
  /// The system's sound of a message; none where it is switched off.
  virtual void Beep() = 0;
  /// UTF-8, lines ended by LF.
  virtual void CopyToClipboard(const std::string& text) = 0;
  /// Of a text on one line, and of lines of text, in the font of the forms: for forms that are as
  /// large as their text.
  virtual Twips TextWidth(std::string_view text) const = 0;
  virtual Twips LineHeight() const = 0;
};

}  // namespace controls
