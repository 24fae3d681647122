#include "adapters/qt/Components.h"

#include <QColor>
#include <string>

#include "adapters/qt/Automation.h"
#include "adapters/qt/Convert.h"
#include "adapters/qt/DocumentViewer.h"
#include "adapters/qt/MessageDialog.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {

namespace {

using platform::AutomationValue;

constexpr const char* kNotice = "comNotice.comNTC";

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
      question_ = AsNumber(value, kNotice) == 1;
    } else if (member == "FormBackColor") {
      content_.formGround = AsColour(value);
    } else if (member == "BtmBackColor") {
      content_.buttonGround = AsColour(value);
    } else if (member == "FrameBackColor") {
      content_.frameGround = AsColour(value);
    } else {
      ThrowNoSuchMember(kNotice);
    }
  }

  AutomationValue Get(std::string_view member) override {
    if (member == "Resualt") return static_cast<std::int32_t>(answer_);
    if (member == "FormTitle") return ToUtf8(content_.title);
    if (member == "FormMessage") return ToUtf8(content_.message);
    ThrowNoSuchMember(kNotice);
  }

  AutomationValue Call(std::string_view member,
                       std::span<const AutomationValue> /*arguments*/) override {
    if (member != "ClearShow") ThrowNoSuchMember(kNotice);
    content_.kind =
        question_ ? MessageDialog::Kind::kQuestion : screens::KindOfMessage(ToUtf8(content_.title));
    answer_ = MessageDialog(content_).Run();
    return {};
  }

 private:
  static QColor AsColour(const AutomationValue& value) {
    return ToQColor(static_cast<controls::Colour>(AsNumber(value, kNotice)));
  }
  MessageDialog::Content content_;
  bool question_ = false;
  screens::Answer answer_ = screens::Answer::kNo;
};

}  // namespace

std::unique_ptr<platform::AutomationObject> Components::Create(std::string_view progId) {
  if (progId == kNotice) return std::make_unique<Notice>();
  if (progId == "comVoucherView.comVoucherView1") {
    return std::make_unique<DocumentViewer>(connections_);
  }
  throw platform::RuntimeError(platform::kCannotCreateComponent,
                               "ActiveX component can't create object");
}

}  // namespace adapters::qt
