// Whatever lies outside fails once, or for as long as an action lasts, at every call of a planner's
// day: the user is told, the editor is as its mode says, and what is stored is what was done.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "reliability/OfficeDay.h"

namespace reliability {
namespace {

using testing::Contains;
using testing::HasSubstr;
using When = Fault::When;

/// Calls that may fail without a word of the failure itself, and why.
constexpr struct {
  Kind kind;
  std::string_view beginning;
  const char* why;
} kSilent[] = {
    {Kind::kDatabase, "Select getdate() as today", "the machine's date stands in"},
    {Kind::kDatabase, "dbo.spZomirInsertFormAction 330803",
     "the program is deleted, logged or not"},
    {Kind::kComponents, "", "where messages cannot be shown there is no way to say so"},
    {Kind::kReports, "produce", "the engine says itself what it cannot show"},
    {Kind::kLauncher, "Start", "the viewer is tried once more, and missed with a message"},
    {Kind::kFileDialog, "ShowSave", "a name that is missing is asked for by the next button"},
    {Kind::kKeyboard, "LoadKeyboardLayout", "the user types with the layout at hand"},
};

bool MayBeSilent(Kind kind, std::string_view call) {
  return std::ranges::any_of(kSilent, [&](const auto& each) {
    return each.kind == kind && call.starts_with(each.beginning);
  });
}

class Faults : public testing::TestWithParam<Fault> {};

TEST_P(Faults, EveryCallOfTheDay_FailsInTurn_IsToldAndLosesNothing) {
  OfficeDay undisturbed;
  undisturbed.Play();
  const int count = undisturbed.calls[GetParam().kind];
  ASSERT_GT(count, 0);
  for (int at = 1; at <= count && !HasFailure(); ++at) {
    Fault fault = GetParam();
    fault.at = at;
    OfficeDay day(fault);
    day.Play();
    ASSERT_FALSE(day.failed.empty());
    SCOPED_TRACE("call " + std::to_string(at) + ": " + day.failed.front());
    const bool told = std::ranges::any_of(day.actions, [](const OfficeDay::Action& action) {
      return std::ranges::any_of(action.told, [](const std::string& text) {
        return text.find(Fault::kWords) != std::string::npos;
      });
    });
    EXPECT_TRUE(told || std::ranges::all_of(day.failed, [&](const std::string& call) {
                  return MayBeSilent(fault.kind, call);
                }));
    EXPECT_TRUE(day.Stored() == day.Replayed());
    for (auto& a : day.actions)
      for (auto& t : a.told)
        if (t.find(Fault::kWords) == std::string::npos)
          std::cout << "OTHER " << a.name << ": " << t << "\n";
  }
}

INSTANTIATE_TEST_SUITE_P(
    Outside, Faults,
    testing::Values(Fault{.kind = Kind::kDatabase},
                    Fault{.kind = Kind::kDatabase, .when = When::kAfter},
                    Fault{.kind = Kind::kDatabase, .when = When::kFromThenOn},
                    Fault{.kind = Kind::kFiles, .number = 61},
                    Fault{.kind = Kind::kFiles, .when = When::kFromThenOn, .number = 76},
                    Fault{.kind = Kind::kWorkbook},
                    Fault{.kind = Kind::kWorkbook, .when = When::kFromThenOn},
                    Fault{.kind = Kind::kComponents, .number = 429},
                    Fault{.kind = Kind::kComponents, .number = 438},
                    Fault{.kind = Kind::kComponents, .when = When::kFromThenOn, .number = 429},
                    Fault{.kind = Kind::kReports}, Fault{.kind = Kind::kLauncher},
                    Fault{.kind = Kind::kFileDialog, .number = 32755},
                    Fault{.kind = Kind::kFileDialog}, Fault{.kind = Kind::kKeyboard}));

}  // namespace
}  // namespace reliability
