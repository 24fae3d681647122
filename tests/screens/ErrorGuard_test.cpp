#include "screens/ErrorGuard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class RecordingGuard : public screens::ErrorGuard {
 public:
  std::vector<std::string> told;

 protected:
  void Tell(const screens::ErrorTexts& texts) noexcept override {
    told.push_back(texts.sentence + "|" + texts.technical + "|" + std::to_string(Depth()));
  }
};

TEST(ErrorGuard, ErrorsOfNestedCalls_AreToldEachAndTheCallersGoOn) {
  RecordingGuard guard;
  guard.SetBeforeShow([&] { guard.told.emplace_back("before"); });
  guard.Run([&] {
    guard.Run([] { throw platform::RuntimeError(380, "جدول قفل است. Locked", "box"); });
    guard.SetProgramGoesOn(false);
    throw std::logic_error("a gap");
  });
  EXPECT_THAT(guard.told, ElementsAre("before",
                                      AllOf(HasSubstr("380"), HasSubstr("\nجدول قفل است.\n"),
                                            HasSubstr("ادامه"),
                                            HasSubstr("|Run-time error '380': Locked (box)|2")),
                                      "before", AllOf(HasSubstr("بسته"), HasSubstr("a gap|1"))));
  EXPECT_EQ(guard.Depth(), 0);
  guard.SetBeforeShow({});
  // A letter's presentation form is Persian too; nothing technical is left over.
  guard.Run([] { throw platform::RuntimeError(1, "\uFE8D"); });
  EXPECT_THAT(guard.told.back(),
              AllOf(HasSubstr("\n\uFE8D\n"), testing::EndsWith("|Run-time error '1'|1")));
  // What a server says is technical, also where it names something in Persian.
  guard.Run([] { throw platform::RuntimeError(208, "نيست.\n\u202ANo table 'ويزيت'.\u202C"); });
  EXPECT_THAT(guard.told.back(),
              AllOf(HasSubstr("\nنيست.\n"), HasSubstr("'208': \u202ANo table 'ويزيت'.\u202C|")));
}

}  // namespace
