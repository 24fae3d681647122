#include "screens/DropDown.h"

#include <utility>

namespace screens {

DropDown::DropDown(PaneHost& field, const ListRows& rows, std::function<void()> onPicked)
    : field_(field), rows_(rows), onPicked_(std::move(onPicked)) {}

void DropDown::Show(int current, int least) {
  const bool opens = !Open();
  if (!popup_) {
    popup_ = field_.MakePopup(PopupKind::kDropDown, [this](PaneHost& host) {
      auto list = std::make_unique<ListPane>(host, rows_, onPicked_);
      list_ = list.get();
      return list;
    });
  }
  popup_->Show(list_->Wanted(least, field_.PopupRoom(PopupKind::kDropDown)));
  list_->Reset(current, opens);
  if (opens) field_.Announce(Tidings::kOpened, -1);
}

void DropDown::Close() {
  if (!Open()) return;
  popup_->Hide();
  field_.Announce(Tidings::kClosed, -1);
}

bool DropDown::PressKey(const KeyEvent& event) {
  if (!Open() || event.modifiers.alt) return false;
  constexpr int kPage = ListPane::kShownRows - 1;
  switch (event.key) {
    case Key::kDown:
      list_->MoveBy(1);
      return true;
    case Key::kUp:
      list_->MoveBy(-1);
      return true;
    case Key::kPageDown:
      list_->MoveBy(kPage);
      return true;
    case Key::kPageUp:
      list_->MoveBy(-kPage);
      return true;
    default:
      return false;
  }
}

}  // namespace screens
