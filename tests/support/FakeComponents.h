#pragma once

#include <deque>
#include <functional>
#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ComponentFactory.h"
#include "support/Events.h"

namespace support {

/// A dialog that the message component showed; type 0 is an information, 1 a question.
struct Message {
  std::string title;
  std::string text;
  int type = 0;
  friend bool operator==(const Message&, const Message&) = default;
};
std::ostream& operator<<(std::ostream& out, const Message& message);

/// What the user does with a question.
enum class Answer { kNo = 0, kYes = 1, kClosed = 2 };

/// A component that notes what it is told: "UserID=1", "View 70". The hook hears the members.
class FakeObject : public platform::AutomationObject {
 public:
  FakeObject(std::vector<std::string>& told, BeforeCall beforeCall)
      : told_(told), beforeCall_(std::move(beforeCall)) {}
  void Put(std::string_view member, const platform::AutomationValue& value) override {
    Note(member, "=", value);
  }
  platform::AutomationValue Get(std::string_view /*member*/) override { return {}; }
  platform::AutomationValue Call(std::string_view member,
                                 std::span<const platform::AutomationValue> arguments) override {
    Note(member, " ", arguments.front());
    return {};
  }

 private:
  void Note(std::string_view member, std::string_view mark, const platform::AutomationValue& value);
  std::vector<std::string>& told_;
  BeforeCall beforeCall_;
};

/// The suite's components, with a message component that records what it is told and answers
/// questions as queued. A question without a queued answer, and an answer left over at the end,
/// fail the test.
class FakeComponents : public platform::ComponentFactory {
 public:
  explicit FakeComponents(Events& events) : events_(events) {}
  ~FakeComponents() override;
  FakeComponents(const FakeComponents&) = delete;
  FakeComponents& operator=(const FakeComponents&) = delete;

  /// Queues answers to the questions that will come.
  void WillAnswer(std::initializer_list<Answer> answers) {
    answers_.insert(answers_.end(), answers);
  }
  /// Answers the questions for which nothing is queued.
  std::function<Answer()> otherwise;
  /// The dialogs shown, in order.
  std::vector<Message> messages;
  /// All that the message components were told, in order: property names and values, and
  /// "ClearShow" with monostate.
  std::vector<std::pair<std::string, platform::AutomationValue>> told;

  /// Other components by their programmatic id.
  std::map<std::string, std::function<std::unique_ptr<platform::AutomationObject>()>, std::less<>>
      others;
  /// Hears the id of a component that is to be made, and the members of the message component.
  BeforeCall beforeCall;
  /// Every id asked for, in order.
  std::vector<std::string> created;

  std::unique_ptr<platform::AutomationObject> Create(std::string_view progId) override;

 private:
  friend class FakeNotice;
  Answer NextAnswer(const Message& question);
  Events& events_;
  std::deque<Answer> answers_;
};

}  // namespace support
