#pragma once

#include <array>
#include <string>

#include "controls/Screen.h"
#include "platform/ComponentFactory.h"
#include "screens/Question.h"

namespace screens {

/// The suite's message component, "comNotice.comNTC": FormTitle, FormMessage, FormType (0
/// information, 1 a question) and three colours are put; ClearShow shows the message and waits;
/// Resualt then tells the answer, 1 yes, 0 no or closed. What was put stays for the next message.
/// The colours must be numbers and are else disregarded: the window has those of the palette, which
/// are the ones that the module puts.
class MessageComponent : public platform::AutomationObject {
 public:
  static constexpr std::string_view kProgId = "comNotice.comNTC";
  static constexpr std::array<std::string_view, 8> kMembers{
      "FormTitle",    "FormMessage",    "FormType", "FormBackColor",
      "BtmBackColor", "FrameBackColor", "Resualt",  "ClearShow"};

  /// `screen` outlives the object.
  explicit MessageComponent(controls::Screen& screen) : screen_(screen) {}

  void Put(std::string_view member, const platform::AutomationValue& value) override;
  platform::AutomationValue Get(std::string_view member) override;
  platform::AutomationValue Call(std::string_view member,
                                 std::span<const platform::AutomationValue> arguments) override;

 private:
  controls::Screen& screen_;
  std::string title_;
  std::string text_;
  bool question_ = false;
  Answer answer_ = Answer::kNo;
};

}  // namespace screens
