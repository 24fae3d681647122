// Whatever lies outside fails once, or for as long as an action lasts, at every call of a planner's
// day: the user is told, the editor is as its mode says, the next action
// works, and what is stored is what was done.

#include <algorithm>
#include <iostream>

#include "module/OfficeDay.h"

namespace module {
namespace {

/// The calls whose failure is passed over by the routine that makes them, and why.
constexpr struct {
  Kind kind;
  std::string_view beginning;
  const char* why;
} kPassedOver[] = {
    {Kind::kDatabase, "Select getdate() as today", "the machine's date stands in"},
    {Kind::kDatabase, "dbo.spZomirInsertFormAction 330803", "the program is gone, logged or not"},
    {Kind::kComponents, "", "no message can say that there are no messages"},
    {Kind::kReports, "produce", "the engine has a window of its own to say so"},
    {Kind::kDesktop, "Start", "the viewer is tried again, and missed with a message"},
    {Kind::kDesktop, "ShowSave", "the next button asks for the name that is missing"},
    {Kind::kDesktop, "LoadKeyboardLayout", "the user types with the layout at hand"},
};

/// What a person was told in the day's course.
std::string Told(const OfficeDay& day) {
  std::string all;
  for (const OfficeDay::Action& action : day.actions) {
    for (const std::string& text : action.told) all += text + "\n";
  }
  return all;
}

/// Everything that a person may come to see.
std::string Shown(const OfficeDay& day) {
  std::string all = Told(day);
  for (const std::string& event : day.outside.events) all += event;
  for (const std::string& line : day.outside.desktop.started) all += line;
  for (const auto& [what, total] : day.outside.progress.begun) all += what;
  for (const auto& [path, text] : day.outside.fileSystem.files) all.append(path).append(text);
  return all;
}

bool Holds(const std::string& text, std::string_view words) {
  return text.find(words) != text.npos;
}

bool Reads(std::string_view sent) {
  return IsSelect(sent) || sent.starts_with("spZomirHasPermission");
}

class Faults : public testing::TestWithParam<Fault> {};

TEST_P(Faults, EveryCallOfTheDay_FailsInTurn_IsToldAndLosesNothing) {
  OfficeDay undisturbed;
  undisturbed.Play();
  const int count = undisturbed.calls[GetParam().kind];
  ASSERT_GT(count, 0);
  std::vector<std::string> sent;
  for (const OfficeDay::Action& action : undisturbed.actions) {
    sent.insert(sent.end(), action.sent.begin(), action.sent.end());
  }
  int played = 0;
  for (int at = 1; at <= count && !HasFailure(); ++at) {
    Fault fault = GetParam();
    fault.at = at;
    if (fault.IsCancelledAfter() && Reads(sent[static_cast<std::size_t>(at) - 1])) continue;
    ++played;
    OfficeDay day(fault);
    day.Play();
    ASSERT_FALSE(day.failed.empty());
    SCOPED_TRACE("call " + std::to_string(at) + ": " + day.failed.front());
    const bool passedOver = std::ranges::all_of(day.failed, [&](const std::string& call) {
      return std::ranges::any_of(kPassedOver, [&](const auto& each) {
        return each.kind == fault.kind && call.starts_with(each.beginning);
      });
    });
    EXPECT_NE(Holds(Told(day), Fault::kWords), passedOver);
    EXPECT_LE(Holds(Told(day), "ذخيره شد"), day.outside.fileSystem.files.contains("visits.txt"));
    EXPECT_LE(Holds(Told(day), "با موفقيت"), day.outside.excel.finished);
    EXPECT_FALSE(Holds(Shown(day), Office::kPassword));
    Office another;
    const auto connection = another.Connect();
    for (const auto& write : day.written) write(*connection);
    EXPECT_TRUE(day.AllRows() == another.AllRows()) << "the rows are not those of what was done";
  }
  std::cout << played << " calls of the day\n";
}

using When = Fault::When;
INSTANTIATE_TEST_SUITE_P(
    Outside, Faults,
    testing::Values(Fault{Kind::kDatabase}, Fault{Kind::kDatabase, When::kAfter},
                    Fault{Kind::kDatabase, When::kFromThenOn},
                    Fault{Kind::kDatabase, When::kBefore, platform::kUserInterrupt},
                    Fault{Kind::kDatabase, When::kAfter, platform::kUserInterrupt},
                    Fault{Kind::kFiles, When::kBefore, 61}, Fault{Kind::kFiles, When::kFromThenOn},
                    Fault{Kind::kWorkbook}, Fault{Kind::kWorkbook, When::kFromThenOn},
                    Fault{Kind::kComponents, When::kBefore, 438},
                    Fault{Kind::kComponents, When::kFromThenOn, 429}, Fault{Kind::kReports},
                    Fault{Kind::kDesktop}, Fault{Kind::kDesktop, When::kBefore, 32755}));

}  // namespace
}  // namespace module
