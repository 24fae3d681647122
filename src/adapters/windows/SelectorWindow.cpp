#include "adapters/windows/SelectorWindow.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "adapters/windows/Wide.h"

namespace adapters::windows {

using controls::Aspect;
using controls::Change;
using controls::Selector;

namespace {

bool IsBlank(const std::wstring& text) {
  return text.find_first_not_of(L" \t\r\n\u00A0") == std::wstring::npos;
}

}  // namespace

SelectorWindow::SelectorWindow(Selector& model, const Surroundings& surroundings, HWND parent)
    : WindowOf(model, surroundings),
      frame_(surroundings, FieldFrame::Sign::kArrow, [this] { Toggle(); }) {
  CreateStandard(L"EDIT", FieldFrame::Plan(parent));
  frame_.Attach(Handle());
}

void SelectorWindow::Detach() {
  WindowOf::Detach();
  edited_ = false;
  if (list_) list_->Forget();
}

void SelectorWindow::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) ShowSelected();
  if (change.aspect == Aspect::kEnabled && !Model()->Enabled()) Close(Leaving::kRestore);
  // The model read its list anew or dropped it: rows kept here may not be there any more.
  if (change.aspect == Aspect::kItems && ListOpen()) {
    ShowRows(edited_ ? frame_.Text() : std::wstring());
  }
}

void SelectorWindow::ShowSelected() {
  edited_ = false;
  std::wstring name;
  Call([&](Selector& selector) { name = Wide(selector.DisplayText()); });
  frame_.SetText(name);
  SendMessageW(Handle(), EM_SETSEL, 0, 0);  // a long name shows its beginning
}

void SelectorWindow::Typed() {
  edited_ = true;
  if (ListOpen()) {
    ShowRows(frame_.Text());
  } else if (GetWindowTextLengthW(Handle()) > 0) {
    Open();
  }
}

void SelectorWindow::Toggle() {
  if (ListOpen()) {
    Close(Leaving::kRestore);
  } else {
    Open();
  }
}

void SelectorWindow::Open() {
  if (!Model() || !Enabled()) return;
  bool loaded = false;
  Call([&](Selector& selector) {
    selector.LoadList();
    loaded = true;
  });
  // A message that told of an error has taken the focus for good when the form went with it.
  if (!loaded || !Model()) return;
  if (!list_ || list_->Handle() == nullptr) {
    list_ = std::make_unique<SelectorList>(Around(), Handle());
    list_->Name(Model()->Name());
    list_->onLeft = [this] { Close(Leaving::kSettle); };
    list_->onPicked = [this] { ChooseCurrent(); };
  }
  ShowRows(edited_ ? frame_.Text() : std::wstring());
}

void SelectorWindow::ShowRows(const std::wstring& typed) {
  std::vector<std::size_t> rows;
  const std::vector<Selector::Row>& list = Model()->List();
  if (IsBlank(typed)) {
    rows.resize(list.size());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
  } else {
    rows = Model()->Narrow(Utf8(typed));
  }
  int current = typed.empty() || rows.empty() ? -1 : 0;
  for (std::size_t i = 0; current < 0 && Model()->HasSelection() && i < rows.size(); ++i) {
    if (list[rows[i]].id == Model()->SelectedID()) current = static_cast<int>(i);
  }
  RECT field{};
  GetWindowRect(Handle(), &field);
  list_->Show(*Model(), std::move(rows), current, static_cast<int>(field.right - field.left));
}

void SelectorWindow::ChooseCurrent() {
  if (!Model() || !list_ || list_->Current() < 0) return;
  const std::size_t row = list_->ListRow(list_->Current());
  edited_ = false;
  list_->Hide();
  const bool there = Call([&](Selector& selector) { selector.Choose(row); });
  // The same id again notifies nobody, yet the typed text has to go.
  if (there) ShowSelected();
}

void SelectorWindow::Close(Leaving leaving) {
  if (list_) list_->Hide();
  if (!edited_ || !Model()) return;
  if (leaving == Leaving::kSettle) {
    Settle();
  } else {
    ShowSelected();
  }
}

void SelectorWindow::Settle() {
  const bool emptied = edited_ && IsBlank(frame_.Text());
  const bool there = !emptied || Call([](Selector& selector) { selector.ChooseNone(); });
  if (edited_ && there && Model()) ShowSelected();
}

bool SelectorWindow::OnKey(WPARAM key) {
  if (ListOpen()) return OnListKey(key);
  switch (key) {
    case VK_DOWN:
    case VK_UP:
      Open();
      return true;
    case VK_RETURN:
      if (!edited_) return false;
      Settle();
      return true;
    case VK_ESCAPE:
      if (!edited_ || !Model()) return false;
      ShowSelected();
      return true;
    default:
      return false;
  }
}

bool SelectorWindow::OnListKey(WPARAM key) {
  constexpr int kPage = SelectorList::kShownRows - 1;
  switch (key) {
    case VK_DOWN:
      list_->MoveBy(1);
      return true;
    case VK_UP:
      list_->MoveBy(-1);
      return true;
    case VK_NEXT:
      list_->MoveBy(kPage);
      return true;
    case VK_PRIOR:
      list_->MoveBy(-kPage);
      return true;
    case VK_RETURN:
      if (list_->Current() >= 0) {
        ChooseCurrent();
      } else {
        Close(Leaving::kSettle);
      }
      return true;
    case VK_ESCAPE:
      Close(Leaving::kRestore);
      return true;
    case VK_TAB:
      // Leaving with a narrowed list takes the row that stands marked in it.
      if (edited_ && !IsBlank(frame_.Text()) && list_->Current() >= 0) {
        ChooseCurrent();
      } else {
        Close(Leaving::kSettle);
      }
      return false;  // the form moves the focus on
    default:
      return false;
  }
}

LRESULT SelectorWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const auto answer = frame_.OnMessage(message, wParam, lParam, Ground())) return *answer;
  switch (message) {
    case WM_KEYDOWN:
      if (OnKey(wParam)) return 0;
      break;
    case WM_MOUSEWHEEL:
      if (ListOpen()) return SendMessageW(list_->Handle(), message, wParam, lParam);
      break;
    case WM_ERASEBKGND:
      return Default(message, wParam, lParam);
    case WM_KILLFOCUS: {
      const LRESULT result = Default(message, wParam, lParam);
      Close(Leaving::kSettle);
      return result;
    }
    default:
      break;
  }
  return WindowOf::OnMessage(message, wParam, lParam);
}

bool SelectorWindow::OnParentMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/,
                                     LRESULT& result) {
  if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE) {
    if (!frame_.Showing()) Typed();
    return true;
  }
  return frame_.OnColours(message, wParam, result);
}

}  // namespace adapters::windows
