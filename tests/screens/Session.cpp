#include "screens/Session.h"

#include <sstream>

namespace screens {

namespace {

// As in the enumeration, but letters.
constexpr const char* kKeys[] = {"Space", "Enter", "Escape", "Backspace", "Insert",   "Up",
                                 "Down",  "Left",  "Right",  "PageUp",    "PageDown", "Home",
                                 "End",   "Tab",   "F3",     "F4",        "F6",       "A",
                                 "C",     "D",     "F",      "I",         "Y",        "Z"};
constexpr const char* kTidings[] = {"focus",   "name",   "value", "selection",
                                    "content", "opened", "closed"};

}  // namespace

std::string Session::Bar(const ScrollRange& range) {
  return std::to_string(range.place) + " of " + std::to_string(range.count) + ", " +
         std::to_string(range.page) + " seen";
}

void Session::DoOther(const std::string& what, const std::string& rest) {
  Pane& pane = trial.pane;
  if (what == "type") {
    trial.Type(rest);
  } else if (what == "retype") {
    trial.Retype(rest);
  } else if (what == "pick") {
    Pane& list = *trial.host.popup->pane;
    trial.Click(list, list.DescribePart(std::stoi(rest)).place.Middle());
  } else if (what == "hover") {
    trial.host.popup->pane->Pointer({PointerEvent::Action::kMove, PlaceOf(rest)});
  } else if (what == "wheel") {
    WheelEvent event;
    int times = 1;
    std::istringstream numbers(rest);
    numbers >> event.up >> event.left >> event.lines >> times;
    event.modifiers.shift = rest.ends_with("Shift");
    for (int time = 0; time < times; ++time) pane.Wheel(event);
  } else if (what == "focus" || what == "leave") {
    pane.FocusChanged(what == "focus");
  } else if (what == "lost") {
    pane.PointerLost();
  } else if (what == "away") {
    pane.PopupLeft();
  } else if (what == "below") {
    DoBelow(rest);
  } else if (what == "tip") {
    Hear("tip: " + pane.TipAt(PlaceOf(rest)).text);
  } else if (what == "tick") {
    pane.Tick();
  } else if (what == "idle") {
    for (int tick = 0; trial.host.timer != 0 && tick < 99; ++tick) pane.Tick();
  } else if (what == "act") {
    pane.Act(std::stoi(rest));
  } else if (what == "scroll") {
    const Axis axis = rest.starts_with("down") ? Axis::kDown : Axis::kAcross;
    pane.Scrolled(axis, std::stoi(rest.substr(rest.find(' '))));
  } else if (what == "picture") {
    TakePicture(rest);
  } else if (what == "resize") {
    std::istringstream(rest) >> size_.width >> size_.height;
    pane.Resized(size_);
  } else if (what == "dpi") {
    trial.host.dpi = std::stod(rest);
  } else if (what == "gone") {
    pane.Detach();
  } else if (!PressKeys(what)) {
    Mouse(what, rest);
  }
}

/// What comes to the open list or page by itself.
void Session::DoBelow(const std::string& what) {
  Pane& below = *trial.host.popup->pane;
  const std::size_t blank = std::min(what.find(' '), what.size());
  const std::string rest = what.substr(blank);
  if (what == "lost") {
    below.PointerLost();
  } else if (what.starts_with("act ")) {
    below.Act(std::stoi(rest));
  } else if (what.starts_with("scroll ")) {
    below.Scrolled(Axis::kDown, std::stoi(rest));
  } else if (what.starts_with("press ")) {
    below.Pointer({PointerEvent::Action::kPress, PlaceOf(rest)});
  } else if (what.starts_with("release ")) {
    below.Pointer({PointerEvent::Action::kRelease, PlaceOf(rest)});
  } else {
    support::Session::DoOther("below " + what, "");
  }
}

void Session::TakePicture(const std::string& of) {
  const ScriptedHost::ScriptedPopup* const other = of == "list"   ? trial.host.popup
                                                   : of == "note" ? trial.host.note
                                                                  : nullptr;
  const std::vector<std::string> now =
      other == nullptr ? PictureOf(trial.pane, size_) : PictureOf(*other->pane, other->size);
  const auto tell = [this](const auto& lines, const auto& others, const char* sign) {
    for (const std::string& line : lines) {
      if (std::ranges::count(lines, line) != std::ranges::count(others, line)) Hear(sign + line);
    }
  };
  std::vector<std::string>& last = pictures_[of];
  tell(last, now, "- ");
  tell(now, last, "+ ");
  last = now;
}

/// False for what is no key.
bool Session::PressKeys(std::string name) {
  Modifiers held;
  const auto take = [&name](const char* modifier) {
    if (!name.starts_with(modifier)) return false;
    name.erase(0, name.find('+') + 1);
    return true;
  };
  held.control = take("Ctrl+");
  held.shift = take("Shift+");
  held.alt = take("Alt+");
  const auto* const key = std::ranges::find(kKeys, name);
  if (key == std::end(kKeys)) return false;
  const auto index = static_cast<int>(Key::kSpace) + static_cast<int>(key - kKeys);
  if (!trial.Strike(static_cast<Key>(index), held)) Hear("the form's");
  return true;
}

void Session::Mouse(const std::string& what, const std::string& at) {
  using enum PointerEvent::Action;
  const Point place = PlaceOf(at);
  if (what == "press" || what == "click")
    trial.Mouse(kPress, place);
  else if (what == "double")
    trial.Mouse(kPress, place, 2);
  else if (what == "move")
    trial.Mouse(kMove, place);
  else if (what != "release")
    support::Session::DoOther(what, at);
  if (what == "release" || what == "click") trial.Mouse(kRelease, place);
}

Point Session::PlaceOf(const std::string& text) const {
  std::istringstream numbers(text);
  Point place;
  char between = ' ';
  numbers >> place.x >> std::noskipws >> between >> place.y;
  return between == ',' ? cellPlace(place.x, place.y).Middle() : place;
}

Session::Shown Session::Now() {
  ScriptedHost& host = trial.host;
  for (const auto& [what, part] : std::exchange(host.announced, {})) {
    Hear(std::string("tells ") + kTidings[static_cast<int>(what)] + " of " + std::to_string(part));
  }
  const Accessible told = trial.pane.Describe();
  Shown shown{
      {"value", told.value},
      {"field", host.field.hidden ? "hidden" : host.field.text},
      {"state", std::string(told.checked ? "checked" : "") + (told.expanded ? "open" : "")},
      {"note", host.note == nullptr || !host.note->visible ? "" : host.note->pane->Describe().name},
      {"down", Bar(host.down)},
      {"across", Bar(host.across)},
      {"timer", std::to_string(host.timer)},
      {"copied", host.copied},
      {"keyboard taken", std::to_string(host.focusTaken)}};
  if (host.popup != nullptr && host.popup->visible) {
    const Pane& list = *host.popup->pane;
    std::string at = "none";
    if (list.FocusedPart() >= 0) {
      const Accessible part = list.DescribePart(list.FocusedPart());
      at = part.name + " " + part.value + " " + part.description;
    }
    shown.emplace_back("dropped down", std::to_string(list.PartCount()) + ", at " + at);
  }
  if (alsoShown) {
    for (auto& each : alsoShown()) shown.push_back(std::move(each));
  }
  return shown;
}

}  // namespace screens
