#include "controls/ErrorGuard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class RecordingGuard : public controls::ErrorGuard {
 public:
  std::vector<std::string> told;

 protected:
  void Tell(const controls::ErrorTexts& texts) noexcept override {
    told.push_back(texts.sentence + "|" + texts.technical + "|" + std::to_string(Depth()));
  }
};

TEST(ErrorGuard, ErrorsOfNestedCalls_AreToldEachAndTheCallersGoOn) {
  RecordingGuard guard;
  guard.SetBeforeShow([&] { guard.told.emplace_back("before"); });
  guard.Run([&] {
    guard.Run([] { throw platform::RuntimeError(380, "Invalid property value", "box"); });
    guard.SetProgramGoesOn(false);
    throw std::logic_error("a gap");
  });
  EXPECT_THAT(guard.told,
              ElementsAre("before", AllOf(HasSubstr("ادامه"), HasSubstr("380"), HasSubstr("|2")),
                          "before", AllOf(HasSubstr("بسته"), HasSubstr("a gap"), HasSubstr("|1"))));
  EXPECT_EQ(guard.Depth(), 0);
}

}  // namespace
