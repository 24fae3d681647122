#include "adapters/qt/Components.h"

#include <QColor>
#include <map>
#include <string>
#include <type_traits>

#include "adapters/qt/Convert.h"
#include "adapters/qt/MessageDialog.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {

namespace {

using platform::AutomationValue;
using platform::RuntimeError;

[[noreturn]] void ThrowNoSuchMember() {
  throw RuntimeError(platform::kNoSuchMember, "Object doesn't support this property or method",
                     "comNotice.comNTC");
}

[[noreturn]] void ThrowTypeMismatch() {
  throw RuntimeError(platform::kTypeMismatch, "Type mismatch", "comNotice.comNTC");
}

QString AsText(const AutomationValue& value) {
  return std::visit(
      [](const auto& held) -> QString {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::monostate>)
          return {};
        else if constexpr (std::is_same_v<Held, bool>)
          return QString::fromLatin1(held ? "True" : "False");
        else if constexpr (std::is_same_v<Held, std::string>)
          return ToQString(held);
        else
          return QString::number(held);
      },
      value);
}

std::int32_t AsNumber(const AutomationValue& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
  if (const auto* number = std::get_if<double>(&value)) return qRound(*number);
  ThrowTypeMismatch();
}

/// The message component: texts, kind and colours are put first, ClearShow shows it and waits,
/// Resualt then tells the answer.
class Notice : public platform::AutomationObject {
 public:
  void Put(std::string_view member, const AutomationValue& value) override {
    if (member == "FormTitle") {
      content_.title = AsText(value);
    } else if (member == "FormMessage") {
      content_.message = AsText(value);
    } else if (member == "FormType") {
      const bool question = AsNumber(value) == 1;
      content_.kind = question ? MessageDialog::Kind::kQuestion : MessageDialog::Kind::kInformation;
    } else if (member == "FormBackColor") {
      content_.formGround = AsColour(value);
    } else if (member == "BtmBackColor") {
      content_.buttonGround = AsColour(value);
    } else if (member == "FrameBackColor") {
      content_.frameGround = AsColour(value);
    } else {
      ThrowNoSuchMember();
    }
  }

  AutomationValue Get(std::string_view member) override {
    if (member == "Resualt") return static_cast<std::int32_t>(answer_);
    if (member == "FormTitle") return ToUtf8(content_.title);
    if (member == "FormMessage") return ToUtf8(content_.message);
    ThrowNoSuchMember();
  }

  AutomationValue Call(std::string_view member,
                       std::span<const AutomationValue> /*arguments*/) override {
    if (member != "ClearShow") ThrowNoSuchMember();
    answer_ = MessageDialog(content_).Run();
    return {};
  }

 private:
  static QColor AsColour(const AutomationValue& value) {
    return ToQColor(static_cast<controls::Colour>(AsNumber(value)));
  }
  MessageDialog::Content content_;
  MessageDialog::Answer answer_ = MessageDialog::Answer::kClosed;
};

}  // namespace

std::unique_ptr<platform::AutomationObject> Components::Create(std::string_view progId) {
  if (progId == "comNotice.comNTC") return std::make_unique<Notice>();
  throw RuntimeError(platform::kCannotCreateComponent, "ActiveX component can't create object");
}

}  // namespace adapters::qt
