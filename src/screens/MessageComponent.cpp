#include "screens/MessageComponent.h"

#include "screens/AutomationValues.h"
#include "screens/MessageForm.h"

namespace screens {

using platform::AutomationValue;

void MessageComponent::Put(std::string_view member, const AutomationValue& value) {
  if (member == "FormTitle") {
    title_ = AsText(value);
  } else if (member == "FormMessage") {
    text_ = AsText(value);
  } else if (member == "FormType") {
    question_ = AsNumber(value, kProgId) == 1;
  } else if (member == "FormBackColor" || member == "BtmBackColor" || member == "FrameBackColor") {
    static_cast<void>(AsNumber(value, kProgId));
  } else {
    ThrowNoSuchMember(kProgId);
  }
}

AutomationValue MessageComponent::Get(std::string_view member) {
  if (member == "Resualt") return static_cast<std::int32_t>(answer_);
  if (member == "FormTitle") return title_;
  if (member == "FormMessage") return text_;
  ThrowNoSuchMember(kProgId);
}

AutomationValue MessageComponent::Call(std::string_view member,
                                       std::span<const AutomationValue> /*arguments*/) {
  if (member != "ClearShow") ThrowNoSuchMember(kProgId);
  const MessageKind kind = question_ ? MessageKind::kQuestion : KindOfMessage(title_);
  answer_ =
      MessageForm(screen_, {.title = title_, .text = text_, .technical = {}, .kind = kind}).Ask();
  return {};
}

}  // namespace screens
