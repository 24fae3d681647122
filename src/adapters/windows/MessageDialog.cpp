#include "adapters/windows/MessageDialog.h"

#include <algorithm>
#include <utility>

#include "adapters/windows/Clipboard.h"
#include "adapters/windows/EditField.h"
#include "adapters/windows/HeldKey.h"
#include "adapters/windows/ModalLoop.h"
#include "adapters/windows/Surroundings.h"
#include "adapters/windows/Wide.h"

namespace adapters::windows {

using screens::Answer;

namespace {

// In design pixels.
constexpr int kMargin = 14;
constexpr int kGap = 12;
constexpr int kBadge = 40;
constexpr int kLeastText = 300;
constexpr int kMostText = 460;
constexpr int kButtonWidth = 88;
constexpr int kButtonHeight = 28;

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle =
    WS_EX_RTLREADING | WS_EX_RIGHT | WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

int WidestLine(HDC dc, const std::vector<std::wstring>& lines) {
  int widest = 0;
  for (const std::wstring& line : lines) widest = std::max(widest, TextWidth(dc, line));
  return widest;
}

}  // namespace

MessageDialog::MessageDialog(ErrorGuard& guard, Content content)
    : Window(guard),
      content_(std::move(content)),
      shown_(Wide(screens::ShownMessage(Utf8(content_.message)))) {
  LayOut();
  RECT place = client_;
  AdjustWindowRectEx(&place, kStyle, FALSE, kExtendedStyle);
  OffsetRect(&place, -place.left, -place.top);
  const HWND owner = DialogOwner();
  Create({.style = kStyle,
          .extendedStyle = kExtendedStyle,
          .parent = owner,
          .place = place,
          .text = content_.title});
  SetName(kFormProperty, "MessageDialog");
  if (!content_.technical.empty()) AddTechnicalBox();
  AddButtons();
  CentreOver(owner, Handle());
}

void MessageDialog::LayOut() {
  const screens::Scale& scale = theme_.GetScale();
  const auto px = [&scale](int design) { return scale.Design(design); };
  const Measuring measuring(theme_.Font());
  const HDC dc = measuring.Dc();
  const std::vector<std::wstring> lines = WrapText(dc, shown_, px(kMostText));
  // A little more than the text needs, so that painting never wraps it anew.
  const int textWidth = std::max(px(kLeastText), WidestLine(dc, lines) + px(4));
  const int textHeight = std::max(px(kBadge), static_cast<int>(lines.size()) * theme_.LineHeight());
  const int inner = textWidth + px(16) + px(kBadge);
  const int width = inner + 2 * px(18) + 2 * px(kMargin);

  frame_ = {px(kMargin), px(kMargin), width - px(kMargin), px(kMargin)};
  const int top = frame_.top + px(16);
  const int right = frame_.right - px(18);
  badge_ = {right - px(kBadge), top, right, top + px(kBadge)};
  message_ = {frame_.left + px(18), top, badge_.left - px(16), top + textHeight};
  frame_.bottom = message_.bottom + px(16);
  if (!content_.technical.empty()) {
    const int boxWidth = inner - 2 * px(8);
    const auto boxLines = WrapText(dc, content_.technical, boxWidth - px(4));
    const int boxHeight = static_cast<int>(boxLines.size()) * theme_.LineHeight() + 2 * px(7);
    technical_ = {message_.left, message_.bottom + px(kGap), right,
                  message_.bottom + px(kGap) + boxHeight};
    frame_.bottom = technical_.bottom + px(16);
  }
  client_ = {0, 0, width, frame_.bottom + px(kGap) + px(kButtonHeight) + px(kMargin)};
}

void MessageDialog::AddTechnicalBox() {
  RECT inside = technical_;
  InflateRect(&inside, -theme_.GetScale().Design(8), -theme_.GetScale().Design(7));
  technicalBox_ =
      CreateWindowExW(0, L"EDIT", content_.technical.c_str(),
                      WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_READONLY | ES_LEFT, inside.left,
                      inside.top, inside.right - inside.left, inside.bottom - inside.top, Handle(),
                      nullptr, Instance(), nullptr);
  SendMessageW(technicalBox_, WM_SETFONT, reinterpret_cast<WPARAM>(theme_.Font()), FALSE);
  // The box breaks lines in its own way, which may need more of them than were measured.
  const int height = static_cast<int>(inside.bottom - inside.top);
  const auto lines = static_cast<int>(SendMessageW(technicalBox_, EM_GETLINECOUNT, 0, 0));
  const int missing = std::max(0, lines * theme_.LineHeight() - height);
  for (LONG* edge : {&technical_.bottom, &frame_.bottom, &client_.bottom}) *edge += missing;
  SetWindowPos(technicalBox_, nullptr, 0, 0, inside.right - inside.left, height + missing,
               SWP_NOMOVE | SWP_NOZORDER);
  RECT whole{};
  GetWindowRect(Handle(), &whole);
  SetWindowPos(Handle(), nullptr, 0, 0, whole.right - whole.left,
               whole.bottom - whole.top + missing, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void MessageDialog::AddButtons() {
  const screens::Scale& scale = theme_.GetScale();
  const bool question = content_.kind == Kind::kQuestion;
  const Answer ofEnter = question ? screens::AnswerOfEnter(Utf8(content_.title)) : Answer::kYes;
  const auto add = [&](const wchar_t* caption, Answer answer) {
    const int taken = static_cast<int>(buttons_.size()) * scale.Design(kButtonWidth + 12);
    const LONG top = frame_.bottom + scale.Design(kGap);
    const LONG left = frame_.left + taken;
    const RECT place{left, top, left + scale.Design(kButtonWidth),
                     top + scale.Design(kButtonHeight)};
    buttons_.push_back(std::make_unique<PushButton>(Guard(), theme_, Handle(), place, caption,
                                                    [this, answer] { Finish(answer); }));
    buttons_.back()->Face().SetGrounds(content_.formGround, content_.buttonGround);
    if (answer == ofEnter) default_ = buttons_.back().get();
  };
  if (question) {
    add(L"خير", Answer::kNo);
    add(L"بله", Answer::kYes);
  } else {
    add(L"تأييد", Answer::kYes);
  }
  default_->Face().SetDefault(true);
}

Answer MessageDialog::Run() {
  ModalLoop loop(Handle());
  loop_ = &loop;
  // An hourglass of the work that asked would hide that the buttons can be pressed.
  const HCURSOR before = SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW)));
  ShowWindow(Handle(), SW_SHOW);
  SetForegroundWindow(Handle());
  SetFocus(default_->Handle());
  MessageBeep(content_.kind == Kind::kError ? MB_ICONERROR : MB_OK);
  loop.Run(Handle());
  loop.End();
  loop_ = nullptr;
  if (Handle() != nullptr) ShowWindow(Handle(), SW_HIDE);
  SetCursor(before);
  return answer_;
}

