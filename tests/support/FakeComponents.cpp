#include "support/FakeComponents.h"

#include <gtest/gtest.h>

#include <ostream>

#include "platform/RuntimeError.h"

namespace support {

using platform::AutomationValue;
using platform::RuntimeError;

std::ostream& operator<<(std::ostream& out, const Message& message) {
  return out << (message.type == 1 ? "question" : "message") << ": " << message.title << " | "
             << message.text;
}

void FakeObject::Note(std::string_view member, std::string_view mark,
                      const AutomationValue& value) {
  Tell(beforeCall_, member);
  const auto* number = std::get_if<std::int32_t>(&value);
  const std::string text = number ? std::to_string(*number) : std::get<std::string>(value);
  told_.push_back(std::string(member).append(mark).append(text));
}

class FakeNotice : public platform::AutomationObject {
 public:
  explicit FakeNotice(FakeComponents& owner) : owner_(owner) {}

  void Put(std::string_view member, const AutomationValue& value) override {
    Tell(owner_.beforeCall, member);
    owner_.told.emplace_back(member, value);
    if (member == "FormTitle") message_.title = std::get<std::string>(value);
    if (member == "FormMessage") message_.text = std::get<std::string>(value);
    if (member == "FormType") message_.type = std::get<std::int32_t>(value);
  }

  AutomationValue Get(std::string_view member) override {
    Tell(owner_.beforeCall, member);
    if (member != "Resualt") throw RuntimeError(platform::kNoSuchMember, "no such member");
    return static_cast<std::int32_t>(result_);
  }

  AutomationValue Call(std::string_view member, std::span<const AutomationValue>) override {
    Tell(owner_.beforeCall, member);
    owner_.told.emplace_back(member, std::monostate());
    owner_.messages.push_back(message_);
    owner_.events_.push_back(testing::PrintToString(message_));
    if (message_.type == 1) result_ = owner_.NextAnswer(message_);
    return {};
  }

 private:
  FakeComponents& owner_;
  Message message_;
  Answer result_ = Answer::kClosed;
};

FakeComponents::~FakeComponents() {
  EXPECT_TRUE(answers_.empty()) << answers_.size() << " questions were expected and not asked";
}

std::unique_ptr<platform::AutomationObject> FakeComponents::Create(std::string_view progId) {
  created.emplace_back(progId);
  Tell(beforeCall, progId);
  if (const auto other = others.find(progId); other != others.end()) return other->second();
  if (progId != "comNotice.comNTC") {
    throw RuntimeError(platform::kCannotCreateComponent, "ActiveX component can't create object");
  }
  return std::make_unique<FakeNotice>(*this);
}

Answer FakeComponents::NextAnswer(const Message& question) {
  if (answers_.empty() && otherwise) return otherwise();
  if (answers_.empty()) {
    ADD_FAILURE() << "nobody told how the user answers " << question;
    return Answer::kClosed;
  }
  const Answer answer = answers_.front();
  answers_.pop_front();
  return answer;
}

}  // namespace support
