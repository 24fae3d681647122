#pragma once

namespace controls {

class Control;
class Form;

enum class MousePointer { kDefault = 0, kHourglass = 11 };
enum class Modality { kModeless, kModal };

/// What forms ask of the screen that shows them.
class Screen {
 public:
  virtual ~Screen() = default;
  /// Shows the form's window, in front. kModal returns only when the form has been hidden, and the
  /// other windows take no input until then. kModeless throws RuntimeError 401 while a modal form
  /// (of the module or of its host) is up.
  virtual void Show(Form& form, Modality modality) = 0;
  virtual void Hide(Form& form) = 0;
  /// Drops the form's window, without a look at its controls; the form may be shown again later.
  /// Throws nothing.
  virtual void Unload(Form& form) = 0;
  virtual void SetFocus(Control& control) = 0;
  virtual void SetMousePointer(MousePointer pointer) = 0;
};

}  // namespace controls