void MessageDialog::Finish(Answer answer) {
  answer_ = answer;
  if (loop_ != nullptr) loop_->End();
}

void MessageDialog::MoveFocus(int step) {
  const int count = static_cast<int>(buttons_.size());
  int at = 0;
  while (at < count && buttons_[static_cast<std::size_t>(at)]->Handle() != GetFocus()) ++at;
  at = at == count ? count - 1 : (at + step + count) % count;
  SetFocus(buttons_[static_cast<std::size_t>(at)]->Handle());
}

bool MessageDialog::OnKey(WPARAM key) {
  const bool question = content_.kind == Kind::kQuestion;
  switch (key) {
    case VK_TAB:
    case VK_LEFT:
    case VK_RIGHT: {
      const bool back = key == VK_LEFT || (key == VK_TAB && !Held(VK_SHIFT));
      MoveFocus(back ? -1 : 1);
      return true;
    }
    case VK_RETURN:  // a button that has the focus keeps it for itself
      SendMessageW(default_->Handle(), BM_CLICK, 0, 0);
      return true;
    case VK_ESCAPE:
      Finish(Answer::kNo);
      return true;
    case 'Y':
      if (question) Finish(Answer::kYes);
      return question;
    case 'N':
      if (question) Finish(Answer::kNo);
      return question;
    case 'C':
      if (!Held(VK_CONTROL)) return false;
      CopyTexts();
      return true;
    default:
      return false;
  }
}

void MessageDialog::CopyTexts() const {
  std::wstring texts = content_.title + L"\r\n" + content_.message;
  if (!content_.technical.empty()) texts += L"\r\n" + content_.technical;
  CopyToClipboard(Handle(), texts);
}

LRESULT MessageDialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      Paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_CLOSE:
      Finish(Answer::kNo);
      return 0;
    case WM_CTLCOLORSTATIC: {
      const auto dc = reinterpret_cast<HDC>(wParam);
      const LRESULT brush = FieldColours(dc, true);
      SetTextColor(dc, theme::kMutedText);
      return brush;
    }
    case kFormKeyDown:
      return OnKey(wParam) ? 1 : 0;
    case WM_KEYDOWN:
      OnKey(wParam);
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) != WA_INACTIVE && default_ != nullptr && !IsChild(Handle(), GetFocus())) {
        SetFocus(default_->Handle());
      }
      return 0;
    default:
      return Default(message, wParam, lParam);
  }
}

void MessageDialog::Paint() const {
  const PaintSession canvas(Handle());
  const screens::Scale& scale = theme_.GetScale();
  canvas.Fill(canvas.Area(), content_.formGround);
  canvas.RoundBox(frame_, scale.Design(5), content_.frameGround, theme::kLine);
  const controls::Colour ground = content_.kind == Kind::kError ? theme::kRefused : theme::kAccent;
  RECT disc = badge_;
  InflateRect(&disc, -1, -1);
  canvas.RoundBox(disc, scale.Design(kBadge) / 2, ground, ground);
  canvas.Text(Wide(screens::SignOf(content_.kind)), badge_,
              {.font = theme_.LargeFont(), .colour = theme::kOnAccent, .across = Across::kCentre});
  canvas.Text(shown_, message_, {.font = theme_.Font(), .wrapped = true});
  if (!content_.technical.empty()) {
    canvas.RoundBox(technical_, scale.Design(3), theme::kField, theme::kLine);
  }
}

}  // namespace adapters::windows
