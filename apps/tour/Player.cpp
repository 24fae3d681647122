#include "apps/tour/Player.h"

#include <algorithm>
#include <functional>

#include "text/Utf8.h"

namespace tour {

using screens::Accessible;
using screens::Key;
using screens::Point;
using screens::Role;

namespace {

using ThingPtr = std::unique_ptr<Thing>;

/// More stops than any form has.
constexpr int kMostTabs = 60;

std::string Quoted(const std::string& text) {
  return "«" + text + "»";
}

/// The first that it is true of, in the order in which they are read.
ThingPtr FindIn(ThingPtr thing, const std::function<bool(const Accessible&)>& wanted) {
  if (wanted(thing->Tell())) return thing;
  for (ThingPtr& child : thing->Children()) {
    if (ThingPtr found = FindIn(std::move(child), wanted)) return found;
  }
  return nullptr;
}

/// A field's pane or the field in it.
bool HasKeyboard(const Thing& thing) {
  if (thing.Tell().focused) return true;
  return std::ranges::any_of(thing.Children(),
                             [](const ThingPtr& child) { return HasKeyboard(*child); });
}

/// The letters of a text, one by one.
std::vector<std::string> Letters(const std::string& utf8) {
  std::vector<std::string> letters;
  for (std::size_t at = 0; at < utf8.size();) {
    const std::size_t begin = at;
    text::TakeCharacter(utf8, at);
    letters.push_back(utf8.substr(begin, at - begin));
  }
  return letters;
}

}  // namespace

bool Player::Is(Kind kind, Role role) {
  switch (kind) {
    case Kind::kButton:
      return role == Role::kButton || role == Role::kCheckBox;
    case Kind::kField:
      return role == Role::kField || role == Role::kComboBox;
    case Kind::kList:
      return role == Role::kTable;
    case Kind::kDropDown:
      return role == Role::kList;
  }
  return false;
}

std::vector<ThingPtr> Player::Front() {
  std::vector<ThingPtr> windows = hands_.Windows();
  const auto front = std::ranges::find_if(
      windows, [](const ThingPtr& window) { return window->Tell().role == Role::kNone; });
  if (front == windows.end()) throw Failure("expected a window");
  windows.erase(front + 1, windows.end());
  return windows;
}

ThingPtr Player::Find(Kind kind, const std::string& name) {
  std::string others;
  const auto wanted = [&](const Accessible& told) {
    if (!Is(kind, told.role)) return false;
    if (name.empty() || told.name == name) return true;
    others += " " + Quoted(told.name);
    return false;
  };
  for (ThingPtr& window : Front()) {
    if (ThingPtr found = FindIn(std::move(window), wanted)) return found;
  }
  throw Failure("expected " + Quoted(name) + " in " + Quoted(Title()) + "; there are" + others);
}

ThingPtr Player::Reach(Kind kind, const std::string& name) {
  ThingPtr thing = Find(kind, name);
  const Accessible told = thing->Tell();
  if (told.place.Empty()) throw Failure(Quoted(name) + " is not in sight");
  if (!told.enabled) throw Failure(Quoted(name) + " is disabled");
  return thing;
}

std::string Player::Title() {
  return Front().back()->Tell().name;
}

void Player::ExpectWindow(const std::string& title) {
  if (Title().starts_with(title)) return;
  throw Failure("expected the window " + Quoted(title) + "; in front is " + Quoted(Title()));
}

void Player::ExpectText(const std::string& text) {
  std::string others;
  const auto holds = [&](const Accessible& told) {
    if (told.role != Role::kLabel && told.role != Role::kNote) return false;
    others += " " + Quoted(told.name);
    return told.name.find(text) != std::string::npos;
  };
  for (ThingPtr& window : Front()) {
    if (FindIn(std::move(window), holds)) return;
  }
  throw Failure("expected the text " + Quoted(text) + "; there are" + others);
}

std::string Player::Text(const std::string& field) {
  return Find(Kind::kField, field)->Tell().value;
}

int Player::Rows(const std::string& list) {
  return Find(Kind::kList, list)->Rows();
}

std::string Player::CellText(const std::string& list, int row, int column) {
  const ThingPtr cell = Find(Kind::kList, list)->Cell(row, column);
  if (!cell) throw Failure("expected more rows in " + Quoted(list));
  return cell->Tell().value;
}

bool Player::IsMarked(const std::string& list, int row) {
  const ThingPtr cell = Find(Kind::kList, list)->Cell(row, 0);
  if (!cell) throw Failure("expected more rows in " + Quoted(list));
  return cell->Tell().selected;
}

void Player::ClickAt(Point place) {
  hands_.Point(Hands::Mouse::kMove, place);
  hands_.Point(Hands::Mouse::kPress, place);
  hands_.Point(Hands::Mouse::kRelease, place);
}

void Player::Press(Key key, int times, screens::Modifiers held) {
  for (int i = 0; i < times; ++i) hands_.Press({key, held});
}

ThingPtr Player::TabTo(Kind kind, const std::string& name) {
  ThingPtr thing = Reach(kind, name);
  for (int tabs = 0; !HasKeyboard(*thing); ++tabs) {
    if (tabs == kMostTabs) throw Failure("Tab does not lead to " + Quoted(name));
    Press(Key::kTab);
  }
  return thing;
}

void Player::Click(const std::string& button) {
  const ThingPtr thing = Reach(Kind::kButton, button);
  const Accessible told = thing->Tell();
  if (!ByKeys()) return ClickAt(told.place.Middle());
  if (!told.focused && !told.keys.empty()) {
    const std::string letter = told.keys.substr(told.keys.rfind('+') + 1);
    return hands_.Press({Key::kText, {.alt = true}, letter});
  }
  TabTo(Kind::kButton, button);
  Press(Key::kEnter);
}

void Player::Go(const std::string& name) {
  if (ByKeys()) {
    TabTo(Kind::kField, name);
    return;
  }
  ClickAt(Reach(Kind::kField, name)->Tell().place.Middle());
}

void Player::Type(const std::string& field, const std::string& text) {
  Go(field);
  Press(Key::kHome);
  Press(Key::kEnd, 1, {.shift = true});
  Write(text);
}

void Player::Write(const std::string& text) {
  for (const std::string& letter : Letters(text)) {
    hands_.Press({letter == " " ? Key::kSpace : Key::kText, {}, letter});
  }
}

void Player::Open(const std::string& field) {
  if (ByKeys()) {
    TabTo(Kind::kField, field);
    return Press(Key::kF4);
  }
  // Its sign stands at the left.
  const screens::Rect place = Reach(Kind::kField, field)->Tell().place;
  ClickAt({place.left + place.Height() / 2, place.Middle().y});
}

void Player::PickItem(const std::string& field, int item) {
  if (!Find(Kind::kField, field)->Tell().expanded) Open(field);
  const auto cell = [&] {
    ThingPtr found = Reach(Kind::kDropDown, {})->Cell(item, 0);
    if (!found) throw Failure("expected more items");
    return found;
  };
  if (!ByKeys()) return ClickAt(cell()->Tell().place.Middle());
  for (int downs = 0; !cell()->Tell().selected; ++downs) {
    if (downs == item) throw Failure("the arrow does not lead to item " + std::to_string(item));
    Press(Key::kDown);
  }
  Press(Key::kEnter);
}

void Player::WalkTo(const std::string& list, int row, int column) {
  const ThingPtr table = TabTo(Kind::kList, list);
  Press(Key::kHome, 1, {.control = true});
  Press(Key::kHome);
  Press(Key::kDown, row - 1);
  const ThingPtr cell = table->Cell(row, column);
  // The first columns of some lists are passed over.
  for (int lefts = 0; cell && !cell->Tell().focused; ++lefts) {
    if (lefts == column) throw Failure("arrows do not lead to that cell of " + Quoted(list));
    Press(Key::kLeft);
  }
}

ThingPtr Player::ReachCell(const std::string& list, int row, int column) {
  // The keys that sort stand below the heading.
  const int standsOn = std::max(row, 1);
  if (ByKeys()) WalkTo(list, standsOn, column);
  ThingPtr cell = Reach(Kind::kList, list)->Cell(ByKeys() ? standsOn : row, column);
  const std::string which = std::to_string(row) + ", " + std::to_string(column);
  if (!cell || cell->Tell().place.Empty()) {
    throw Failure("expected a cell " + which + " in sight in " + Quoted(list));
  }
  return cell;
}

void Player::ClickCell(const std::string& list, int row, int column) {
  const ThingPtr cell = ReachCell(list, row, column);
  if (!ByKeys()) return ClickAt(cell->Tell().place.Middle());
  Press(row == 0 ? Key::kF6 : Key::kSpace);
}

void Player::DoubleClickCell(const std::string& list, int row, int column) {
  const ThingPtr cell = ReachCell(list, row, column);
  if (ByKeys()) return Press(Key::kEnter);
  const Point place = cell->Tell().place.Middle();
  hands_.Point(Hands::Mouse::kMove, place);
  hands_.Point(Hands::Mouse::kDoubleClick, place);
}

void Player::DragRows(const std::string& list, int firstRow, int lastRow, int column) {
  const Point from = ReachCell(list, firstRow, column)->Tell().place.Middle();
  if (ByKeys()) return Press(Key::kDown, lastRow - firstRow, {.shift = true});
  const Point to = ReachCell(list, lastRow, column)->Tell().place.Middle();
  hands_.Point(Hands::Mouse::kMove, from);
  hands_.Point(Hands::Mouse::kPress, from);
  hands_.Point(Hands::Mouse::kMove, to);
  hands_.Point(Hands::Mouse::kRelease, to);
}

void Player::Picture(const std::string& name, int below) {
  const std::string number = std::to_string(++pictures_);
  hands_.Picture(1 + below,
                 folder_ + "/" + (pictures_ < 10 ? "0" : "") + number + "-" + name + ".png");
}

}  // namespace tour
