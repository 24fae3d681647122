#include "adapters/windows/BasicWindows.h"

#include "adapters/windows/Wide.h"

namespace adapters::windows {

using controls::Aspect;
using controls::Change;

namespace {

constexpr DWORD kChild = WS_CHILD | WS_CLIPSIBLINGS;

WindowPlan ButtonPlan(HWND parent) {
  // Drawn by its owner: that is this object, when it is told of it.
  return {.style = kChild | BS_OWNERDRAW, .extendedStyle = WS_EX_RTLREADING, .parent = parent};
}

bool Clicked(UINT message, WPARAM wParam) {
  return message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED;
}

}  // namespace

LabelWindow::LabelWindow(controls::Label& model, const Surroundings& surroundings, HWND parent)
    : WindowOf(model, surroundings) {
  Create({.style = kChild, .extendedStyle = WS_EX_RTLREADING, .parent = parent});
}

void LabelWindow::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) SetWindowTextW(Handle(), Wide(Model()->Caption()).c_str());
  Invalidate();
}

LRESULT LabelWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_PAINT) {
    const PaintSession canvas(Handle());
    canvas.Fill(canvas.Area(), Ground());
    if (!Model()) return 0;
    using Alignment = controls::Label::Alignment;
    TextLook look{.font = Look().Font(),
                  .colour = Enabled() ? theme::kText : theme::kMutedText,
                  .wrapped = canvas.Area().bottom >= 2 * Look().LineHeight()};
    if (Model()->TextAlignment() == Alignment::kCentre) look.across = Across::kCentre;
    if (Model()->TextAlignment() == Alignment::kLeft) look.across = Across::kLeft;
    canvas.Text(TextOf(Handle()), canvas.Area(), look);
    return 0;
  }
  if (message == WM_NCHITTEST) return HTTRANSPARENT;
  return WindowOf::OnMessage(message, wParam, lParam);
}

ButtonWindow::ButtonWindow(controls::Button& model, const Surroundings& surroundings, HWND parent)
    : WindowOf(model, surroundings), face_(surroundings.theme) {
  CreateStandard(L"BUTTON", ButtonPlan(parent));
}

void ButtonWindow::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) SetWindowTextW(Handle(), Wide(Model()->Caption()).c_str());
  face_.SetGrounds(Ground(), controls::palette::kButton);
  Invalidate();
}

LRESULT ButtonWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (face_.OnMessage(Handle(), message, wParam)) return 0;
  // Enter presses the button that has the focus.
  if (message == WM_KEYDOWN && wParam == VK_RETURN) {
    Call([](controls::Button& button) { button.Click(); });
    return 0;
  }
  return WindowOf::OnMessage(message, wParam, lParam);
}

bool ButtonWindow::OnParentMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/,
                                   LRESULT& /*result*/) {
  if (message == WM_DRAWITEM) {
    Invalidate();
    return true;
  }
  if (!Clicked(message, wParam)) return false;
  Call([](controls::Button& button) { button.Click(); });
  return true;
}

CheckWindow::CheckWindow(controls::CheckBox& model, const Surroundings& surroundings, HWND parent)
    : WindowOf(model, surroundings) {
  CreateStandard(L"BUTTON", ButtonPlan(parent));
}

void CheckWindow::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) {
    SetWindowTextW(Handle(), Wide(Model()->Caption()).c_str());
    checked_ = Model()->Checked();
  }
  Invalidate();
}

LRESULT CheckWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_PAINT) {
    Paint();
    return 0;
  }
  if (message == WM_LBUTTONDBLCLK) message = WM_LBUTTONDOWN;
  return WindowOf::OnMessage(message, wParam, lParam);
}

bool CheckWindow::OnParentMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/,
                                  LRESULT& /*result*/) {
  if (message == WM_DRAWITEM) {
    Invalidate();
    return true;
  }
  if (!Clicked(message, wParam)) return false;
  // The tick belongs to the model: a click asks it, and its answer comes as a change.
  Call([](controls::CheckBox& box) { box.Click(); });
  return true;
}

void CheckWindow::Paint() const {
  const PaintSession canvas(Handle());
  const Scale& scale = GetScale();
  const bool enabled = Enabled();
  const bool focused = GetFocus() == Handle();
  const int side = scale.Design(14);
  canvas.Fill(canvas.Area(), Ground());
  const LONG top = (canvas.Area().bottom - side) / 2;
  const RECT box{canvas.Area().right - side, top, canvas.Area().right, top + side};
  controls::Colour line = enabled ? theme::kBorder : theme::kLine;
  if (focused) line = theme::kAccent;
  canvas.RoundBox(box, scale.Design(3), enabled ? theme::kField : controls::palette::kFrame, line);
  const double unit = side / 14.0;
  if (checked_) {
    const double x = box.left;
    const double y = box.top;
    canvas.Stroke({{x + 3.2 * unit, y + 7.2 * unit},
                   {x + 6 * unit, y + 10 * unit},
                   {x + 10.8 * unit, y + 4.2 * unit}},
                  1.8 * unit, enabled ? theme::kAccent : theme::kMutedText);
  }
  controls::Colour ink = focused ? theme::kAccent : theme::kText;
  if (!enabled) ink = theme::kMutedText;
  const RECT text{0, 0, box.left - scale.Design(6), canvas.Area().bottom};
  canvas.Text(TextOf(Handle()), text, {.font = Look().Font(), .colour = ink});
}

FrameWindow::FrameWindow(controls::Frame& model, const Surroundings& surroundings, HWND parent)
    : WindowOf(model, surroundings) {
  Create({.style = kChild | WS_CLIPCHILDREN,
          .extendedStyle = WS_EX_CONTROLPARENT | WS_EX_RTLREADING,
          .parent = parent});
}

void FrameWindow::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) SetWindowTextW(Handle(), Wide(Model()->Caption()).c_str());
  Invalidate();
}

LRESULT FrameWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_PAINT) return WindowOf::OnMessage(message, wParam, lParam);
  Paint();
  return 0;
}

void FrameWindow::Paint() const {
  const PaintSession canvas(Handle());
  const RECT& area = canvas.Area();
  canvas.Fill(area, Ground());
  if (!Model() || Model()->BorderStyle() == controls::Frame::Border::kNone) return;
  const Scale& scale = GetScale();
  const std::wstring caption = TextOf(Handle());
  const LONG lineTop = caption.empty() ? 0 : Look().LineHeight() / 2;
  canvas.RoundBox({0, lineTop, area.right, area.bottom}, scale.Design(5), controls::palette::kFrame,
                  theme::kLine);
  if (caption.empty()) return;
  const int textWidth = TextWidth(Measuring(Look().Font()).Dc(), caption);
  const RECT place{area.right - textWidth - scale.Design(20), 0, area.right - scale.Design(8),
                   Look().LineHeight()};
  // The caption interrupts the line: form ground above it, frame ground below.
  canvas.Fill({place.left, lineTop, place.right, lineTop + scale.Design(2)},
              controls::palette::kFrame);
  canvas.Text(caption, place,
              {.font = Look().Font(),
               .colour = Enabled() ? theme::kDeepAccent : theme::kMutedText,
               .across = Across::kCentre});
}

}  // namespace adapters::windows
