#include "screens/MessageForm.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "screens/DialogMetrics.h"
#include "screens/PlainPointer.h"
#include "screens/WrapText.h"

namespace screens {

using controls::Twips;
using namespace dialog;

namespace {

constexpr Twips kFrameAcross = 18 * kPixel;
constexpr Twips kFrameDown = 16 * kPixel;
constexpr Twips kSign = 40 * kPixel;
constexpr Twips kLeastText = 300 * kPixel;
constexpr Twips kMostText = 460 * kPixel;
// A little more than a text needs, so that no rounding to pixels wraps it anew.
constexpr Twips kToSpare = 4 * kPixel;
constexpr Twips kTechnicalMargin = 6 * kPixel;
/// The whole of a longer one can be copied.
constexpr std::size_t kMostTechnicalLines = 12;

std::vector<std::string> Wrapped(const controls::Screen& screen, std::string_view text,
                                 Twips width) {
  return WrapText(text, static_cast<int>(width), [&screen](std::string_view part) {
    return static_cast<int>(std::ceil(screen.TextWidth(part)));
  });
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text = lines.front();
  for (std::size_t line = 1; line < lines.size(); ++line) text.append("\n").append(lines[line]);
  return text;
}

Twips HeightOf(const controls::Screen& screen, const std::vector<std::string>& lines) {
  return static_cast<double>(lines.size()) * screen.LineHeight() + kToSpare;
}

std::vector<std::string> TechnicalLines(const controls::Screen& screen, std::string_view text,
                                        Twips width) {
  std::vector<std::string> lines = Wrapped(screen, text, width);
  if (lines.size() > kMostTechnicalLines) {
    lines.resize(kMostTechnicalLines);
    lines.back() = "…";
  }
  return lines;
}

}  // namespace

MessageForm::MessageForm(controls::Screen& screen, Message message)
    : Form(screen, "MessageForm", Border::kFixed),
      frame(*this, "frame"),
      lblSign(frame, "lblSign", std::string(SignOf(message.kind))),
      lblMessage(frame, "lblMessage"),
      lblTechnical(frame, "lblTechnical"),
      cmdYes(*this, "cmdYes", message.kind == MessageKind::kQuestion ? "بله" : "تأييد"),
      cmdNo(*this, "cmdNo", "خير"),
      cmdCopy(*this, "cmdCopy", "رونوشت"),
      message_(std::move(message)) {
  SetCaption(message_.title);
  const bool error = message_.kind == MessageKind::kError;
  lblSign.SetLook(error ? controls::Label::Look::kErrorSign : controls::Label::Look::kSign);
  lblTechnical.SetLook(controls::Label::Look::kTechnical);
  SetUpButtons();
  PlaceButtons(kMargin + PlaceTexts() + kGap);
}

void MessageForm::SetUpButtons() {
  const bool question = message_.kind == MessageKind::kQuestion;
  cmdNo.SetVisible(question);
  cmdCopy.SetVisible(message_.kind == MessageKind::kError || !message_.technical.empty());
  cmdYes.SetAccessKey(question ? "ب" : "ت");
  cmdNo.SetAccessKey("خ");
  cmdCopy.SetAccessKey("ر");
  int index = 0;
  for (controls::Button* button : {&cmdYes, &cmdNo, &cmdCopy}) button->SetTabIndex(index++);
  const Answer ofEnter = question ? AnswerOfEnter(message_.title) : Answer::kYes;
  controls::Button& first = ofEnter == Answer::kYes ? cmdYes : cmdNo;
  SetDefaultButton(&first);
  SetFirstFocus(&first);
  SetEscapeCloses();

  cmdYes.onClick = [this] {
    answer_ = Answer::kYes;
    Hide();
  };
  cmdNo.onClick = [this] { Hide(); };
  cmdCopy.onClick = [this] {
    std::string texts = message_.title + "\n" + message_.text;
    if (!message_.technical.empty()) texts += "\n" + message_.technical;
    GetScreen().CopyToClipboard(texts);
  };
}

Twips MessageForm::PlaceTexts() {
  const controls::Screen& screen = GetScreen();
  const std::vector<std::string> lines = Wrapped(screen, ShownMessage(message_.text), kMostText);
  Twips textWidth = kLeastText;
  for (const std::string& line : lines) {
    textWidth = std::max(textWidth, screen.TextWidth(line) + kToSpare);
  }
  const Twips textHeight = HeightOf(screen, lines);
  const Twips rowHeight = std::max(kSign, textHeight);
  const Twips inside = textWidth + kFrameDown + kSign;
  lblSign.Move(kFrameAcross + inside - kSign, kFrameDown, kSign, kSign);
  lblMessage.SetCaption(Joined(lines));
  lblMessage.Move(kFrameAcross, kFrameDown + (rowHeight - textHeight) / 2, textWidth, textHeight);
  Twips bottom = kFrameDown + rowHeight;

  lblTechnical.SetVisible(!message_.technical.empty());
  if (lblTechnical.Visible()) {
    const std::vector<std::string> technical =
        TechnicalLines(screen, message_.technical, inside - 2 * kTechnicalMargin - kToSpare);
    lblTechnical.SetCaption(Joined(technical));
    lblTechnical.Move(kFrameAcross, bottom + kGap, inside,
                      HeightOf(screen, technical) + 2 * kTechnicalMargin);
    bottom = lblTechnical.Top() + lblTechnical.Height();
  }
  frame.Move(kMargin, kMargin, inside + 2 * kFrameAcross, bottom + kFrameDown);
  return frame.Height();
}

void MessageForm::PlaceButtons(Twips top) {
  Twips left = kMargin;
  if (cmdNo.Visible()) {
    cmdNo.Move(left, top, kButtonWidth, kButtonHeight);
    left += kButtonWidth + kGap;
  }
  cmdYes.Move(left, top, kButtonWidth, kButtonHeight);
  const Twips width = frame.Width() + 2 * kMargin;
  // Apart from those that answer.
  cmdCopy.Move(width - kMargin - kButtonWidth, top, kButtonWidth, kButtonHeight);
  Resize(width, top + kButtonHeight + kMargin);
}

Answer MessageForm::Ask() {
  const PlainPointer plain(GetScreen());
  answer_ = Answer::kNo;
  GetScreen().Beep();
  Show(controls::Modality::kModal);
  return answer_;
}

}  // namespace screens
