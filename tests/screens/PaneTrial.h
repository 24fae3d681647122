#pragma once

#include <memory>
#include <string>

#include "controls/Form.h"
#include "screens/Following.h"
#include "screens/MakePane.h"
#include "screens/ScriptedHost.h"
#include "support/FakeScreen.h"

namespace screens {

/// A form on which a test puts controls.
struct TrialForm : controls::Form {
  explicit TrialForm(controls::Screen& screen) : Form(screen, "TrialForm", Border::kSizable) {}
};

/// A control's pane and a person before it.
template <typename PaneType>
struct PaneTrial {
  explicit PaneTrial(controls::Control& control, Size size = {200, 25})
      : made(MakePane(control, host)), pane(dynamic_cast<PaneType&>(*made)) {
    pane.Resized(size);
    following.Begin(control, [this, &control](const controls::Change& change) {
      host.enabled = control.Enabled();
      pane.Changed(change);
    });
  }
  bool Strike(Key key, Modifiers held = {}) { return pane.PressKey({key, held, {}}); }
  /// What the pane has no use for goes into its field, a letter at a time.
  void Type(const std::string& text) {
    for (std::size_t at = 0, end = 0; at < text.size(); at = end) {
      for (end = at + 1; end < text.size() && (text[end] & 0xC0) == 0x80;) ++end;
      const std::string letter = text.substr(at, end - at);
      if (pane.PressKey({letter == " " ? Key::kSpace : Key::kText, {}, letter})) continue;
      host.field.text += pane.Taken(letter);
      pane.Edited();
    }
  }
  void Retype(const std::string& text) {
    host.field.text.clear();
    pane.Edited();
    Type(text);
  }
  void Mouse(PointerEvent::Action action, Point at, int clicks = 1) {
    pane.Pointer({.action = action, .place = at, .clicks = clicks, .leftHeld = true});
  }
  void Click(Point at) { Click(pane, at); }
  static void Click(Pane& on, Point at) {
    on.Pointer({PointerEvent::Action::kPress, at});
    on.Pointer({PointerEvent::Action::kRelease, at});
  }
  RecordingSurface Painted(Size size = {400, 200}) const {
    RecordingSurface surface;
    pane.Paint(surface, {0, 0, size.width, size.height});
    return surface;
  }

  ScriptedHost host;
  std::unique_ptr<Pane> made;
  PaneType& pane;
  Following following;
};

}  // namespace screens
