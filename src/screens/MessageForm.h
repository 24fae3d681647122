#pragma once

#include <string>

#include "controls/Controls.h"
#include "controls/Form.h"
#include "screens/Question.h"

namespace screens {

/// UTF-8, lines ended by LF.
struct Message {
  std::string title;
  std::string text;
  std::string technical;  // English, read from the left in a box of its own; empty for none
  MessageKind kind = MessageKind::kInformation;
};

/// The suite's message window: information with one button, a question with yes and no, or an
/// error. The texts of an error, and those with a technical one, can be copied. As large as its
/// texts.
class MessageForm : public controls::Form {
 public:
  MessageForm(controls::Screen& screen, Message message);

  /// Shows it and waits. The single button of what is no question answers yes.
  Answer Ask();

  controls::Frame frame;
  controls::Label lblSign;
  controls::Label lblMessage;
  controls::Label lblTechnical;
  controls::Button cmdYes;
  controls::Button cmdNo;
  controls::Button cmdCopy;

 private:
  void SetUpButtons();
  /// Returns how high the frame is.
  controls::Twips PlaceTexts();
  void PlaceButtons(controls::Twips top);

  Message message_;
  Answer answer_ = Answer::kNo;
};

}  // namespace screens
